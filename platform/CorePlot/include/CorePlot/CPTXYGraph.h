#pragma once

#include <CorePlot/CPTGraph.h>
#include <CorePlot/CPTXYAxisSet.h>
#include <CorePlot/CPTXYPlotSpace.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A chart with cartesian coordinates. New ones have paddings of 20 points, a plot area frame
/// with a plot area, one CPTXYPlotSpace and a CPTXYAxisSet with an x and a y axis on it.
class VEXEL_API CPTXYGraph : public CPTGraph {
 public:
  /// A graph as said above.
  explicit CPTXYGraph(CGRect frame = {});
};

}  // namespace vexel
