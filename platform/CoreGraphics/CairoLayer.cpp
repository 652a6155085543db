#include "CairoLayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "PixelTarget.h"

namespace vexel {

namespace {

// No two surfaces that are so many pixels apart show the same.
constexpr CGFloat kFar = 1 << 20;

// Nearer to a whole number of pixels than can be seen.
bool isWhole(CGFloat pixels) {
  return std::abs(pixels - std::round(pixels)) <= 1.0 / 512;
}

}  // namespace

CairoLayer::CairoLayer(CairoCanvas canvas, CGFloat backingScale)
    : made_(canvas.transform()),
      context_(std::move(canvas), backingScale, CGBitmapContext::Use::window) {}

bool CairoLayer::fits(const CGContext& target) const {
  const auto* bitmap = dynamic_cast<const CairoBitmapContext*>(&target);
  if (!bitmap || !bitmap->canvas().isDrawable()) return false;
  const CGAffineTransform& now = bitmap->canvas().transform();
  return now.a == made_.a && now.b == made_.b && now.c == made_.c && now.d == made_.d &&
         isWhole(now.tx - made_.tx) && isWhole(now.ty - made_.ty);
}

void CairoLayer::drawOnto(CairoCanvas& canvas) const {
  const CGAffineTransform& now = canvas.transform();
  const CGFloat dx = std::round(now.tx - made_.tx);
  const CGFloat dy = std::round(now.ty - made_.ty);
  const CairoCanvas& kept = context_.canvas();
  const bool isNear = std::max(std::abs(dx), std::abs(dy)) < kFar;
  if (kept.isOpaque() && canvas.clipIsRectangle() && isNear)
    PixelTarget(canvas).copy(PixelTarget(kept), static_cast<int>(dx), static_cast<int>(dy));
  else
    canvas.drawSurface(kept.surface(), dx, dy);
}

}  // namespace vexel
