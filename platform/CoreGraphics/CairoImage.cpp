#include "CairoImage.h"

#include <cstdint>

namespace vexel {

CairoSurfaceHandle cairoImage(const CGImage& image) {
  constexpr std::size_t kMaximum = 32767;
  if (image.width() > kMaximum || image.height() > kMaximum) return nullptr;
  CairoSurfaceHandle surface(cairo_image_surface_create(
      CAIRO_FORMAT_ARGB32, static_cast<int>(image.width()), static_cast<int>(image.height())));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  unsigned char* data = cairo_image_surface_get_data(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  for (std::size_t row = 0; row < image.height(); ++row) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(data + row * static_cast<std::size_t>(stride));
    for (std::size_t column = 0; column < image.width(); ++column)
      pixels[column] = image.premultipliedARGB(column, row);
  }
  cairo_surface_mark_dirty(surface.get());
  return surface;
}

}  // namespace vexel
