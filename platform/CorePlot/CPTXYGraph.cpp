#include <CorePlot/CPTXYGraph.h>

namespace vexel {

CPTXYGraph::CPTXYGraph(CGRect frame) : CPTGraph(frame) {
  const auto space = std::make_shared<CPTXYPlotSpace>();
  const auto axes = std::make_shared<CPTXYAxisSet>();
  for (const auto& axis : axes->axes()) axis->setPlotSpace(space);
  addPlotSpace(space);
  setPlotAreaFrame(std::make_shared<CPTPlotAreaFrame>());
  setAxisSet(axes);
}

}  // namespace vexel
