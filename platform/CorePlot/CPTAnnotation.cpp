#include <CorePlot/CPTAnnotation.h>

#include <cmath>

#include <CorePlot/CPTPlotArea.h>

#include "TextReach.h"
#include "TurnedSize.h"

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
  needsDisplay_ = true;
  if (plotArea_) plotArea_->annotationsDidChange();
}

std::optional<CGPoint> CPTAnnotation::center() const {
  const auto at = contentLayer_ ? anchor() : std::nullopt;
  if (!at) return std::nullopt;
  const CGPoint center = *at + displacement_;
  if (!(std::abs(center.x) < kFarthestCenter && std::abs(center.y) < kFarthestCenter))
    return std::nullopt;
  return center;
}

CGFloat CPTAnnotation::usableRotation() const {
  return std::isfinite(rotation_) ? rotation_ : 0;
}

CGRect CPTAnnotation::reach() const {
  const auto at = center();
  if (!at) return {};
  const CGSize size = turned(contentLayer_->frame().size, usableRotation());
  return textReach(
      CGRect::make(at->x - size.width / 2, at->y - size.height / 2, size.width, size.height));
}

void CPTAnnotation::draw(CGContext& context) {
  needsDisplay_ = false;
  const auto at = center();
  if (!at) return;
  // Its delegate may take it away.
  const auto content = contentLayer_;
  const CGSize size = content->frame().size;
  const CGSavedState state(context);
  context.translate(at->x, at->y);
  if (usableRotation() != 0) context.rotate(usableRotation());
  context.translate(-size.width / 2, -size.height / 2);
  content->display(context);
}

}  // namespace vexel
