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

void CGContext::drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                                  std::span<const std::uint32_t> styleOfCenter,
                                  std::span<const CGPoint> centers) {
  std::size_t end = 0;
  for (std::size_t begin = 0; begin < centers.size(); begin = end) {
    const std::uint32_t place = styleOfCenter[begin];
    while (end < centers.size() && styleOfCenter[end] == place) ++end;
    const CGSymbolStyle& style = styles[place];
    drawSymbols(symbol, style.fillColor, style.strokeStyle, centers.subspan(begin, end - begin));
  }
}

bool CGContext::drawOnPixels(const std::function<void(const CGPixels&)>&) {
  return false;
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
