#include "pictures/Picture.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace vexel {

namespace {

constexpr std::uint32_t kBlack = 0xff000000u;
constexpr std::uint32_t kWhite = 0xffffffffu;

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

struct Reader {
  const std::string& file;
  std::size_t at = 0;
};

cairo_status_t read(void* closure, unsigned char* data, unsigned int length) {
  auto& from = *static_cast<Reader*>(closure);
  if (from.file.size() - from.at < length) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(data, from.file.data() + from.at, length);
  from.at += length;
  return CAIRO_STATUS_SUCCESS;
}

cairo_status_t write(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

Picture Picture::of(CGBitmapContext& context) {
  const auto pixels = context.pixels();
  return {context.pixelWidth(), context.pixelHeight(), {pixels.begin(), pixels.end()}};
}

std::optional<Picture> Picture::fromPng(const std::string& file) {
  Reader reader{file};
  const Surface surface(cairo_image_surface_create_from_png_stream(&read, &reader),
                        &cairo_surface_destroy);
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return std::nullopt;
  const bool isOpaque = cairo_image_surface_get_format(surface.get()) == CAIRO_FORMAT_RGB24;
  Picture picture{cairo_image_surface_get_width(surface.get()),
                  cairo_image_surface_get_height(surface.get()),
                  {}};
  const unsigned char* const data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < picture.height; ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(data + y * stride);
    for (int x = 0; x < picture.width; ++x)
      picture.pixels.push_back(row[x] | (isOpaque ? kBlack : 0));
  }
  return picture;
}

std::string Picture::png() const {
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height),
                        &cairo_surface_destroy);
  unsigned char* const data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; y < height; ++y)
    std::memcpy(data + y * stride, pixels.data() + y * width, 4 * static_cast<std::size_t>(width));
  cairo_surface_mark_dirty(surface.get());
  std::string file;
  cairo_surface_write_to_png_stream(surface.get(), &write, &file);
  return file;
}

Picture difference(const Picture& a, const Picture& b) {
  Picture result{std::max(a.width, b.width), std::max(a.height, b.height), {}};
  const auto pixelOf = [](const Picture& picture, int x, int y) -> std::optional<std::uint32_t> {
    if (x >= picture.width || y >= picture.height) return std::nullopt;
    return picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
  };
  for (int y = 0; y < result.height; ++y)
    for (int x = 0; x < result.width; ++x)
      result.pixels.push_back(pixelOf(a, x, y) == pixelOf(b, x, y) ? kWhite : kBlack);
  return result;
}

}  // namespace vexel
