#pragma once

#include <CorePlot/CPTLineStyle.h>
#include <CorePlot/CPTPlot.h>
#include <CorePlot/CPTPlotSymbol.h>
#include <Foundation/VexelAPI.h>
#include <Kernels/RangeIndex.h>

namespace vexel {

/// How a line goes from one record to the next.
enum class CPTScatterPlotInterpolation {
  linear,
  /// Each value holds until the next record.
  stepped,
  /// Steps half-way between two records.
  histogram,
};

/// Points joined by a line, marked by symbols, or both. A record without an x or y number breaks
/// the line.
class VEXEL_API CPTScatterPlot : public CPTPlot {
 public:
  /// A plot with a plain line and without symbols.
  explicit CPTScatterPlot(CGRect frame = {});

  /// The line through the points; absent: none. It is joined and, where it ends, drawn as the
  /// style says, but its joins are round in any case: a miter would overshoot the data. On bitmaps
  /// the ends of lines of more than 1,000 records and of those up to 3 pixels wide are round, too.
  /// Dashes that nobody could tell apart, of more than two sorted records per point of width, are
  /// left out.
  const std::optional<CPTLineStyle>& dataLineStyle() const { return dataLineStyle_; }
  void setDataLineStyle(std::optional<CPTLineStyle> style);

  /// The symbol at every point; absent (the default): none.
  const std::optional<CPTPlotSymbol>& plotSymbol() const { return plotSymbol_; }
  void setPlotSymbol(std::optional<CPTPlotSymbol> symbol);

  /// How the line goes from one record to the next; default linear.
  CPTScatterPlotInterpolation interpolation() const { return interpolation_; }
  void setInterpolation(CPTScatterPlotInterpolation interpolation);

 protected:
  std::size_t readData(CPTPlotDataSource& source, CPTRecordRange records) override;
  RangeIndex::Extremes extremes(CPTCoordinate coordinate, double floor) const override;
  void drawSeries(CGContext& context, const CPTXYPlotSpace& space) override;
  std::vector<LabelPlace> labelPlaces(const CPTXYPlotSpace& space) const override;
  std::optional<std::vector<CGRect>> seriesPlaces(const CPTXYPlotSpace& space) const override;

 private:
  /// Calls use(record, point) with where each of the records lies on the plot area; with none when
  /// the scales are not drawable.
  template <class Use>
  void visitPoints(const CPTXYPlotSpace& space, CPTRecordRange records, Use&& use) const;
  void drawSymbols(CGContext& context, const CPTXYPlotSpace& space) const;
  void drawRecordSymbols(CGContext& context, const CPTXYPlotSpace& space, std::size_t count) const;
  CGRect visibleCenters(const CPTPlotSymbol& symbol) const;

  RangeIndex records_;
  std::vector<double> storedX_;
  std::vector<double> storedY_;
  std::vector<std::optional<CPTPlotSymbol>> recordSymbols_;
  CPTColorList recordColors_;
  std::optional<CPTLineStyle> dataLineStyle_ = CPTLineStyle{};
  std::optional<CPTPlotSymbol> plotSymbol_;
  CPTScatterPlotInterpolation interpolation_ = CPTScatterPlotInterpolation::linear;
};

}  // namespace vexel
