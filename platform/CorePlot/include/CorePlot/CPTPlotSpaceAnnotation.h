#pragma once

#include <vector>

#include <CorePlot/CPTAnnotation.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTPlotSpace;

/// An annotation anchored at a point of a plot space: it moves with the data.
class VEXEL_API CPTPlotSpaceAnnotation : public CPTAnnotation {
 public:
  /// The plot space is referred to weakly; `anchorPlotPoint` is x, y in plot-space units.
  CPTPlotSpaceAnnotation(CPTPlotSpace* plotSpace, std::vector<double> anchorPlotPoint);

  /// Null once it is gone; then the annotation is not drawn.
  CPTPlotSpace* plotSpace() const { return plotSpace_.get(); }
  /// x, y in plot-space units.
  const std::vector<double>& anchorPlotPoint() const { return anchorPlotPoint_; }
  void setAnchorPlotPoint(std::vector<double> point);

  /// Absent also when the point has fewer than two numbers.
  std::optional<CGPoint> anchor() const override;

 private:
  NSWeak<CPTPlotSpace> plotSpace_;
  std::vector<double> anchorPlotPoint_;
};

}  // namespace vexel
