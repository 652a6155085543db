#include <CorePlot/CPTScatterPlot.h>

#include <algorithm>
#include <iterator>

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
  records_.extend(readField(source, CPTScatterPlotFieldX, records, storedX_),
                  readField(source, CPTScatterPlotFieldY, records, storedY_));
  const std::size_t count = records_.count();
  const CPTRecordRange added{kept, count - std::min(kept, count)};
  // A list that has ended before goes on as it was: with the plot's own symbol.
  if (recordSymbols_.size() == kept)
    std::ranges::move(source.symbols(*this, added), std::back_inserter(recordSymbols_));
  if (recordColors_.size() == kept) recordColors_.append(source.symbolColors(*this, added));
  return count;
}

RangeIndex::Extremes CPTScatterPlot::extremes(CPTCoordinate coordinate, double floor) const {
  return coordinate == CPTCoordinate::X ? records_.xExtremes(floor) : records_.yExtremes(floor);
}

std::vector<CGPoint> CPTScatterPlot::viewPoints(const CPTXYPlotSpace& space) const {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (!xScale.isDrawable() || !yScale.isDrawable()) return {};
  const ScaleMap x(xScale, 1, 0);
  const ScaleMap y(yScale, 1, 0);
  std::vector<CGPoint> points;
  points.reserve(recordCount());
  records_.visit(0, recordCount(), [&](double px, double py) { points.push_back({x(px), y(py)}); });
  return points;
}

void CPTScatterPlot::drawSeries(CGContext& context, const CPTXYPlotSpace& space) {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (!xScale.isDrawable() || !yScale.isDrawable()) return;
  if (dataLineStyle_)
    drawSeriesLine(context, {records_, xScale, yScale, interpolation_},
                   dataLineStyle_->strokeStyle());
  if (plotSymbol_ || !recordSymbols_.empty()) drawSymbols(context, viewPoints(space));
}

CGRect CPTScatterPlot::visibleCenters(const CPTPlotSymbol& symbol) const {
  const CGRect reach = symbol.reach();
  return CGRect::make(-reach.maxX(), -reach.maxY(), plotAreaSize().width + reach.size.width,
                      plotAreaSize().height + reach.size.height);
}

void CPTScatterPlot::drawSymbols(CGContext& context, std::span<const CGPoint> points) const {
  const std::size_t withSymbol = std::min(recordSymbols_.size(), points.size());
  const std::size_t withColor = std::clamp(recordColors_.size(), withSymbol, points.size());
  drawRecordSymbols(context, points.first(withSymbol));
  if (!plotSymbol_) return;
  if (withColor > withSymbol)
    drawColoredSymbols(context, *plotSymbol_,
                       recordColors_.places().subspan(withSymbol, withColor - withSymbol),
                       points.subspan(withSymbol, withColor - withSymbol));
  std::vector<CGPoint> centers;
  const CGRect visible = visibleCenters(*plotSymbol_);
  std::ranges::copy_if(points.subspan(withColor), std::back_inserter(centers),
                       [&](const CGPoint& point) { return visible.contains(point); });
  plotSymbol_->draw(context, centers);
}

void CPTScatterPlot::drawRecordSymbols(CGContext& context, std::span<const CGPoint> points) const {
  // Neighbours with the same symbol are drawn in one call; what cannot be seen is left out.
  std::vector<CGPoint> centers;
  CGRect visible;
  const std::optional<CPTPlotSymbol>* current = nullptr;
  const auto flush = [&] {
    if (current && *current) (*current)->draw(context, centers);
    centers.clear();
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto* symbol = &recordSymbols_[i];
    if (!current || *symbol != *current) {
      flush();
      current = symbol;
      visible = *symbol ? visibleCenters(**symbol) : CGRect{};
    }
    if (*symbol && visible.contains(points[i])) centers.push_back(points[i]);
  }
  flush();
}

void CPTScatterPlot::drawColoredSymbols(CGContext& context, const CPTPlotSymbol& symbol,
                                        std::span<const std::uint32_t> colorOfPoint,
                                        std::span<const CGPoint> points) const {
  std::vector<std::uint32_t> colorOfCenter;
  std::vector<CGPoint> centers;
  const CGRect visible = visibleCenters(symbol);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (colorOfPoint[i] == CPTColorList::kNoColor || !visible.contains(points[i])) continue;
    colorOfCenter.push_back(colorOfPoint[i]);
    centers.push_back(points[i]);
  }
  symbol.draw(context, recordColors_.palette(), colorOfCenter, centers);
}

std::vector<CPTPlot::LabelPlace> CPTScatterPlot::labelPlaces(const CPTXYPlotSpace& space) const {
  const CGRect area{{}, plotAreaSize()};
  const std::vector<CGPoint> points = viewPoints(space);
  std::vector<LabelPlace> places;
  for (std::size_t i = 0; i < points.size(); ++i)
    if (area.contains(points[i])) places.push_back({i, records_.y(i), points[i], {0, 1}});
  return places;
}

}  // namespace vexel
