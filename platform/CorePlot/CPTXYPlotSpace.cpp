#include <CorePlot/CPTXYPlotSpace.h>

#include <cmath>

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

}  // namespace vexel
