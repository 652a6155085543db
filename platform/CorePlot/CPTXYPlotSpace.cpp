#include <CorePlot/CPTXYPlotSpace.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include <CorePlot/CPTGraph.h>
#include <CorePlot/CPTGraphHostingView.h>

namespace vexel {

template <class T>
void CPTXYPlotSpace::change(T& property, const T& value) {
  if (property == value) return;
  property = value;
  rangeDidChange();
}

void CPTXYPlotSpace::setXRange(const CPTPlotRange& range) {
  change(xRange_, range);
}
void CPTXYPlotSpace::setYRange(const CPTPlotRange& range) {
  change(yRange_, range);
}
void CPTXYPlotSpace::setXScaleType(CPTScaleType type) {
  change(xScaleType_, type);
}
void CPTXYPlotSpace::setYScaleType(CPTScaleType type) {
  change(yScaleType_, type);
}

void CPTXYPlotSpace::scaleToFitPlots(std::span<const std::shared_ptr<CPTPlot>> plots) {
  setXRange(fittedRange(CPTCoordinate::X, plots));
  setYRange(fittedRange(CPTCoordinate::Y, plots));
}

CPTPlotRange CPTXYPlotSpace::fittedRange(CPTCoordinate coordinate,
                                         std::span<const std::shared_ptr<CPTPlot>> plots) const {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double floor = scaleType(coordinate) == CPTScaleType::log ? 0 : -kInfinity;
  double lowest = kInfinity;
  double highest = -kInfinity;
  for (const auto& plot : plots)
    if (const auto range = plot ? plot->plotRangeForCoordinate(coordinate, floor) : std::nullopt) {
      lowest = std::min(lowest, range->locationDouble());
      highest = std::max(highest, range->endDouble());
    }
  if (!(lowest < highest)) return range(coordinate);
  return {lowest, std::min(highest - lowest, std::numeric_limits<double>::max())};
}

AxisScale CPTXYPlotSpace::scale(CPTCoordinate coordinate, CGFloat extent) const {
  const CPTPlotRange& r = range(coordinate);
  return {r.locationDouble(), r.lengthDouble(), scaleType(coordinate) == CPTScaleType::log, extent};
}

std::optional<CGPoint> CPTXYPlotSpace::plotAreaViewPoint(double x, double y,
                                                         CGSize plotArea) const {
  const CGPoint point{scale(CPTCoordinate::X, plotArea.width).position(x),
                      scale(CPTCoordinate::Y, plotArea.height).position(y)};
  if (std::isnan(point.x) || std::isnan(point.y)) return std::nullopt;
  return point;
}

std::optional<std::vector<double>> CPTXYPlotSpace::plotPointForEvent(const NSEvent& event) const {
  const CPTGraph* const chart = graph();
  if (!chart || !chart->hostingView() || !chart->plotAreaFrame()) return std::nullopt;
  const auto area = chart->plotAreaFrame()->plotArea();
  if (!area) return std::nullopt;

  const CPTGraphHostingView& view = *chart->hostingView();
  const CGPoint inGraph =
      view.convertPointFromView(event.locationInWindow, nullptr) - view.bounds().origin;
  const CGPoint inArea = inGraph - chart->plotAreaFrame()->frame().origin - area->frame().origin;
  const CGSize size = area->frame().size;
  const double x = scale(CPTCoordinate::X, size.width).value(inArea.x);
  const double y = scale(CPTCoordinate::Y, size.height).value(inArea.y);
  if (std::isnan(x) || std::isnan(y)) return std::nullopt;
  return std::vector{x, y};
}

}  // namespace vexel
