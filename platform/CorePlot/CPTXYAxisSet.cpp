#include <CorePlot/CPTXYAxisSet.h>

namespace vexel {

CPTXYAxisSet::CPTXYAxisSet() {
  std::vector<std::shared_ptr<CPTAxis>> pair;
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y}) {
    const auto axis = std::make_shared<CPTXYAxis>();
    axis->setCoordinate(coordinate);
    axis->setTickDirection(CPTSign::negative);
    pair.push_back(axis);
  }
  setAxes(std::move(pair));
}

std::shared_ptr<CPTXYAxis> CPTXYAxisSet::first(CPTCoordinate coordinate) const {
  for (const auto& axis : axes())
    if (axis->coordinate() == coordinate)
      if (auto xyAxis = std::dynamic_pointer_cast<CPTXYAxis>(axis)) return xyAxis;
  return nullptr;
}

}  // namespace vexel
