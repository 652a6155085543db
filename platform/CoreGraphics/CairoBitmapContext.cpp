#include "CairoBitmapContext.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "CairoImage.h"
#include "PixelBlend.h"
#include "SymbolStamps.h"

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
  CairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  return surface;
}

// Pixels that a clip leaves, in device coordinates.
struct PixelBox {
  int left, top, right, bottom;
};

// Nearer than Cairo can tell from the edge of a pixel.
constexpr CGFloat kEdgeTolerance = 1.0 / 512;

// The pixels that lie in a rectangle with their whole area.
PixelBox wholePixels(const CGRect& rect) {
  return {static_cast<int>(std::ceil(rect.minX() - kEdgeTolerance)),
          static_cast<int>(std::ceil(rect.minY() - kEdgeTolerance)),
          static_cast<int>(std::floor(rect.maxX() + kEdgeTolerance)),
          static_cast<int>(std::floor(rect.maxY() + kEdgeTolerance))};
}

// The pixels of which any part lies in a rectangle.
PixelBox touchedPixels(const CGRect& rect) {
  return {static_cast<int>(std::floor(rect.minX() + kEdgeTolerance)),
          static_cast<int>(std::floor(rect.minY() + kEdgeTolerance)),
          static_cast<int>(std::ceil(rect.maxX() - kEdgeTolerance)),
          static_cast<int>(std::ceil(rect.maxY() - kEdgeTolerance))};
}

// Rows of pixels that start at some place of the device.
struct PixelTarget {
  std::uint32_t* pixels;
  std::ptrdiff_t rowLength;
  int left, top;
};

void blend(const SymbolStamp& stamp, int x, int y, const PixelBox& box, const PixelTarget& target) {
  const int left = std::max(stamp.left + x, box.left);
  const int right = std::min(stamp.left + x + stamp.width, box.right);
  const int top = std::max(stamp.top + y, box.top);
  const int bottom = std::min(stamp.top + y + stamp.height, box.bottom);
  for (int row = top; row < bottom; ++row) {
    const std::uint32_t* from =
        stamp.pixels.data() + (row - stamp.top - y) * stamp.width - stamp.left - x;
    std::uint32_t* to = target.pixels + (row - target.top) * target.rowLength - target.left;
    for (int column = left; column < right; ++column)
      to[column] = pixelOver(from[column], to[column]);
  }
}

bool isWithin(const SymbolStamp& stamp, int x, int y, const PixelBox& box) {
  return stamp.left + x >= box.left && stamp.left + x + stamp.width <= box.right &&
         stamp.top + y >= box.top && stamp.top + y + stamp.height <= box.bottom;
}

// Pixels kept in an image surface whose device coordinates are those of its parent.
class CairoLayer final : public CGLayer {
 public:
  CairoLayer(CairoCanvas canvas, CGFloat backingScale)
      : made_(canvas.transform()), context_(std::move(canvas), backingScale) {}

  CGContext& context() override { return context_; }

  bool fits(const CGContext& target) const override {
    const auto* bitmap = dynamic_cast<const CairoBitmapContext*>(&target);
    if (!bitmap || !bitmap->canvas().isDrawable()) return false;
    const CGAffineTransform& now = bitmap->canvas().transform();
    const auto isWhole = [](CGFloat v) { return std::abs(v - std::round(v)) <= kEdgeTolerance; };
    return now.a == made_.a && now.b == made_.b && now.c == made_.c && now.d == made_.d &&
           isWhole(now.tx - made_.tx) && isWhole(now.ty - made_.ty);
  }

  // How far the place of the layer has moved on `target`, in pixels.
  CGPoint moved(const CairoCanvas& target) const {
    return {std::round(target.transform().tx - made_.tx),
            std::round(target.transform().ty - made_.ty)};
  }

  cairo_surface_t* surface() const { return context_.canvas().surface(); }

 private:
  CGAffineTransform made_;
  CairoBitmapContext context_;
};

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
  return pngFile(canvas_.surface());
}

void CairoBitmapContext::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                                     const CGStrokeStyle* strokeStyle,
                                     std::span<const CGPoint> centers) {
  if (!canvas_.isDrawable() || canvas_.clipBox().isEmpty() || symbol.isEmpty()) return;
  const auto stamps =
      canvas_.clipIsRectangle()
          ? SymbolStamps::create({symbol, fillColor, strokeStyle}, canvas_.transform())
          : nullptr;
  if (!stamps) return canvas_.drawSymbols(symbol, fillColor, strokeStyle, centers);

  cairo_surface_t* surface = canvas_.surface();
  cairo_surface_flush(surface);
  const PixelTarget target{reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface)),
                           cairo_image_surface_get_stride(surface) / 4,
                           static_cast<int>(canvas_.visible().minX()),
                           static_cast<int>(canvas_.visible().minY())};
  const PixelBox whole = wholePixels(canvas_.clipBox()), touched = touchedPixels(canvas_.clipBox());
  const bool hasPartPixels = whole.left != touched.left || whole.top != touched.top ||
                             whole.right != touched.right || whole.bottom != touched.bottom;
  const CGRect reach =
      canvas_.clipBox().insetBy(-SymbolStamps::kMaximumSide, -SymbolStamps::kMaximumSide);

  for (const CGPoint& center : centers) {
    const CGPoint p = canvas_.transform().apply(center);
    if (!reach.contains(p)) continue;
    constexpr int kPhases = SymbolStamps::kPhases;
    const int x = static_cast<int>(std::floor(p.x * kPhases + 0.5));
    const int y = static_cast<int>(std::floor(p.y * kPhases + 0.5));
    // Right shifts of negative numbers round down, as do the phases.
    const int column = x >> 3, row = y >> 3;
    const SymbolStamp& stamp = stamps->stamp(x & 7, y & 7);
    if (hasPartPixels && !isWithin(stamp, column, row, whole)) {
      // Cairo knows how much of the pixels at the edge the clip leaves.
      cairo_surface_mark_dirty(surface);
      canvas_.drawSymbols(symbol, fillColor, strokeStyle, {&center, 1});
      cairo_surface_flush(surface);
    } else {
      blend(stamp, column, row, touched, target);
    }
  }
  cairo_surface_mark_dirty(surface);
}

std::unique_ptr<CGLayer> CairoBitmapContext::makeLayer(const CGRect& rect) {
  const CGAffineTransform& t = canvas_.transform();
  if (!canvas_.isDrawable() || t.b != 0 || t.c != 0) return nullptr;
  CGMutablePath path;
  path.addRect(rect);
  const CGRect wanted = path.transformed(t).boundingBox().intersection(canvas_.visible());
  const PixelBox box = touchedPixels(wanted);
  CairoSurfaceHandle surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, box.right - box.left, box.bottom - box.top));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
  cairo_surface_set_device_offset(surface.get(), -box.left, -box.top);
  const CGRect visible =
      CGRect::make(box.left, box.top, box.right - box.left, box.bottom - box.top);
  return std::make_unique<CairoLayer>(
      CairoCanvas(std::move(surface), CairoCanvas::Surface::pixels, t, visible, canvas_.page()),
      backingScale_);
}

void CairoBitmapContext::drawLayer(const CGLayer& layer) {
  const auto* kept = dynamic_cast<const CairoLayer*>(&layer);
  if (!kept || !kept->fits(*this)) return;
  const CGPoint moved = kept->moved(canvas_);
  canvas_.drawSurface(kept->surface(), moved.x, moved.y);
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
