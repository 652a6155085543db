#include <CorePlot/CPTPlotSpaceAnnotation.h>

#include <CorePlot/CPTPlotArea.h>
#include <CorePlot/CPTPlotSpace.h>

namespace vexel {

CPTPlotSpaceAnnotation::CPTPlotSpaceAnnotation(CPTPlotSpace* plotSpace,
                                               std::vector<double> anchorPlotPoint)
    : plotSpace_(plotSpace), anchorPlotPoint_(std::move(anchorPlotPoint)) {}

void CPTPlotSpaceAnnotation::setAnchorPlotPoint(std::vector<double> point) {
  if (anchorPlotPoint_ == point) return;
  anchorPlotPoint_ = std::move(point);
  contentDidChange();
}

std::optional<CGPoint> CPTPlotSpaceAnnotation::anchor() const {
  if (!plotArea() || !plotSpace_ || anchorPlotPoint_.size() < 2) return std::nullopt;
  return plotSpace_->plotAreaViewPoint(anchorPlotPoint_[0], anchorPlotPoint_[1],
                                       plotArea()->frame().size);
}

}  // namespace vexel
