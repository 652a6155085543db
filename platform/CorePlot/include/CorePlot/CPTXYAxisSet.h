#pragma once

#include <CorePlot/CPTAxisSet.h>
#include <CorePlot/CPTXYAxis.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The axes of an XY graph: to begin with one x axis and one y axis.
class VEXEL_API CPTXYAxisSet : public CPTAxisSet {
 public:
  CPTXYAxisSet();

  /// The first axis along the coordinate, or null when there is none.
  std::shared_ptr<CPTXYAxis> xAxis() const { return first(CPTCoordinate::X); }
  std::shared_ptr<CPTXYAxis> yAxis() const { return first(CPTCoordinate::Y); }

 private:
  std::shared_ptr<CPTXYAxis> first(CPTCoordinate coordinate) const;
};

}  // namespace vexel
