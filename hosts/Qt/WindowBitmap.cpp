#include "WindowBitmap.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vexel {

namespace {

/// The smallest rectangle around `rect` whose edges lie between pixels.
CGRect wholePixels(const CGRect& rect, CGFloat ratio, CGFloat pixelHeight) {
  // Pixels are counted from the top, and a part of one above that may be missing.
  const CGFloat top = pixelHeight / ratio;
  const CGFloat left = std::floor(rect.minX() * ratio) / ratio;
  const CGFloat right = std::ceil(rect.maxX() * ratio) / ratio;
  const CGFloat above = std::floor((top - rect.maxY()) * ratio) / ratio;
  const CGFloat below = std::ceil((top - rect.minY()) * ratio) / ratio;
  return CGRect::make(left, top - below, right - left, below - above);
}

/// Whole pixels that the window covers, in points: all of a bitmap of that size is drawn.
CGSize coveredPart(CGSize size, CGFloat ratio) {
  const auto covered = [&](CGFloat points) {
    return std::max(1.0, std::floor(points * ratio)) / ratio;
  };
  return {covered(size.width), covered(size.height)};
}

}  // namespace

bool WindowBitmap::update(NSWindow& window, qreal ratio, const CGColor& background) {
  const CGSize size = window.contentSize();
  std::vector<CGRect> dirty = window.dirtyRects();
  if (!context_ || size_ != size || context_->backingScale() != ratio) {
    context_.reset();
    try {
      context_ = CGBitmapContext::create(coveredPart(size, ratio), ratio);
    } catch (const CGContextError&) {
      return false;
    }
    size_ = size;
    dirty = {CGRect{{}, size}};
  }
  for (const CGRect& rect : dirty) {
    const CGRect part = wholePixels(rect, ratio, context_->pixelHeight());
    const CGSavedState state(*context_);
    context_->clip(part);
    context_->fillAligned(part, background);
    window.displayRect(part, *context_);
  }
  return true;
}

QImage WindowBitmap::image() const {
  const auto pixels = context_->pixels();
  const int width = context_->pixelWidth();
  QImage image(reinterpret_cast<const uchar*>(pixels.data()), width, context_->pixelHeight(),
               qsizetype{4} * width, QImage::Format_RGB32);
  image.setDevicePixelRatio(context_->backingScale());
  return image;
}

}  // namespace vexel
