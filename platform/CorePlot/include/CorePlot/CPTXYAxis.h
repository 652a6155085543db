#pragma once

#include <optional>

#include <CorePlot/CPTAxis.h>
#include <CorePlot/CPTConstraints.h>

namespace vexel {

/// An axis of an XY graph, which crosses the other coordinate at one place.
class CPTXYAxis : public CPTAxis {
 public:
  /// Where the axis line crosses the other coordinate, in plot-space units; default 0. A place
  /// outside the visible range puts it at the nearer edge of the plot area.
  double orthogonalPosition() const { return orthogonalPosition_; }
  void setOrthogonalPosition(double position);

  /// Pins the axis line to the plot area instead and wins over orthogonalPosition. Absent by
  /// default.
  const std::optional<CPTConstraints>& axisConstraints() const { return axisConstraints_; }
  void setAxisConstraints(std::optional<CPTConstraints> constraints);

 private:
  double orthogonalPosition_ = 0;
  std::optional<CPTConstraints> axisConstraints_;
};

}  // namespace vexel
