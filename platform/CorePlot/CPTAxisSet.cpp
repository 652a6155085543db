#include <CorePlot/CPTAxisSet.h>

#include <algorithm>

namespace vexel {

void CPTAxisSet::setAxes(std::vector<std::shared_ptr<CPTAxis>> axes) {
  std::erase(axes, nullptr);
  if (themeTextStyle_)
    for (const auto& axis : axes) {
      if (std::find(axes_.begin(), axes_.end(), axis) != axes_.end()) continue;
      if (axis->labelTextStyle() == CPTTextStyle{}) axis->setLabelTextStyle(themeTextStyle_);
      if (axis->titleTextStyle() == CPTTextStyle{}) axis->setTitleTextStyle(themeTextStyle_);
    }
  for (const auto& axis : axes_) axis->removeFromSuperlayer();
  axes_ = std::move(axes);
  for (const auto& axis : axes_) addSublayer(axis);
  setNeedsDisplay();
}

}  // namespace vexel
