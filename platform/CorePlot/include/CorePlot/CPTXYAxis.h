#pragma once

#include <optional>

#include <CorePlot/CPTAxis.h>
#include <CorePlot/CPTConstraints.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// An axis of an XY graph, which crosses the other coordinate at one place.
class VEXEL_API CPTXYAxis : public CPTAxis {
 public:
  /// Where the axis line crosses the other coordinate, in plot-space units; default 0. A place
  /// outside the visible range puts it at the nearer edge of the plot area.
  ///
  /// Further axes know better places than the default one. Behind the first axis of its coordinate
  /// in the axis set, an axis whose labels (or ticks, when the labels have no side) are on the
  /// positive side stands at the right or upper edge, as long as neither a position nor constraints
  /// were set. And of axes at the same place with something to show on the same side, each stands
  /// outside the one before, so that no two are drawn onto each other.
  double orthogonalPosition() const { return orthogonalPosition_.value_or(0); }
  void setOrthogonalPosition(double position);

  /// Pins the axis line to the plot area instead and wins over orthogonalPosition. Absent by
  /// default.
  const std::optional<CPTConstraints>& axisConstraints() const { return axisConstraints_; }
  void setAxisConstraints(std::optional<CPTConstraints> constraints);

  /// Whether a position or constraints were set.
  bool isPinned() const { return orthogonalPosition_ || axisConstraints_; }

 private:
  std::optional<double> orthogonalPosition_;
  std::optional<CPTConstraints> axisConstraints_;
};

}  // namespace vexel
