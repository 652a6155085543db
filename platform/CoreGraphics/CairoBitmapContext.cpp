#include "CairoBitmapContext.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace vexel {

namespace {

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

int pixelCount(CGFloat points, CGFloat backingScale) {
  const CGFloat product = points * backingScale;
  // A comparison with NaN is false.
  if (!(points > 0 && backingScale > 0 && product < CGBitmapContext::kMaximumPixels + 0.5))
    throw CGContextError("A bitmap must have between 1 and 32767 pixels in either direction");
  return std::max(1, static_cast<int>(std::lround(product)));
}

CairoSurfaceHandle makeSurface(int width, int height) {
  CairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  return surface;
}

}  // namespace

CairoBitmapContext::CairoBitmapContext(CairoCanvas canvas, CGFloat backingScale)
    : CairoContext(std::move(canvas)), backingScale_(backingScale) {}

int CairoBitmapContext::pixelWidth() const {
  return cairo_image_surface_get_width(canvas_.surface());
}

int CairoBitmapContext::pixelHeight() const {
  return cairo_image_surface_get_height(canvas_.surface());
}

std::span<const std::uint32_t> CairoBitmapContext::pixels() {
  cairo_surface_flush(canvas_.surface());
  // Rows of 32-bit pixels have no padding.
  return {reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(canvas_.surface())),
          static_cast<std::size_t>(pixelWidth()) * static_cast<std::size_t>(pixelHeight())};
}

std::string CairoBitmapContext::pngData() {
  std::string bytes;
  cairo_surface_write_to_png_stream(canvas_.surface(), append, &bytes);
  return bytes;
}

std::unique_ptr<CGBitmapContext> CGBitmapContext::create(CGSize size, CGFloat backingScale) {
  const int width = pixelCount(size.width, backingScale),
            height = pixelCount(size.height, backingScale);
  const CGRect visible = CGRect::make(0, 0, width, height);
  CairoCanvas canvas(makeSurface(width, height), CairoCanvas::Surface::pixels,
                     {backingScale, 0, 0, -backingScale, 0, static_cast<CGFloat>(height)}, visible,
                     visible);
  return std::make_unique<CairoBitmapContext>(std::move(canvas), backingScale);
}

}  // namespace vexel
