#include <CorePlot/CPTAxisSet.h>

namespace vexel {

void CPTAxisSet::setAxes(std::vector<std::shared_ptr<CPTAxis>> axes) {
  std::erase(axes, nullptr);
  for (const auto& axis : axes_) axis->removeFromSuperlayer();
  axes_ = std::move(axes);
  for (const auto& axis : axes_) addSublayer(axis);
  setNeedsDisplay();
}

}  // namespace vexel
