#include "CairoBitmapContext.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <new>
#include <string>
#include <utility>

#include "BitmapSymbols.h"
#include "BitmapText.h"
#include "CairoImage.h"
#include "CairoLayer.h"
#include "PixelSurface.h"
#include "PixelTarget.h"
#include "PngFile.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

int pixelCount(CGFloat points, CGFloat backingScale) {
  const CGFloat product = points * backingScale;
  // A comparison with NaN is false.
  if (!(points > 0 && backingScale > 0 && product < CGBitmapContext::kMaximumPixels + 0.5))
    throw CGContextError("A bitmap must have between 1 and 32767 pixels in either direction");
  return std::max(1, static_cast<int>(std::lround(product)));
}

CairoSurfaceHandle makeSurface(int width, int height) {
  if (std::int64_t{width} * height > CGBitmapContext::kMostPixels)
    throw CGContextError("A bitmap must have at most 2^28 pixels");
  CairoSurfaceHandle surface = pixelSurface(width, height);
  if (!surface) throw CGContextError(cairo_status_to_string(CAIRO_STATUS_NO_MEMORY));
  return surface;
}

// Nearer than Cairo can tell from the edge of a pixel.
constexpr CGFloat kEdge = 1.0 / 512;

}  // namespace

CairoBitmapContext::CairoBitmapContext(CairoCanvas canvas, CGFloat backingScale, Use use)
    : CairoContext(std::move(canvas)), backingScale_(backingScale), use_(use) {}

int CairoBitmapContext::pixelWidth() const {
  return static_cast<int>(canvas_.visible().size.width);
}

int CairoBitmapContext::pixelHeight() const {
  return static_cast<int>(canvas_.visible().size.height);
}

std::span<const std::uint32_t> CairoBitmapContext::pixels() {
  cairo_surface_flush(canvas_.surface());
  // Rows of 32-bit pixels have no padding.
  return {reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(canvas_.surface())),
          static_cast<std::size_t>(pixelWidth()) * static_cast<std::size_t>(pixelHeight())};
}

std::string CairoBitmapContext::pngData() {
  if (const auto status = canvas_.status(); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  try {
    return pngFile(pixels(), pixelWidth(), pixelHeight());
  } catch (const std::bad_alloc&) {
    throw CGContextError("There is no memory for the PNG file");
  }
}

void CairoBitmapContext::fillAligned(const CGRect& rect, const CGColor& color) {
  // Backgrounds: Cairo takes several times as long to fill a window.
  if (!canvas_.fillPlain(rect, color)) canvas_.fillAligned(rect, color);
}

void CairoBitmapContext::drawText(const CGText& text, CGPoint origin) {
  drawTextOnBitmap(canvas_, text, origin);
}

void CairoBitmapContext::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                                     const CGStrokeStyle* strokeStyle,
                                     std::span<const CGPoint> centers) {
  drawSymbolsOnBitmap(canvas_, {symbol, fillColor, strokeStyle}, centers);
}

void CairoBitmapContext::drawStyledSymbols(const CGPath& symbol,
                                           std::span<const CGSymbolStyle> styles,
                                           std::span<const std::uint32_t> styleOfCenter,
                                           std::span<const CGPoint> centers) {
  if (!drawStyledSymbolsOnBitmap(canvas_, symbol, styles, styleOfCenter, centers))
    CGContext::drawStyledSymbols(symbol, styles, styleOfCenter, centers);
}

bool CairoBitmapContext::drawOnPixels(const std::function<void(const CGPixels&)>& draw) {
  if (!canvas_.isDrawable() || !canvas_.clipIsRectangle()) return false;
  const PixelTarget target(canvas_);
  const auto clip = target.wholeClip();
  if (!clip) return false;
  CGAffineTransform toPixels = canvas_.transform();
  toPixels.tx -= canvas_.visible().minX();
  toPixels.ty -= canvas_.visible().minY();
  draw({target.buffer(), *clip, toPixels});
  return true;
}

std::unique_ptr<CGLayer> CairoBitmapContext::makeLayer(const CGRect& rect) {
  const CGAffineTransform& t = canvas_.transform();
  if (!canvas_.isDrawable() || !keepsAxes(t)) return nullptr;
  CGMutablePath path;
  path.addRect(rect);
  const CGRect wanted = path.transformed(t).boundingBox().intersection(canvas_.visible());
  const int left = static_cast<int>(std::floor(wanted.minX() + kEdge));
  const int top = static_cast<int>(std::floor(wanted.minY() + kEdge));
  const int width = static_cast<int>(std::ceil(wanted.maxX() - kEdge)) - left;
  const int height = static_cast<int>(std::ceil(wanted.maxY() - kEdge)) - top;
  CairoSurfaceHandle surface = pixelSurface(width, height);
  if (!surface) return nullptr;
  cairo_surface_set_device_offset(surface.get(), -left, -top);
  const CGRect visible = CGRect::make(left, top, width, height);
  CairoCanvas canvas(std::move(surface), CairoCanvas::Surface::pixels, t, visible, canvas_.page());
  canvas.clear();
  return std::make_unique<CairoLayer>(std::move(canvas), backingScale_);
}

void CairoBitmapContext::drawLayer(const CGLayer& layer) {
  const auto* kept = dynamic_cast<const CairoLayer*>(&layer);
  if (kept && kept->fits(*this)) kept->drawOnto(canvas_);
}

std::unique_ptr<CGBitmapContext> CGBitmapContext::create(CGSize size, CGFloat backingScale,
                                                         Use use) {
  const int width = pixelCount(size.width, backingScale),
            height = pixelCount(size.height, backingScale);
  const CGRect visible = CGRect::make(0, 0, width, height);
  CairoCanvas canvas(makeSurface(width, height), CairoCanvas::Surface::pixels,
                     {backingScale, 0, 0, -backingScale, 0, static_cast<CGFloat>(height)}, visible,
                     visible);
  canvas.clear();
  return std::make_unique<CairoBitmapContext>(std::move(canvas), backingScale, use);
}

}  // namespace vexel
