#include "Figures.h"

#include <cmath>
#include <numbers>

namespace scenes {

using namespace vexel;

namespace {

constexpr CGFloat kTitleRoom = 26;
const NSColor kLineColor = NSColor::colorWithRed(20 / 255.0, 60 / 255.0, 160 / 255.0, 1);
constexpr float kCircleSize = 6;

/// A table of 256 colours: three cosines.
std::vector<CPTColor> palette() {
  std::vector<CPTColor> colors;
  for (int i = 0; i < 256; ++i) {
    const auto part = [i](double phase) {
      const double angle = 2 * std::numbers::pi * (i / 255.0 * 0.8 + phase);
      return std::round(127.5 + 110 * std::cos(angle)) / 255;
    };
    colors.push_back(CPTColor::colorWithComponents(part(0), part(0.33), part(0.67), 1));
  }
  return colors;
}

CPTPlotSymbol circle(double grey, std::optional<CPTFill> fill) {
  CPTPlotSymbol symbol = CPTPlotSymbol::ellipsePlotSymbol();
  symbol.setSize({kCircleSize, kCircleSize});
  symbol.setLineStyle(CPTLineStyle{
      .lineWidth = 0.75, .lineColor = CPTColor::colorWithComponents(grey, grey, grey, 1)});
  symbol.setFill(std::move(fill));
  return symbol;
}

}  // namespace

void Figure::addLine(std::size_t graph, const std::string& name, const Points& points) {
  series_[name] = &points;
  addPlot({.to = graphs()[graph],
           .identifiedBy = name,
           .color = std::optional(kLineColor),
           .lineWidth = 1.0f,
           .circle = false,
           .circleSize = 0.0f,
           .label = false,
           .labelOffset = 0.0f,
           .labelRotation = 0.0f});
}

void Figure::addCircles(std::size_t graph, const std::string& name, const Points& points) {
  series_[name] = &points;
  const auto plot = addPlot({.to = graphs()[graph],
                             .identifiedBy = name,
                             .lineWidth = 0.75f,
                             .circle = true,
                             .circleSize = kCircleSize,
                             .label = false,
                             .labelOffset = 0.0f,
                             .labelRotation = 0.0f});
  plot->setPlotSymbol(
      circle(0, CPTFill(CPTColor::colorWithComponents(220 / 255.0, 60 / 255.0, 40 / 255.0, 1))));
}

void Figure::addColoredCircles(std::size_t graph, const std::string& name,
                               const ColoredPoints& points) {
  colored_[name] = &points;
  addCircles(graph, name, points);
  const auto plot =
      std::dynamic_pointer_cast<CPTScatterPlot>(graphs()[graph]->plotWithIdentifier(name));
  plot->setPlotSymbol(circle(30 / 255.0, CPTFill(CPTColor::whiteColor())));
}

void Figure::addBars(std::size_t graph, const std::string& name, const Points& points) {
  series_[name] = &points;
  const auto plot = addBarPlot({.to = graphs()[graph],
                                .identifiedBy = name,
                                .barWidth = 4.0f,
                                .barBasesVary = false,
                                .lineColor = "black",
                                .lineWidth = 1.0f,
                                .barsAreHorizontal = false,
                                .labels = false,
                                .labelOffset = 0.0f,
                                .labelRotation = 0.0f});
  plot->setFill(CPTFill(CPTColor::colorWithComponents(170 / 255.0, 200 / 255.0, 240 / 255.0, 1)));
}

void Figure::setRanges(std::size_t graph, const CPTPlotRange& x, const CPTPlotRange& y) {
  setXRange(graph, x.locationDouble(), x.endDouble());
  formatYAxis(graphs()[graph], YAxisArguments<double>{
                                   .title = graphs()[graph]->axisSet()->axes()[1]->title(),
                                   .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                                   .yRange = std::vector{y.locationDouble(), y.endDouble()},
                                   .yScale = 1.0,
                                   .gridLines = true,
                                   .minorGridLines = false,
                                   .noLabels = false,
                                   .tickMarks = true,
                                   .rightAxis = false});
}

void Figure::setXRange(std::size_t graph, double from, double to) {
  formatXAxis(graphs()[graph], {.title = graphs()[graph]->axisSet()->axes()[0]->title(),
                                .xRange = std::vector{from, to},
                                .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                                .gridLines = true,
                                .noLabels = false,
                                .tickMarks = true,
                                .timeAxis = false,
                                .upperAxis = false,
                                .onNewPlotSpace = false,
                                .separateLayers = false});
}

void Figure::fitRanges(std::size_t graph) {
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graphs()[graph]->defaultPlotSpace());
  space->scaleToFitPlots(graphs()[graph]->allPlots());
  setRanges(graph, space->xRange(), space->yRange());
}

std::size_t Figure::numberOfRecords(const CPTPlot& plot) {
  return series_.at(plot.identifier())->x.size();
}

std::optional<CPTNumericData> Figure::numbers(const CPTPlot& plot, unsigned field, CPTRecordRange) {
  const Points& points = *series_.at(plot.identifier());
  return field == CPTScatterPlotFieldX ? points.x : points.y;
}

CPTColorList Figure::symbolColors(const CPTScatterPlot& plot, CPTRecordRange) {
  const auto found = colored_.find(plot.identifier());
  if (found == colored_.end()) return {};
  return CPTColorList(palette(), found->second->color);
}

Scene::Scene(const std::vector<std::string>& titles, const std::string& xTitle,
             const std::string& yTitle)
    : view(std::make_shared<PlotView>(CGRect{{}, kSize})),
      figure(makePlot<Figure>(view, PlotTheme::white)) {
  figure->setViews(static_cast<int>(titles.size()), 0, 0);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    const CGFloat top = titles[i].empty() ? 12 : kTitleRoom;
    figure->graphs().push_back(figure->format(figure->hostingViews()[titles.size() - 1 - i],
                                              {0, 0, 0, 0}, {70, top, 20, 55}));
    const auto& graph = figure->graphs().back();
    if (!titles[i].empty()) graph->setTitle(titles[i]);
    graph->axisSet()->axes()[0]->setTitle(xTitle);
    graph->axisSet()->axes()[1]->setTitle(yTitle);
  }
}

}  // namespace scenes
