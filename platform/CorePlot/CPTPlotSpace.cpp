#include <CorePlot/CPTPlotSpace.h>

#include <CorePlot/CPTGraph.h>

namespace vexel {

void CPTPlotSpace::rangeDidChange() {
  if (graph_) graph_->plotSpaceDidChange(*this);
}

}  // namespace vexel
