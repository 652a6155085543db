#pragma once

#include <CorePlot/CPTLineStyle.h>
#include <CorePlot/CPTPlot.h>
#include <CorePlot/CPTPlotSymbol.h>

namespace vexel {

enum class CPTScatterPlotInterpolation {
  linear,
  /// Each value holds until the next record.
  stepped,
  /// Steps half-way between two records.
  histogram,
};

/// Points joined by a line, marked by symbols, or both. A record without an x or y number breaks
/// the line.
class CPTScatterPlot : public CPTPlot {
 public:
  explicit CPTScatterPlot(CGRect frame = {});

  /// The line through the points; absent: none. It is joined and, where it ends, drawn as the
  /// style says, but its joins are round in any case: a miter would overshoot the data.
  const std::optional<CPTLineStyle>& dataLineStyle() const { return dataLineStyle_; }
  void setDataLineStyle(std::optional<CPTLineStyle> style);

  /// The symbol at every point; absent (the default): none.
  const std::optional<CPTPlotSymbol>& plotSymbol() const { return plotSymbol_; }
  void setPlotSymbol(std::optional<CPTPlotSymbol> symbol);

  CPTScatterPlotInterpolation interpolation() const { return interpolation_; }
  void setInterpolation(CPTScatterPlotInterpolation interpolation);

 protected:
  std::size_t readData(CPTPlotDataSource& source, std::size_t records) override;
  void drawSeries(CGContext& context, const CPTXYPlotSpace& space) override;
  std::vector<LabelPlace> labelPlaces(const CPTXYPlotSpace& space) const override;
  std::optional<std::vector<CGRect>> seriesPlaces(const CPTXYPlotSpace& space) const override;

 private:
  /// Where the records lie on the plot area; empty when the scales are not drawable.
  std::vector<CGPoint> viewPoints(const CPTXYPlotSpace& space) const;
  void drawLine(CGContext& context, std::span<const CGPoint> points) const;
  void drawSymbols(CGContext& context, std::span<const CGPoint> points) const;
  void drawRecordSymbols(CGContext& context, std::span<const CGPoint> points) const;
  void drawColoredSymbols(CGContext& context, const CPTPlotSymbol& symbol,
                          std::span<const std::uint32_t> colorOfPoint,
                          std::span<const CGPoint> points) const;
  CGRect visibleCenters(const CPTPlotSymbol& symbol) const;

  CPTNumericData x_;
  CPTNumericData y_;
  std::vector<double> storedX_;
  std::vector<double> storedY_;
  std::vector<std::optional<CPTPlotSymbol>> recordSymbols_;
  CPTColorList recordColors_;
  std::optional<CPTLineStyle> dataLineStyle_ = CPTLineStyle{};
  std::optional<CPTPlotSymbol> plotSymbol_;
  CPTScatterPlotInterpolation interpolation_ = CPTScatterPlotInterpolation::linear;
};

}  // namespace vexel
