#include <CorePlot/CPTBorderedLayer.h>

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
  if (fill_) {
    if (cornerRadius_ > 0) {
      CGMutablePath rounded;
      rounded.addRoundedRect(bounds(), cornerRadius_);
      fill_->fill(context, rounded);
    } else {
      fill_->fill(context, bounds());
    }
  }
  if (borderLineStyle_ && !bounds().isEmpty()) {
    const CGFloat inset = borderLineStyle_->lineWidth / 2;
    CGMutablePath border;
    border.addRoundedRect(bounds().insetBy(inset, inset), cornerRadius_);
    CGStrokeStyle style = borderLineStyle_->strokeStyle();
    style.alignsToPixels = cornerRadius_ <= 0;
    context.stroke(border, style);
  }
}

}  // namespace vexel
