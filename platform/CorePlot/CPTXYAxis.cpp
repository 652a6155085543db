#include <CorePlot/CPTXYAxis.h>

namespace vexel {

void CPTXYAxis::setOrthogonalPosition(double position) {
  if (orthogonalPosition_ == position) return;
  orthogonalPosition_ = position;
  setNeedsDisplay();
}

void CPTXYAxis::setAxisConstraints(std::optional<CPTConstraints> constraints) {
  if (axisConstraints_ == constraints) return;
  axisConstraints_ = constraints;
  setNeedsDisplay();
}

}  // namespace vexel
