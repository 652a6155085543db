#include <VexelWithMarkers/VexelWithMarkers.h>

#include <CocoaLumberjack/DDLog.h>
#include <Foundation/FatalError.h>
#include <Foundation/NSNumber.h>

#include "QuarterTurn.h"

namespace vexel {

namespace {

constexpr float kLineWidth = 1;
constexpr float kCircleSize = 6;
constexpr float kLabelOffset = 5;

// Readers of logs search for this place, so it stays when the code moves.
constexpr std::uint32_t kLoggedLine = 161;

enum class Axis : std::size_t { x = 0, y = 1 };

/// The coordinate under the pointer; absent when the graph cannot tell.
std::optional<NSNumber> coordinate(Axis axis, const NSEvent& event, const CPTXYGraph& graph) {
  const auto space = graph.defaultPlotSpace();
  const auto point = space ? space->plotPointForEvent(event) : std::nullopt;
  if (!point) return std::nullopt;
  const auto element = static_cast<std::size_t>(axis);
  if (point->size() <= element) fatalError("VexelWithMarkers: the plot point is too short");
  return NSNumber((*point)[element]);
}

template <class Number>
Number bound(const std::vector<Number>& range, std::size_t element) {
  if (range.size() <= element)
    fatalError(
        "VexelWithMarkers: the range of a marker is too short: auxiliaryValues of a vertical one, "
        "yRange of a horizontal one");
  return range[element];
}

/// Stores a position and brings it between the ends of the range. The upper end is compared with
/// what the adopter made of the position.
template <class Number>
void store(Number value, Number& (VexelWithMarkers::*position)(), VexelWithMarkers& plot,
           const std::vector<Number>& range, Number scale) {
  (plot.*position)() = value;
  if (scale * bound(range, 0) > value)
    (plot.*position)() = scale * bound(range, 0);
  else if ((plot.*position)() > scale * bound(range, 1))
    (plot.*position)() = scale * bound(range, 1);
}

void storeX(double x, double& (VexelWithMarkers::*position)(), VexelWithMarkers& plot) {
  store(x, position, plot, plot.auxiliaryValues(), plot.xUnitScale());
}

void addVerticalSeries(const char* identifier, const std::shared_ptr<CPTXYGraph>& graph,
                       VexelWithMarkers& plot) {
  plot.addPlot(CPTColorPlotArguments{
      .to = graph,
      .identifiedBy = identifier,
      .color = plot.theme().plotCPTColor(),
      .lineWidth = kLineWidth,
      .circle = false,
      .circleSize = kCircleSize,
      .label = false,
      .labelOffset = kLabelOffset,
      .labelRotation = kQuarterTurn,
  });
}

void addHorizontalSeries(const char* identifier, const std::shared_ptr<CPTXYGraph>& graph,
                         VexelWithMarkers& plot) {
  plot.addPlot(PlotArguments{
      .to = graph,
      .identifiedBy = identifier,
      .lineWidth = kLineWidth,
      .circle = false,
      .circleSize = kCircleSize,
      .label = false,
      .labelOffset = kLabelOffset,
      .labelRotation = kQuarterTurn,
  });
}

/// Lets the series of a marker read its data again; false when the graph has none.
bool reloadSeries(const char* identifier, const CPTXYGraph& graph) {
  const auto series = graph.plotWithIdentifier(identifier);
  if (!series) return false;
  series->setDataNeedsReloading();
  series->reloadDataIfNeeded();
  return true;
}

void removeSeries(const char* identifier, const std::shared_ptr<CPTXYGraph>& graph) {
  if (graph) graph->removePlotWithIdentifier(identifier);
}

}  // namespace

void VexelWithMarkers::resetState() {
  Vexel::resetState();
  verticalMarkerX() = 0;
  horizontalMarkerY() = 0;
  permanentVerticalMarkerX() = 0;
  permanentHorizontalMarkerY() = 0;
}

void VexelWithMarkers::setVerticalMarker(const NSEvent& with,
                                         const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return;
  addVerticalSeries(kVerticalMarker, graph, *this);
  if (const auto x = coordinate(Axis::x, with, *graph))
    storeX(x->doubleValue(), &VexelWithMarkers::verticalMarkerX, *this);
}

void VexelWithMarkers::setVerticalMarker(double at, const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return;
  addVerticalSeries(kVerticalMarker, graph, *this);
  storeX(at, &VexelWithMarkers::verticalMarkerX, *this);
}

void VexelWithMarkers::updateVerticalMarker(const NSEvent& with,
                                            const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return;
  const auto x = coordinate(Axis::x, with, *graph);
  if (!x) return;
  storeX(x->doubleValue(), &VexelWithMarkers::verticalMarkerX, *this);
  if (reloadSeries(kVerticalMarker, *graph)) return;

  if (!includes(DDLog::dynamicLevel(), DDLogFlag::error)) return;
  const std::string function = "updateVerticalMarker(with:for:)";
  DDLog::sharedInstance().log({
      .message = "VexelWithMarkers." + function + ":" + std::to_string(kLoggedLine) +
                 " plot does not exist!",
      .flag = DDLogFlag::error,
      .file = "VexelWithMarkers.cpp",
      .function = function,
      .line = kLoggedLine,
  });
}

void VexelWithMarkers::removeVerticalMarker(const std::shared_ptr<CPTXYGraph>& graph) {
  removeSeries(kVerticalMarker, graph);
}

void VexelWithMarkers::setPermanentVerticalMarker(const NSEvent& with,
                                                  const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return;
  addVerticalSeries(kPermanentVerticalMarker, graph, *this);
  if (const auto x = coordinate(Axis::x, with, *graph))
    storeX(x->doubleValue(), &VexelWithMarkers::permanentVerticalMarkerX, *this);
}

void VexelWithMarkers::setPermanentVerticalMarker(double at,
                                                  const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return;
  addVerticalSeries(kPermanentVerticalMarker, graph, *this);
  storeX(at, &VexelWithMarkers::permanentVerticalMarkerX, *this);
}

void VexelWithMarkers::removePermanentVerticalMarker(const std::shared_ptr<CPTXYGraph>& graph) {
  removeSeries(kPermanentVerticalMarker, graph);
}

void VexelWithMarkers::setHorizontalMarker(const NSEvent& with,
                                           const std::shared_ptr<CPTXYGraph>& graph,
                                           const std::vector<float>& yRange, float yScale) {
  if (!graph) return;
  addHorizontalSeries(kHorizontalMarker, graph, *this);
  if (const auto y = coordinate(Axis::y, with, *graph))
    store(y->floatValue(), &VexelWithMarkers::horizontalMarkerY, *this, yRange, yScale);
}

void VexelWithMarkers::setHorizontalMarker(float at, const std::shared_ptr<CPTXYGraph>& graph,
                                           const std::vector<float>& yRange, float yScale) {
  if (!graph) return;
  addHorizontalSeries(kHorizontalMarker, graph, *this);
  store(at, &VexelWithMarkers::horizontalMarkerY, *this, yRange, yScale);
}

void VexelWithMarkers::updateHorizontalMarker(const NSEvent& with,
                                              const std::shared_ptr<CPTXYGraph>& graph,
                                              const std::vector<float>& yRange, float yScale) {
  if (!graph) return;
  const auto y = coordinate(Axis::y, with, *graph);
  if (!y) return;
  store(y->floatValue(), &VexelWithMarkers::horizontalMarkerY, *this, yRange, yScale);
  reloadSeries(kHorizontalMarker, *graph);
}

void VexelWithMarkers::removeHorizontalMarker(const std::shared_ptr<CPTXYGraph>& graph) {
  removeSeries(kHorizontalMarker, graph);
}

void VexelWithMarkers::setPermanentHorizontalMarker(float at,
                                                    const std::shared_ptr<CPTXYGraph>& graph,
                                                    const std::vector<float>& yRange,
                                                    float yScale) {
  if (!graph) return;
  addHorizontalSeries(kPermanentHorizontalMarker, graph, *this);
  store(at, &VexelWithMarkers::permanentHorizontalMarkerY, *this, yRange, yScale);
}

void VexelWithMarkers::removePermanentHorizontalMarker(const std::shared_ptr<CPTXYGraph>& graph) {
  removeSeries(kPermanentHorizontalMarker, graph);
}

}  // namespace vexel
