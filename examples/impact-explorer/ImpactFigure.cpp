#include "ImpactFigure.h"

namespace explorer {

using namespace vexel;

namespace {

// Room of a band on the left, top, right and bottom of its plot area, and what the lowest band
// takes in addition for the labels and the title of the time axis, in points.
const std::vector<CGFloat> kBandPadding = {78, 9, 22, 9};
constexpr CGFloat kTopPadding = 10;
constexpr CGFloat kTimeAxisPadding = 44;
constexpr float kTimeTitleOffset = 22;
constexpr float kValueTitleOffset = 46;

// Julian days that the calendar of the time axis knows.
constexpr double kFirstDay = 0;
constexpr double kLastDay = 5373484;

constexpr float kLineWidth = 1.5;
constexpr float kSymbolSize = 3;
constexpr double kSymbolOpacity = 0.55;

NSColor bandColor(std::size_t index, double alpha) {
  static constexpr double kColors[][3] = {
      {0.12, 0.47, 0.71}, {0.89, 0.47, 0.10}, {0.20, 0.60, 0.26}, {0.80, 0.20, 0.24},
      {0.52, 0.39, 0.74}, {0.09, 0.63, 0.70}, {0.84, 0.42, 0.68}, {0.60, 0.55, 0.16},
  };
  const auto& c = kColors[index % std::size(kColors)];
  return NSColor::colorWithRed(c[0], c[1], c[2], alpha);
}

}  // namespace

void ImpactFigure::setupPlot() {
  setViews(static_cast<int>(bands_.size()), kTopPadding, kTimeAxisPadding);
  for (std::size_t i = 0; i < bands_.size(); ++i) addBand(i);
}

void ImpactFigure::draw(const std::vector<double>&) {
  if (plotView()) plotView()->setNeedsDisplay(true);
}

void ImpactFigure::refresh(const std::vector<double>& presented) {
  for (const auto& graph : graphs()) graph->reloadData();
  draw(presented);
}

void ImpactFigure::addBand(std::size_t index) {
  const std::size_t fromBottom = bands_.size() - 1 - index;
  std::vector<CGFloat> padding = kBandPadding;
  if (index == 0 && bands_.size() > 1) padding[1] += kTopPadding;
  if (fromBottom == 0) padding[3] += kTimeAxisPadding;
  const auto graph = format(hostingViews()[fromBottom], {0, 0, 0, 0}, padding);
  graphs().push_back(graph);
  addAxes(graph, bands_[index], fromBottom == 0);
  addSeries(graph, index);
}

void ImpactFigure::addAxes(const std::shared_ptr<CPTXYGraph>& graph, const Band& band,
                           bool isLowest) {
  const auto [start, end] = timeSpan(bands_);
  const auto lowerEdge = CPTConstraints::constraintWithLowerOffset(0);
  formatXAxis(graph, {
                         .title = isLowest ? std::optional("Julian date") : std::nullopt,
                         .titleOffset = kTimeTitleOffset,
                         .xRange = std::vector{start, end},
                         .axisConstraints = lowerEdge,
                         .gridLines = true,
                         .noLabels = !isLowest,
                         .tickMarks = true,
                         .timeAxis = start >= kFirstDay && end <= kLastDay,
                         .upperAxis = false,
                         .onNewPlotSpace = false,
                         .separateLayers = false,
                     });
  formatYAxis(graph, {
                         .title = band.title,
                         .titleOffset = kValueTitleOffset,
                         .axisConstraints = lowerEdge,
                         .yRange = std::vector{band.lower, band.upper},
                         .yScale = 1.0,
                         .gridLines = true,
                         .minorGridLines = false,
                         .noLabels = false,
                         .tickMarks = true,
                         .rightAxis = false,
                     });
  if (band.logarithmic)
    std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace())
        ->setYScaleType(CPTScaleTypeLog);
  // Only the lowest band says what time it is.
  if (!isLowest) graph->axisSet()->axes().front()->setTitle(std::nullopt);
}

void ImpactFigure::addSeries(const std::shared_ptr<CPTXYGraph>& graph, std::size_t index) {
  const Band& band = bands_[index];
  const std::string identifier = std::to_string(index);
  if (band.style == BandStyle::bars) {
    const auto bars = addBarPlot({
        .to = graph,
        .identifiedBy = identifier,
        .barWidth = static_cast<float>(band.barWidth),
        .barBasesVary = false,
        .lineWidth = 0.0f,
        .barsAreHorizontal = false,
        .labels = false,
        .labelOffset = 0.0f,
        .labelRotation = 0.0f,
    });
    bars->setLineStyle(std::nullopt);
    bars->setFill(CPTFill(CPTColor(bandColor(index, 1).cgColor())));
    return;
  }
  const bool isLine = band.style == BandStyle::line;
  addPlot({
      .to = graph,
      .identifiedBy = identifier,
      .color = bandColor(index, isLine ? 1 : kSymbolOpacity),
      .lineWidth = kLineWidth,
      .circle = !isLine,
      .circleSize = kSymbolSize,
      .circleFillColor = bandColor(index, kSymbolOpacity),
      .label = false,
      .labelOffset = 0.0f,
      .labelRotation = 0.0f,
  });
}

const Band& ImpactFigure::bandOf(const CPTPlot& plot) const {
  return bands_[std::stoul(plot.identifier())];
}

std::size_t ImpactFigure::numberOfRecords(const CPTPlot& plot) {
  return bandOf(plot).times.size();
}

std::optional<CPTNumericData> ImpactFigure::numbers(const CPTPlot& plot, unsigned field,
                                                    CPTRecordRange) {
  const Band& band = bandOf(plot);
  return field == CPTScatterPlotFieldX ? band.times : band.values;
}

}  // namespace explorer
