#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <CorePlot/CPTAxisLabel.h>
#include <CorePlot/CPTDefinitions.h>
#include <CorePlot/CPTLayer.h>
#include <CorePlot/CPTLineStyle.h>
#include <CorePlot/CPTTextStyle.h>
#include <CorePlot/CPTXYPlotSpace.h>
#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// An axis of a graph: its line, ticks, grid lines, labels and title. What it looks like is set
/// here; it is placed and drawn when the graph is displayed.
class VEXEL_API CPTAxis : public CPTLayer {
 public:
  /// What an axis has unless set, in points.
  static constexpr CGFloat kDefaultMajorTickLength = 5;
  static constexpr CGFloat kDefaultMinorTickLength = 3;
  static constexpr CGFloat kDefaultLabelOffset = CPTAxisLabel::kDefaultOffset;
  static constexpr CGFloat kDefaultTitleOffset = 30;

  CPTAxis();

  /// The coordinate along the axis; default X.
  CPTCoordinate coordinate() const { return coordinate_; }
  void setCoordinate(CPTCoordinate coordinate) { change(coordinate_, coordinate); }

  /// The coordinates along which the axis lies; null: it is not drawn.
  const std::shared_ptr<CPTXYPlotSpace>& plotSpace() const { return plotSpace_; }
  void setPlotSpace(std::shared_ptr<CPTXYPlotSpace> space) { change(plotSpace_, std::move(space)); }

  /// How the axis gets its ticks and labels; default fixedInterval.
  CPTAxisLabelingPolicy labelingPolicy() const { return labelingPolicy_; }
  void setLabelingPolicy(CPTAxisLabelingPolicy policy) { change(labelingPolicy_, policy); }

  /// Distance of the ticks under the policy fixedInterval, in plot-space units; default 1. Not
  /// above 0, or not finite: no ticks.
  double majorIntervalLength() const { return majorIntervalLength_; }
  void setMajorIntervalLength(double length) { change(majorIntervalLength_, length); }
  /// A major tick stands here under the policy fixedInterval; default 0.
  double labelingOrigin() const { return labelingOrigin_; }
  void setLabelingOrigin(double origin) { change(labelingOrigin_, origin); }
  /// Default 1. A negative number is a fatal error.
  int minorTicksPerInterval() const { return minorTicksPerInterval_; }
  void setMinorTicksPerInterval(int ticks);
  /// About how many ticks the policies automatic and equalDivisions make; default 5.
  int preferredNumberOfMajorTicks() const { return preferredNumberOfMajorTicks_; }
  void setPreferredNumberOfMajorTicks(int ticks) { change(preferredNumberOfMajorTicks_, ticks); }

  /// Ticks set by hand, used by the policies none and locationsProvided; numbers that are not
  /// finite are left out.
  const std::set<double>& majorTickLocations() const { return majorTickLocations_; }
  void setMajorTickLocations(std::set<double> locations);
  const std::set<double>& minorTickLocations() const { return minorTickLocations_; }
  void setMinorTickLocations(std::set<double> locations);

  /// Labels set by hand, drawn under the policy none where they do not touch, except those for
  /// whose location the label formatter prints nothing; without a formatter all are drawn. Nulls
  /// are left out.
  const std::vector<std::shared_ptr<CPTAxisLabel>>& axisLabels() const { return axisLabels_; }
  void setAxisLabels(std::vector<std::shared_ptr<CPTAxisLabel>> labels);

  /// In points.
  CGFloat majorTickLength() const { return majorTickLength_; }
  void setMajorTickLength(CGFloat points) { change(majorTickLength_, points); }
  CGFloat minorTickLength() const { return minorTickLength_; }
  void setMinorTickLength(CGFloat points) { change(minorTickLength_, points); }

  /// The side of the axis line on which ticks stand; none (the default): half on either side.
  CPTSign tickDirection() const { return tickDirection_; }
  void setTickDirection(CPTSign sign) { change(tickDirection_, sign); }
  /// The side of labels and of the title; none (the default): that of the ticks, or below and to
  /// the left when they have none.
  CPTSign tickLabelDirection() const { return tickLabelDirection_; }
  void setTickLabelDirection(CPTSign sign) { change(tickLabelDirection_, sign); }
  CPTSign titleDirection() const { return titleDirection_; }
  void setTitleDirection(CPTSign sign) { change(titleDirection_, sign); }

  /// Absent: not drawn.
  const std::optional<CPTLineStyle>& axisLineStyle() const { return axisLineStyle_; }
  void setAxisLineStyle(std::optional<CPTLineStyle> s) { change(axisLineStyle_, std::move(s)); }
  const std::optional<CPTLineStyle>& majorTickLineStyle() const { return majorTickLineStyle_; }
  void setMajorTickLineStyle(std::optional<CPTLineStyle> s) {
    change(majorTickLineStyle_, std::move(s));
  }
  const std::optional<CPTLineStyle>& minorTickLineStyle() const { return minorTickLineStyle_; }
  void setMinorTickLineStyle(std::optional<CPTLineStyle> s) {
    change(minorTickLineStyle_, std::move(s));
  }
  /// Absent (the default): no grid.
  const std::optional<CPTLineStyle>& majorGridLineStyle() const { return majorGridLineStyle_; }
  void setMajorGridLineStyle(std::optional<CPTLineStyle> s) {
    change(majorGridLineStyle_, std::move(s));
  }
  const std::optional<CPTLineStyle>& minorGridLineStyle() const { return minorGridLineStyle_; }
  void setMinorGridLineStyle(std::optional<CPTLineStyle> s) {
    change(minorGridLineStyle_, std::move(s));
  }

  /// Style of the labels made by the axis. Absent: the default style.
  const std::optional<CPTTextStyle>& labelTextStyle() const { return labelTextStyle_; }
  void setLabelTextStyle(std::optional<CPTTextStyle> s) { change(labelTextStyle_, std::move(s)); }
  /// Null: the axis makes no labels. The default shows one fraction digit. A change inside the
  /// formatter shows once something else makes the axis need display.
  ///
  /// Labels tell the truth: where the formatter would write a tick other than 0 like 0, or two
  /// neighbouring ticks alike, the axis writes all of its labels as powers of ten (log scale) or in
  /// scientific notation instead, with one exponent, left out if 0, and as many digits as tell the
  /// ticks apart. On a log scale it does so as well where a number formatter would take more than
  /// five characters. Where a number formatter would round ticks so that steps read wrong (0, 2.5,
  /// 5 as 0, 2, 5), the labels get the fraction digits that they need.
  const std::shared_ptr<NSFormatter>& labelFormatter() const { return labelFormatter_; }
  void setLabelFormatter(std::shared_ptr<NSFormatter> f) { change(labelFormatter_, std::move(f)); }
  /// From the axis line, or the end of the ticks on that side, to the labels; in points.
  CGFloat labelOffset() const { return labelOffset_; }
  void setLabelOffset(CGFloat points) { change(labelOffset_, points); }
  /// In radians, counter-clockwise; default 0.
  CGFloat labelRotation() const { return labelRotation_; }
  void setLabelRotation(CGFloat radians) { change(labelRotation_, radians); }

  /// Absent or empty: none.
  const std::optional<std::string>& title() const { return title_; }
  void setTitle(std::optional<std::string> title) { change(title_, std::move(title)); }
  /// Absent: the default style.
  const std::optional<CPTTextStyle>& titleTextStyle() const { return titleTextStyle_; }
  void setTitleTextStyle(std::optional<CPTTextStyle> s) { change(titleTextStyle_, std::move(s)); }
  /// From the axis line to the near edge of the title, in points; the title keeps clear of the
  /// labels where they reach farther.
  CGFloat titleOffset() const { return titleOffset_; }
  void setTitleOffset(CGFloat points) { change(titleOffset_, points); }

  /// With true the grid lines lie on a layer of their own below all plots, where they lie
  /// without it as well. Default false.
  bool separateLayers() const { return separateLayers_; }
  void setSeparateLayers(bool separate) { change(separateLayers_, separate); }

 protected:
  void contentDidChange() override;

 private:
  template <class T>
  void change(T& property, T value) {
    if (property == value) return;
    property = std::move(value);
    setNeedsDisplay();
  }

  CPTCoordinate coordinate_ = CPTCoordinate::X;
  std::shared_ptr<CPTXYPlotSpace> plotSpace_;
  CPTAxisLabelingPolicy labelingPolicy_ = CPTAxisLabelingPolicy::fixedInterval;
  double majorIntervalLength_ = 1;
  double labelingOrigin_ = 0;
  int minorTicksPerInterval_ = 1;
  int preferredNumberOfMajorTicks_ = 5;
  std::set<double> majorTickLocations_;
  std::set<double> minorTickLocations_;
  std::vector<std::shared_ptr<CPTAxisLabel>> axisLabels_;
  CGFloat majorTickLength_ = kDefaultMajorTickLength;
  CGFloat minorTickLength_ = kDefaultMinorTickLength;
  CPTSign tickDirection_ = CPTSign::none;
  CPTSign tickLabelDirection_ = CPTSign::none;
  CPTSign titleDirection_ = CPTSign::none;
  std::optional<CPTLineStyle> axisLineStyle_ = CPTLineStyle{};
  std::optional<CPTLineStyle> majorTickLineStyle_ = CPTLineStyle{};
  std::optional<CPTLineStyle> minorTickLineStyle_ = CPTLineStyle{};
  std::optional<CPTLineStyle> majorGridLineStyle_;
  std::optional<CPTLineStyle> minorGridLineStyle_;
  std::optional<CPTTextStyle> labelTextStyle_ = CPTTextStyle{};
  std::shared_ptr<NSFormatter> labelFormatter_;
  CGFloat labelOffset_ = kDefaultLabelOffset;
  CGFloat labelRotation_ = 0;
  std::optional<std::string> title_;
  std::optional<CPTTextStyle> titleTextStyle_ = CPTTextStyle{};
  CGFloat titleOffset_ = kDefaultTitleOffset;
  bool separateLayers_ = false;
};

}  // namespace vexel
