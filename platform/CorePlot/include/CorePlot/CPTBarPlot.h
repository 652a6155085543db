#pragma once

#include <CorePlot/CPTFill.h>
#include <CorePlot/CPTLineStyle.h>
#include <CorePlot/CPTPlot.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Bars from their base to their tip at a location along the other coordinate.
class VEXEL_API CPTBarPlot : public CPTPlot {
 public:
  /// In plot-space units.
  static constexpr double kDefaultBarWidth = 0.5;
  /// In points.
  static constexpr CGFloat kDefaultLabelOffset = 10;

  CPTBarPlot();

  /// In plot-space units, or in points when barWidthsAreInViewCoordinates; default 0.5.
  double barWidth() const { return barWidth_; }
  void setBarWidth(double width) { change(barWidth_, width); }
  /// Whether widths and offset are in points; default false.
  bool barWidthsAreInViewCoordinates() const { return barWidthsAreInViewCoordinates_; }
  void setBarWidthsAreInViewCoordinates(bool inView) {
    change(barWidthsAreInViewCoordinates_, inView);
  }
  /// Shifts every bar along its location, in the unit of the width; default 0.
  double barOffset() const { return barOffset_; }
  void setBarOffset(double offset) { change(barOffset_, offset); }
  /// Radius of the corners, in points; default 0.
  CGFloat barCornerRadius() const { return barCornerRadius_; }
  void setBarCornerRadius(CGFloat points) { change(barCornerRadius_, points); }
  /// Where bars begin unless bases vary; default 0. On a log scale bars begin at the low edge of
  /// the plot area when their base is not above 0. A base that is NaN gives no bar.
  double baseValue() const { return baseValue_; }
  void setBaseValue(double value) { change(baseValue_, value); }
  /// True: the data source says where each bar begins. Default false.
  bool barBasesVary() const { return barBasesVary_; }
  void setBarBasesVary(bool vary);
  /// True: bars lie, their locations on the y axis. Default false.
  bool barsAreHorizontal() const { return barsAreHorizontal_; }
  void setBarsAreHorizontal(bool horizontal) { change(barsAreHorizontal_, horizontal); }

  /// The outline; absent: none. Bars narrower than 3 points have none either, so that it does not
  /// hide them; without a fill they are filled in its colour. Of bars narrower than a 32nd of a
  /// pixel, in files a 16th of a point, those at one place are drawn as the longest of them.
  const std::optional<CPTLineStyle>& lineStyle() const { return lineStyle_; }
  void setLineStyle(std::optional<CPTLineStyle> style) { change(lineStyle_, std::move(style)); }
  /// Default black; absent: none.
  const std::optional<CPTFill>& fill() const { return fill_; }
  void setFill(std::optional<CPTFill> fill) { change(fill_, std::move(fill)); }

 protected:
  std::size_t readData(CPTPlotDataSource& source, CPTRecordRange records) override;
  RangeIndex::Extremes extremes(CPTCoordinate coordinate, double floor) const override;
  void drawSeries(CGContext& context, const CPTXYPlotSpace& space) override;
  std::vector<LabelPlace> labelPlaces(const CPTXYPlotSpace& space) const override;

 private:
  template <class T>
  void change(T& property, T value) {
    if (property == value) return;
    property = std::move(value);
    setNeedsDisplay();
  }

  class Geometry;
  template <class Visit>
  void forVisibleBars(const Geometry& geometry, CGFloat margin, const Visit& visit) const;

  CPTNumericData locations_;
  CPTNumericData tips_;
  CPTNumericData bases_;
  std::vector<double> storedLocations_;
  std::vector<double> storedTips_;
  std::vector<double> storedBases_;
  double barWidth_ = kDefaultBarWidth;
  bool barWidthsAreInViewCoordinates_ = false;
  double barOffset_ = 0;
  CGFloat barCornerRadius_ = 0;
  double baseValue_ = 0;
  bool barBasesVary_ = false;
  bool barsAreHorizontal_ = false;
  std::optional<CPTLineStyle> lineStyle_ = CPTLineStyle{};
  std::optional<CPTFill> fill_ = CPTFill(CPTColor::blackColor());
};

}  // namespace vexel
