#include "CairoLayer.h"

#include <cmath>
#include <utility>

namespace vexel {

namespace {

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
  canvas.drawSurface(context_.canvas().surface(), std::round(now.tx - made_.tx),
                     std::round(now.ty - made_.ty));
}

}  // namespace vexel
