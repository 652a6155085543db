#include "ColorFigure.h"

namespace explorer {

using namespace vexel;

namespace {

constexpr float kTimeTitleOffset = 22;
constexpr float kValueTitleOffset = 46;
constexpr float kSymbolSize = 5;

}  // namespace

void ColorFigure::setupPlot() {
  definition_ = coding_.definition();
  setViews();
  formatColorBarPlotViews();
  if (!figureGraph()) return;
  graphs() = {figureGraph(), colorbarGraph()};
  addAxes();
  addSeries();
  createColorbar(definition_);
}

void ColorFigure::draw(const std::vector<double>&) {
  if (plotView()) plotView()->setNeedsDisplay(true);
}

void ColorFigure::refresh(const std::vector<double>& presented) {
  for (const auto& graph : graphs()) graph->reloadData();
  draw(presented);
}

void ColorFigure::addAxes() {
  const TimeSpan span = timeSpan({band_});
  const auto lowerEdge = CPTConstraints::constraintWithLowerOffset(0);
  formatXAxis(figureGraph(), {
                                 .title = "Julian date",
                                 .titleOffset = kTimeTitleOffset,
                                 .xRange = std::vector{span.start, span.end},
                                 .axisConstraints = lowerEdge,
                                 .gridLines = true,
                                 .noLabels = false,
                                 .tickMarks = true,
                                 .timeAxis = span.isInCalendar(),
                                 .upperAxis = false,
                                 .onNewPlotSpace = false,
                                 .separateLayers = false,
                             });
  formatYAxis(figureGraph(), {
                                 .title = band_.title,
                                 .titleOffset = kValueTitleOffset,
                                 .axisConstraints = lowerEdge,
                                 .yRange = std::vector{band_.lower, band_.upper},
                                 .yScale = 1.0,
                                 .gridLines = true,
                                 .minorGridLines = false,
                                 .noLabels = false,
                                 .tickMarks = true,
                                 .rightAxis = false,
                             });
  if (band_.logarithmic)
    std::dynamic_pointer_cast<CPTXYPlotSpace>(figureGraph()->defaultPlotSpace())
        ->setYScaleType(CPTScaleTypeLog);
}

void ColorFigure::addSeries() {
  const auto series = addPlot({
      .to = figureGraph(),
      .identifiedBy = band_.title,
      .color = theme().symbolLineCPTColor(),
      .lineWidth = 0.0f,
      .circle = true,
      .circleSize = kSymbolSize,
      .label = false,
      .labelOffset = 0.0f,
      .labelRotation = 0.0f,
  });
  auto symbol = *series->plotSymbol();
  symbol.setLineStyle(std::nullopt);
  series->setPlotSymbol(symbol);
}

std::size_t ColorFigure::numberOfRecords(const CPTPlot&) {
  return band_.times.size();
}

std::optional<CPTNumericData> ColorFigure::numbers(const CPTPlot&, unsigned field, CPTRecordRange) {
  return field == CPTScatterPlotFieldX ? band_.times : band_.values;
}

CPTColorList ColorFigure::symbolColors(const CPTScatterPlot&, CPTRecordRange) {
  return definition_.colors;
}

}  // namespace explorer
