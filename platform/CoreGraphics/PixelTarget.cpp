#include "PixelTarget.h"

#include <algorithm>
#include <cmath>

#include "PixelBlend.h"

namespace vexel {

namespace {

// Cairo cannot tell what is nearer than this to the edge of a pixel.
constexpr CGFloat kEdge = 1.0 / 512;

int roundedUp(CGFloat v) {
  return static_cast<int>(std::ceil(v - kEdge));
}
int roundedDown(CGFloat v) {
  return static_cast<int>(std::floor(v + kEdge));
}

// Row `v` of a shape around (x, y), to be indexed with columns of the device.
template <class Value, class Shape>
const Value* placed(const Value* values, const Shape& shape, int x, int y, int v) {
  return values + std::ptrdiff_t{v - shape.top - y} * shape.width - shape.left - x;
}

}  // namespace

PixelTarget::PixelTarget(const CairoCanvas& canvas) : surface_(canvas.surface()) {
  cairo_surface_flush(surface_);
  pixels_ = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface_));
  rowLength_ = cairo_image_surface_get_stride(surface_) / 4;
  left_ = static_cast<int>(canvas.visible().minX());
  top_ = static_cast<int>(canvas.visible().minY());
  const CGRect& clip = canvas.clipBox();
  whole_ = {roundedUp(clip.minX()), roundedUp(clip.minY()), roundedDown(clip.maxX()),
            roundedDown(clip.maxY())};
  touched_ = {roundedDown(clip.minX()), roundedDown(clip.minY()), roundedUp(clip.maxX()),
              roundedUp(clip.maxY())};
}

PixelTarget::~PixelTarget() {
  cairo_surface_mark_dirty(surface_);
}

template <class Shape>
PixelRect PixelTarget::visiblePart(const Shape& shape, int x, int y) const {
  return {std::max(shape.left + x, touched_.left), std::max(shape.top + y, touched_.top),
          std::min(shape.left + x + shape.width, touched_.right),
          std::min(shape.top + y + shape.height, touched_.bottom)};
}

template <class Shape>
bool PixelTarget::canTake(const Shape& shape, int x, int y) const {
  const PixelRect part = visiblePart(shape, x, y);
  if (part.isEmpty()) return true;
  return part.left >= whole_.left && part.right <= whole_.right && part.top >= whole_.top &&
         part.bottom <= whole_.bottom;
}

void PixelTarget::blend(const PixelRect& box, const std::uint32_t* pixels) {
  for (int v = box.top; v < box.bottom; ++v, pixels += box.width())
    pixelsOver(pixels, row(v) + box.left, box.width());
}

bool PixelTarget::fill(const PixelRect& box, std::uint32_t pixel) {
  if (whole_ != touched_) return false;
  const PixelRect visible = clip();
  const int left = std::max(box.left, visible.left);
  const int right = std::min(box.right, visible.right);
  const int bottom = std::min(box.bottom, visible.bottom);
  if (left >= right) return true;
  for (int v = std::max(box.top, visible.top); v < bottom; ++v)
    std::fill(row(v) + left, row(v) + right, pixel);
  return true;
}

void PixelTarget::prefetch(int x, int y, int reach) const {
  if (x < touched_.left || x >= touched_.right) return;
  const int end = std::min(y + reach, touched_.bottom);
  for (int v = std::max(y - reach, touched_.top); v < end; ++v) __builtin_prefetch(row(v) + x, 1);
}

PixelBuffer PixelTarget::buffer() const {
  return {pixels_, cairo_image_surface_get_width(surface_),
          cairo_image_surface_get_height(surface_), rowLength_};
}

std::optional<PixelRect> PixelTarget::wholeClip() const {
  if (whole_ != touched_) return std::nullopt;
  const PixelRect clip{whole_.left - left_, whole_.top - top_, whole_.right - left_,
                       whole_.bottom - top_};
  return buffer().clipped(clip);
}

PixelRect PixelTarget::clip() const {
  const PixelBuffer pixels = buffer();
  return {std::max(touched_.left, left_), std::max(touched_.top, top_),
          std::min(touched_.right, left_ + pixels.width),
          std::min(touched_.bottom, top_ + pixels.height)};
}

std::uint32_t* PixelTarget::row(int y) const {
  return pixels_ + (y - top_) * rowLength_ - left_;
}

bool PixelTarget::blend(const PixelStamp& stamp, int x, int y) {
  const StampShape& shape = stamp.shape;
  if (!canTake(shape, x, y)) return false;
  const PixelRect part = visiblePart(shape, x, y);
  for (int v = part.top; v < part.bottom; ++v) {
    const StampShape::Span& ink = shape.ink[static_cast<std::size_t>(v - shape.top - y)];
    const int from = std::max(part.left, ink.from + shape.left + x);
    const int to = std::min(part.right, ink.to + shape.left + x);
    if (from < to)
      weightedPixelsOver(placed(stamp.pixels, shape, x, y, v) + from,
                         placed(stamp.weights, shape, x, y, v) + from, stamp.color, row(v) + from,
                         to - from);
  }
  return true;
}

bool PixelTarget::blend(const CoverageMask& mask, std::uint32_t premultipliedColor, int x, int y) {
  if (!canTake(mask, x, y)) return false;
  const PixelRect part = visiblePart(mask, x, y);
  for (int v = part.top; v < part.bottom; ++v) {
    const std::uint8_t* from = placed(mask.coverage.data(), mask, x, y, v);
    std::uint32_t* to = row(v);
    for (int u = part.left; u < part.right; ++u)
      to[u] = pixelOver(scaledPixel(premultipliedColor, from[u]), to[u]);
  }
  return true;
}

}  // namespace vexel
