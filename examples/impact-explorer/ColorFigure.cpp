#include "ColorFigure.h"

#include "ImpactFigure.h"

namespace explorer {

using namespace vexel;

namespace {

constexpr float kSymbolSize = 5;
constexpr CGFloat kOutlineWidth = 0.25;
constexpr double kOutlineGray = 0.35;
// More would show outlines rather than colours.
constexpr std::size_t kMostOutlined = 30'000;
// Below the plot areas, where others label the time, in points.
constexpr CGFloat kBottomPadding = 14;

/// Keeps pale symbols apart from white paper.
CPTLineStyle outline() {
  CPTMutableLineStyle style;
  style.lineWidth = kOutlineWidth;
  style.lineColor = CPTColor(CGColor::genericGray(kOutlineGray));
  return style;
}

}  // namespace

void ColorFigure::setupPlot() {
  definition_ = coding_.definition();
  setViews();
  formatColorBarPlotViews();
  if (!figureGraph()) return;
  graphs() = {figureGraph(), colorbarGraph()};
  if (place_ == Place::above) makeRoomForBelow();
  addValueAxis(figureGraph(), band_);
  showTime(timeSpan({band_}));
  addSeries();
  createColorbar(definition_);
}

void ColorFigure::makeRoomForBelow() {
  figureGraph()->plotAreaFrame()->setPaddingLeft(ImpactFigure::kLeftPadding);
  for (const auto& graph : graphs()) graph->plotAreaFrame()->setPaddingBottom(kBottomPadding);
}

void ColorFigure::draw(const std::vector<double>&) {
  if (plotView()) plotView()->setNeedsDisplay(true);
}

void ColorFigure::refresh(const std::vector<double>& presented) {
  for (const auto& graph : graphs()) graph->reloadData();
  draw(presented);
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
  const bool isOutlined = theme() != PlotTheme::black && band_.times.size() <= kMostOutlined;
  symbol.setLineStyle(isOutlined ? std::optional(outline()) : std::nullopt);
  series->setPlotSymbol(symbol);
}

std::size_t ColorFigure::numberOfRecords(const CPTPlot& plot) {
  return isMarker(plot) ? TimeFigure::numberOfRecords(plot) : band_.times.size();
}

std::optional<CPTNumericData> ColorFigure::numbers(const CPTPlot& plot, unsigned field,
                                                   CPTRecordRange) {
  if (isMarker(plot)) return std::nullopt;
  return field == CPTScatterPlotFieldX ? band_.times : band_.values;
}

CPTColorList ColorFigure::symbolColors(const CPTScatterPlot& plot, CPTRecordRange) {
  return isMarker(plot) ? CPTColorList() : definition_.colors;
}

}  // namespace explorer
