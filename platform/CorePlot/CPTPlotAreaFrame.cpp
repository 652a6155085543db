#include <CorePlot/CPTPlotAreaFrame.h>

namespace vexel {

CPTPlotAreaFrame::CPTPlotAreaFrame() : plotArea_(std::make_shared<CPTPlotArea>()) {
  addSublayer(plotArea_);
}

void CPTPlotAreaFrame::setPlotArea(std::shared_ptr<CPTPlotArea> plotArea) {
  if (plotArea_ == plotArea) return;
  if (plotArea_) plotArea_->removeFromSuperlayer();
  plotArea_ = std::move(plotArea);
  addSublayer(plotArea_);
  layoutSublayers();
  setNeedsDisplay();
}

void CPTPlotAreaFrame::draw(CGContext& context) {
  drawFill(context);
  const auto area = plotArea_;
  if (!area) return;
  const CGSavedState state(context);
  context.translate(area->frame().origin.x, area->frame().origin.y);
  area->display(context);
}

void CPTPlotAreaFrame::drawBorder(CGContext& context) const {
  if (!borderLineStyle()) return;
  const CGFloat width = borderLineStyle()->lineWidth;
  const CGRect outer = frame().insetBy(-width, -width);
  const CGRect room = superlayer() ? superlayer()->bounds() : CGRect{};
  const bool hasRoom = room.contains(outer.origin) && room.contains({outer.maxX(), outer.maxY()});
  strokeBorder(context, hasRoom ? 0 : width / 2);
}

void CPTPlotAreaFrame::layoutSublayers() {
  if (plotArea_) plotArea_->setFrame(paddedBounds());
}

}  // namespace vexel
