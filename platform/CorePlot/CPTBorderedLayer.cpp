#include <CorePlot/CPTBorderedLayer.h>

#include <cmath>

namespace vexel {

void CPTBorderedLayer::setFill(std::optional<CPTFill> fill) {
  if (fill_ == fill) return;
  fill_ = std::move(fill);
  setNeedsDisplay();
}

void CPTBorderedLayer::setBorderLineStyle(std::optional<CPTLineStyle> style) {
  if (borderLineStyle_ == style) return;
  borderLineStyle_ = std::move(style);
  setNeedsDisplay();
}

void CPTBorderedLayer::setCornerRadius(CGFloat points) {
  if (cornerRadius_ == points) return;
  cornerRadius_ = points;
  setNeedsDisplay();
}

void CPTBorderedLayer::setMasksToBorder(bool masks) {
  if (masksToBorder_ == masks) return;
  masksToBorder_ = masks;
  setNeedsDisplay();
}

void CPTBorderedLayer::draw(CGContext& context) {
  drawFill(context);
  drawBorder(context);
}

void CPTBorderedLayer::drawFill(CGContext& context) const {
  if (!fill_) return;
  if (!(cornerRadius_ > 0)) return fill_->fill(context, bounds());
  CGMutablePath rounded;
  rounded.addRoundedRect(bounds(), cornerRadius_);
  fill_->fill(context, rounded);
}

void CPTBorderedLayer::drawBorder(CGContext& context) const {
  if (borderLineStyle_) strokeBorder(context, borderLineStyle_->lineWidth / 2);
}

void CPTBorderedLayer::strokeBorder(CGContext& context, CGFloat inset) const {
  if (!borderLineStyle_ || bounds().isEmpty()) return;
  CGStrokeStyle style = borderLineStyle_->strokeStyle();
  if (!(style.width > 0 && std::isfinite(style.width))) return;
  const bool isRound = cornerRadius_ > inset;
  CGMutablePath border;
  border.addRoundedRect(bounds().insetBy(inset, inset), isRound ? cornerRadius_ - inset : 0);
  style.alignsToPixels = !isRound;
  context.stroke(border, style);
}

void CPTBorderedLayer::clipToBorder(CGContext& context) const {
  if (!masksToBorder_) return;
  if (!(cornerRadius_ > 0)) return context.clip(bounds());
  CGMutablePath rounded;
  rounded.addRoundedRect(bounds(), cornerRadius_);
  context.clip(rounded);
}

}  // namespace vexel
