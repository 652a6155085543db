#include <CorePlot/CPTAnnotation.h>

#include <cmath>

#include <CorePlot/CPTPlotArea.h>

namespace vexel {

namespace {

// Content whose centre is farther from the plot area's corner cannot be seen, in points.
constexpr CGFloat kFarthestCenter = 1e6;

}  // namespace

void CPTAnnotation::setContentLayer(std::shared_ptr<CPTTextLayer> layer) {
  if (contentLayer_ == layer) return;
  if (contentLayer_) contentLayer_->removeFromSuperlayer();
  contentLayer_ = std::move(layer);
  if (plotArea_) plotArea_->addSublayer(contentLayer_);
  contentDidChange();
}

void CPTAnnotation::setDisplacement(CGPoint points) {
  if (displacement_ == points) return;
  displacement_ = points;
  contentDidChange();
}

void CPTAnnotation::setRotation(CGFloat radians) {
  if (rotation_ == radians) return;
  rotation_ = radians;
  contentDidChange();
}

void CPTAnnotation::contentDidChange() {
  if (plotArea_) plotArea_->setAnnotationsNeedDisplay();
}

void CPTAnnotation::draw(CGContext& context) const {
  if (!contentLayer_) return;
  const auto at = anchor();
  if (!at) return;
  const CGPoint center = *at + displacement_;
  if (!(std::abs(center.x) < kFarthestCenter && std::abs(center.y) < kFarthestCenter)) return;

  const CGSize size = contentLayer_->frame().size;
  const CGSavedState state(context);
  context.translate(center.x, center.y);
  if (rotation_ != 0 && std::isfinite(rotation_)) context.rotate(rotation_);
  context.translate(-size.width / 2, -size.height / 2);
  contentLayer_->display(context);
}

}  // namespace vexel
