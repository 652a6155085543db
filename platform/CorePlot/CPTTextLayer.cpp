#include <CorePlot/CPTTextLayer.h>

namespace vexel {

CPTTextLayer::CPTTextLayer(std::string text, CPTTextStyle style)
    : text_(std::move(text)), textStyle_(std::move(style)) {
  setPadding(kDefaultPadding);
}

CPTTextLayer::CPTTextLayer(NSAttributedString attributedText)
    : CPTTextLayer(attributedText.string(), CPTTextStyle{}) {
  setAttributedText(std::move(attributedText));
}

void CPTTextLayer::setText(std::string text) {
  if (text_ == text && !attributedText_) return;
  text_ = std::move(text);
  attributedText_.reset();
  textDidChange();
}

void CPTTextLayer::setTextStyle(std::optional<CPTTextStyle> style) {
  if (textStyle_ == style) return;
  textStyle_ = std::move(style);
  textDidChange();
}

void CPTTextLayer::setAttributedText(NSAttributedString text) {
  if (attributedText_ == text) return;
  text_ = text.string();
  attributedText_ = std::move(text);
  textDidChange();
}

CGText CPTTextLayer::cgText() const {
  const CPTTextStyle style = textStyle_.value_or(CPTTextStyle{});
  return attributedText_ ? attributedText_->cgText(style.textAlignment) : style.cgText(text_);
}

CGSize CPTTextLayer::sizeThatFits() const {
  const CGSize text = sharedTextMeasure().measure(cgText());
  return {text.width + paddingLeft() + paddingRight(),
          text.height + paddingTop() + paddingBottom()};
}

void CPTTextLayer::sizeToFit() {
  setFrame({frame().origin, sizeThatFits()});
}

void CPTTextLayer::textDidChange() {
  setNeedsDisplay();
  sizeToFit();
}

void CPTTextLayer::draw(CGContext& context) {
  CPTBorderedLayer::draw(context);
  context.drawText(cgText(), {paddingLeft(), paddingBottom()});
}

}  // namespace vexel
