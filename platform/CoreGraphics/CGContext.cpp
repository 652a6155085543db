#include <CoreGraphics/CGContext.h>

namespace vexel {

void CGContext::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                            const CGStrokeStyle* strokeStyle, std::span<const CGPoint> centers) {
  for (const CGPoint center : centers) {
    const CGSavedState state(*this);
    translate(center.x, center.y);
    if (fillColor) fill(symbol, *fillColor);
    if (strokeStyle) stroke(symbol, *strokeStyle);
  }
}

std::unique_ptr<CGLayer> CGContext::makeLayer(const CGRect&) {
  return nullptr;
}

void CGContext::drawLayer(const CGLayer&) {}

void CGContext::clip(const CGRect& rect) {
  CGMutablePath path;
  path.addRect(rect);
  clip(path);
}

}  // namespace vexel
