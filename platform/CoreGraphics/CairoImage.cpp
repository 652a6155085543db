#include "CairoImage.h"

#include <algorithm>
#include <cstdint>

namespace vexel {

CairoSurfaceHandle cairoImage(const CGImage& image, std::size_t repeatX, std::size_t repeatY) {
  constexpr std::size_t kMaximum = 32767;
  if (image.width() > kMaximum / repeatX || image.height() > kMaximum / repeatY) return nullptr;
  const std::size_t width = image.width() * repeatX, height = image.height() * repeatY;
  CairoSurfaceHandle surface(cairo_image_surface_create(
      CAIRO_FORMAT_ARGB32, static_cast<int>(width), static_cast<int>(height)));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  // Rows of 32-bit pixels have no padding.
  auto* row = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
  for (std::size_t y = 0; y < height; ++y, row += width) {
    if (y % repeatY != 0) {
      std::copy_n(row - width, width, row);
      continue;
    }
    for (std::size_t column = 0; column < image.width(); ++column)
      std::fill_n(row + column * repeatX, repeatX, image.premultipliedARGB(column, y / repeatY));
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
