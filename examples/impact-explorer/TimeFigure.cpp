#include "TimeFigure.h"

#include <VexelWithMarkers/PlotMarker.h>

#include <limits>

namespace explorer {

using namespace vexel;

namespace {

constexpr float kTimeTitleOffset = 22;
constexpr float kValueTitleOffset = 46;
constexpr double kAbsent = std::numeric_limits<double>::quiet_NaN();

std::shared_ptr<CPTXYPlotSpace> spaceOf(const CPTGraph& graph) {
  return std::dynamic_pointer_cast<CPTXYPlotSpace>(graph.defaultPlotSpace());
}

}  // namespace

void TimeFigure::showTime(const TimeSpan& span) {
  auxiliaryValues() = {span.start, span.end};
  for (const auto& graph : timeGraphs()) addTimeAxis(graph, span);
}

void TimeFigure::addTimeAxis(const std::shared_ptr<CPTXYGraph>& graph, const TimeSpan& span) {
  const bool labelled = isLabelled(*graph);
  formatXAxis(graph, {
                         .title = labelled ? std::optional("Julian date") : std::nullopt,
                         .titleOffset = kTimeTitleOffset,
                         .xRange = std::vector{span.start, span.end},
                         .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                         .gridLines = true,
                         .noLabels = !labelled,
                         .tickMarks = true,
                         .timeAxis = span.isInCalendar(),
                         .upperAxis = false,
                         .onNewPlotSpace = false,
                         .separateLayers = false,
                     });
  if (!labelled) graph->axisSet()->axes().front()->setTitle(std::nullopt);
}

void TimeFigure::addValueAxis(const std::shared_ptr<CPTXYGraph>& graph, const Band& band) {
  formatYAxis(graph, {
                         .title = band.title,
                         .titleOffset = kValueTitleOffset,
                         .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                         .yRange = std::vector{band.lower, band.upper},
                         .yScale = 1.0,
                         .gridLines = true,
                         .minorGridLines = false,
                         .noLabels = false,
                         .tickMarks = true,
                         .rightAxis = false,
                     });
  if (band.logarithmic) spaceOf(*graph)->setYScaleType(CPTScaleTypeLog);
}

void TimeFigure::moveMarker(const NSEvent& event) {
  for (const auto& graph : timeGraphs())
    if (hasMarker_)
      updateVerticalMarker(event, graph);
    else
      setVerticalMarker(event, graph);
  hasMarker_ = true;
}

void TimeFigure::hideMarker() {
  for (const auto& graph : timeGraphs()) removeVerticalMarker(graph);
  hasMarker_ = false;
}

std::optional<double> TimeFigure::markerTime() {
  if (!hasMarker_) return std::nullopt;
  return verticalMarkerX();
}

void TimeFigure::setPins(std::vector<double> times) {
  pins_ = std::move(times);
  for (const auto& graph : timeGraphs()) {
    removePermanentVerticalMarker(graph);
    if (!pins_.empty()) setPermanentVerticalMarker(pins_.back(), graph);
  }
}

std::optional<double> TimeFigure::timeAt(const NSEvent& event) {
  const auto all = timeGraphs();
  if (all.empty()) return std::nullopt;
  const auto point = all.front()->defaultPlotSpace()->plotPointForEvent(event);
  if (!point) return std::nullopt;
  return point->front();
}

double TimeFigure::daysPerPoint() {
  const auto all = timeGraphs();
  if (all.empty()) return 0;
  const double points = all.front()->plotAreaFrame()->plotArea()->frame().size.width;
  return spaceOf(*all.front())->xRange().lengthDouble() / points;
}

bool TimeFigure::isMarker(const CPTPlot& plot) {
  return plot.identifier() == kVerticalMarker || plot.identifier() == kPermanentVerticalMarker;
}

std::size_t TimeFigure::numberOfRecords(const CPTPlot& plot) {
  return plot.identifier() == kVerticalMarker ? 3 : 3 * pins_.size();
}

double TimeFigure::number(const CPTPlot& plot, unsigned field, std::size_t record) {
  const double time = plot.identifier() == kVerticalMarker ? verticalMarkerX() : pins_[record / 3];
  const PlotMarker marker(PlotMarker::Arguments{
      .type = PlotMarker::MarkerType::verticalLine,
      .x = time,
      .y = 0.0f,
      .xRange = std::vector<double>(),
      .yRange = std::vector<float>(),
      .rotate = false,
  });
  if (field == CPTScatterPlotFieldX) {
    const auto x = marker.lineX()[record % 3];
    return x ? x->doubleValue() : kAbsent;
  }
  const CPTPlotRange& values = spaceOf(*plot.graph())->yRange();
  return record % 3 == 0 ? values.locationDouble() : record % 3 == 1 ? values.endDouble() : kAbsent;
}

}  // namespace explorer
