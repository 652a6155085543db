#include <CorePlot/CPTAxisLabel.h>

#include <CorePlot/CPTAxis.h>

namespace vexel {

void CPTAxisLabel::change(double& property, double value) {
  if (property == value) return;
  property = value;
  if (axis_) axis_->setNeedsDisplay();
}

}  // namespace vexel
