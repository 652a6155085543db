#include <CorePlot/CPTPlotAreaFrame.h>

namespace vexel {

CPTPlotAreaFrame::CPTPlotAreaFrame() {
  setPlotArea(std::make_shared<CPTPlotArea>());
}

void CPTPlotAreaFrame::setPlotArea(std::shared_ptr<CPTPlotArea> plotArea) {
  if (plotArea_ == plotArea) return;
  if (plotArea_) plotArea_->removeFromSuperlayer();
  plotArea_ = std::move(plotArea);
  addSublayer(plotArea_);
  layoutSublayers();
}

void CPTPlotAreaFrame::layoutSublayers() {
  if (plotArea_) plotArea_->setFrame(paddedBounds());
}

}  // namespace vexel
