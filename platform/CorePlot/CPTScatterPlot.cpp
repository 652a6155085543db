#include <CorePlot/CPTScatterPlot.h>

#include <algorithm>
#include <array>
#include <iterator>

#include <Foundation/LargePages.h>
#include <Kernels/ScaleMap.h>

#include "SeriesLine.h"

namespace vexel {

CPTScatterPlot::CPTScatterPlot(CGRect frame) : CPTPlot(frame) {}

void CPTScatterPlot::setDataLineStyle(std::optional<CPTLineStyle> style) {
  if (dataLineStyle_ == style) return;
  dataLineStyle_ = std::move(style);
  setNeedsDisplay();
}

void CPTScatterPlot::setPlotSymbol(std::optional<CPTPlotSymbol> symbol) {
  if (plotSymbol_ == symbol) return;
  plotSymbol_ = std::move(symbol);
  setNeedsDisplay();
}

void CPTScatterPlot::setInterpolation(CPTScatterPlotInterpolation interpolation) {
  if (interpolation_ == interpolation) return;
  interpolation_ = interpolation;
  setNeedsDisplay();
}

std::size_t CPTScatterPlot::readData(CPTPlotDataSource& source, CPTRecordRange records) {
  const std::size_t kept = records.location;
  if (kept == 0) {
    records_ = RangeIndex();
    recordSymbols_.clear();
    recordColors_ = {};
  }
  const CPTNumericData x = readField(source, CPTScatterPlotFieldX, records, storedX_);
  const CPTNumericData y = readField(source, CPTScatterPlotFieldY, records, storedY_);
  if (!isAnsweredBy(source)) return 0;
  records_.extend(x, y);
  const std::size_t count = records_.count();
  const CPTRecordRange added{kept, count - std::min(kept, count)};
  // A list that has ended before goes on as it was: with the plot's own symbol.
  if (isAnsweredBy(source) && recordSymbols_.size() == kept)
    std::ranges::move(source.symbols(*this, added), std::back_inserter(recordSymbols_));
  if (isAnsweredBy(source) && recordColors_.size() == kept)
    recordColors_.append(source.symbolColors(*this, added));
  return count;
}

RangeIndex::Extremes CPTScatterPlot::extremes(CPTCoordinate coordinate, double floor) const {
  return coordinate == CPTCoordinate::X ? records_.xExtremes(floor) : records_.yExtremes(floor);
}

template <class Use>
void CPTScatterPlot::visitPoints(const CPTXYPlotSpace& space, CPTRecordRange records,
                                 Use&& use) const {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (!xScale.isDrawable() || !yScale.isDrawable()) return;
  const ScaleMap x(xScale, 1, 0);
  const ScaleMap y(yScale, 1, 0);
  std::size_t record = records.location;
  std::array<double, RangeIndex::kMostAtOnce> left, up;
  records_.visit(record, record + records.length,
                 [&](std::span<const double> px, std::span<const double> py) {
                   x(px, left.data());
                   y(py, up.data());
                   for (std::size_t i = 0; i < px.size(); ++i)
                     use(record++, CGPoint{left[i], up[i]});
                 });
}

void CPTScatterPlot::drawSeries(CGContext& context, const CPTXYPlotSpace& space) {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (dataLineStyle_ && xScale.isDrawable() && yScale.isDrawable())
    drawSeriesLine(context, {records_, xScale, yScale, interpolation_},
                   dataLineStyle_->strokeStyle());
  drawSymbols(context, space);
}

CGRect CPTScatterPlot::visibleCenters(const CPTPlotSymbol& symbol) const {
  const CGRect reach = symbol.reach();
  return CGRect::make(-reach.maxX(), -reach.maxY(), plotAreaSize().width + reach.size.width,
                      plotAreaSize().height + reach.size.height);
}

void CPTScatterPlot::drawSymbols(CGContext& context, const CPTXYPlotSpace& space) const {
  const std::size_t count = recordCount();
  const std::size_t withSymbol = std::min(recordSymbols_.size(), count);
  const std::size_t withColor = std::clamp(recordColors_.size(), withSymbol, count);
  drawRecordSymbols(context, space, withSymbol);
  if (!plotSymbol_) return;
  const CGRect visible = visibleCenters(*plotSymbol_);
  std::vector<CGPoint, LargePages<CGPoint>> centers;
  std::vector<std::uint32_t, LargePages<std::uint32_t>> colors;
  if (withColor > withSymbol) {
    centers.reserve(withColor - withSymbol);
    colors.reserve(withColor - withSymbol);
    const auto places = recordColors_.places();
    visitPoints(space, {withSymbol, withColor - withSymbol}, [&](std::size_t i, CGPoint point) {
      if (places[i] == CPTColorList::kNoColor || !visible.contains(point)) return;
      colors.push_back(places[i]);
      centers.push_back(point);
    });
    plotSymbol_->draw(context, recordColors_.palette(), colors, centers);
    centers.clear();
  }
  visitPoints(space, {withColor, count - withColor}, [&](std::size_t, CGPoint point) {
    if (visible.contains(point)) centers.push_back(point);
  });
  plotSymbol_->draw(context, centers);
}

void CPTScatterPlot::drawRecordSymbols(CGContext& context, const CPTXYPlotSpace& space,
                                       std::size_t count) const {
  // Neighbours with the same symbol are drawn in one call; what cannot be seen is left out.
  std::vector<CGPoint> centers;
  CGRect visible;
  const std::optional<CPTPlotSymbol>* current = nullptr;
  const auto flush = [&] {
    if (current && *current) (*current)->draw(context, centers);
    centers.clear();
  };
  visitPoints(space, {0, count}, [&](std::size_t i, CGPoint point) {
    const auto* symbol = &recordSymbols_[i];
    if (!current || *symbol != *current) {
      flush();
      current = symbol;
      visible = *symbol ? visibleCenters(**symbol) : CGRect{};
    }
    if (*symbol && visible.contains(point)) centers.push_back(point);
  });
  flush();
}

std::vector<CPTPlot::LabelPlace> CPTScatterPlot::labelPlaces(const CPTXYPlotSpace& space) const {
  const CGRect area{{}, plotAreaSize()};
  std::vector<LabelPlace> places;
  visitPoints(space, {0, recordCount()}, [&](std::size_t i, CGPoint point) {
    if (area.contains(point)) places.push_back({i, records_.y(i), point, {0, 1}});
  });
  return places;
}

}  // namespace vexel
