#include "CairoImage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vexel {

namespace {

// Pixels to a point that a vector file has of an image that is not smoothed.
constexpr CGFloat kFileResolution = 4;
constexpr std::size_t kMaximumFileRepeat = 64;
constexpr std::size_t kMaximumFilePixels = 2048;

// How often a file repeats each of `count` pixels that are `points` long in it.
std::size_t repeated(CGFloat points, std::size_t count) {
  const std::size_t most = std::min(kMaximumFileRepeat, kMaximumFilePixels / count);
  if (count == 1 || most < 2) return 1;
  return static_cast<std::size_t>(
      std::clamp(std::ceil(points * kFileResolution), 1.0, static_cast<CGFloat>(most)));
}

}  // namespace

ImageRepeat fileRepeat(const CGImage& image, const CGAffineTransform& t) {
  if (image.layout().interpolates) return {};
  return {repeated(std::hypot(t.a, t.b), image.width()),
          repeated(std::hypot(t.c, t.d), image.height())};
}

CairoSurfaceHandle cairoImage(const CGImage& image, ImageRepeat repeat) {
  constexpr std::size_t kMaximum = 32767;
  if (image.width() > kMaximum / repeat.x || image.height() > kMaximum / repeat.y) return nullptr;
  const std::size_t width = image.width() * repeat.x, height = image.height() * repeat.y;
  CairoSurfaceHandle surface(cairo_image_surface_create(
      CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  // Rows of 32-bit pixels have no padding.
  auto* row = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
  for (std::size_t y = 0; y < height; ++y, row += width) {
    if (y % repeat.y != 0) {
      std::copy_n(row - width, width, row);
      continue;
    }
    for (std::size_t column = 0; column < image.width(); ++column)
      std::fill_n(row + column * repeat.x, repeat.x, image.premultipliedARGB(column, y / repeat.y));
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

CairoSurfaceHandle sampledImage(const CGImage& image, const CGAffineTransform& imageToDevice,
                                const CGRect& area) {
  const auto width = static_cast<std::size_t>(area.size.width);
  const auto height = static_cast<std::size_t>(area.size.height);
  CairoSurfaceHandle surface(cairo_image_surface_create(
      CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  auto* pixel = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
  const CGAffineTransform toImage = imageToDevice.inverted();
  const auto index = [](CGFloat coordinate, std::size_t count) {
    return static_cast<std::size_t>(
        std::clamp(coordinate, CGFloat{0}, static_cast<CGFloat>(count - 1)));
  };
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) {
      const CGPoint p = toImage.apply({area.minX() + static_cast<CGFloat>(x) + 0.5,
                                       area.minY() + static_cast<CGFloat>(y) + 0.5});
      *pixel++ = image.premultipliedARGB(index(p.x, image.width()), index(p.y, image.height()));
    }
  }
  cairo_surface_mark_dirty(surface.get());
  cairo_surface_set_device_offset(surface.get(), -area.minX(), -area.minY());
  return surface;
}

}  // namespace vexel
