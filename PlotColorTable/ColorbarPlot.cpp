#include <PlotColorTable/ColorbarPlot.h>

#include <initializer_list>

#include <Foundation/FatalError.h>

#include "PlotColorTable.h"
#include "StripImage.h"

namespace vexel {

namespace {

constexpr CGFloat kColorbarWidth = 100.0;
// In the orders of Vexel::format.
constexpr std::initializer_list<CGFloat> kGraphPadding = {0, 0, 0, 0};
constexpr std::initializer_list<CGFloat> kFigureFramePadding = {70, 20, 20, 50};
constexpr std::initializer_list<CGFloat> kColorbarFramePadding = {50, 20, 20, 50};
constexpr std::initializer_list<double> kAbscissaRange = {0.0, 1.0};
// The far axes stand inside the plot area by this part of the y range.
constexpr double kFarAxisInset = 1e-6;

constexpr auto kSizable = NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable;

CGFloat colorbarWidth(ColorbarPlot& plot) {
  return plot.symbolColorCode().hasColorBar() ? kColorbarWidth : 0;
}

CGRect figureFrame(CGSize host, CGFloat barWidth) {
  return CGRect::make(0, 0, host.width - barWidth, host.height);
}

CGRect colorbarFrame(CGSize host, CGFloat barWidth) {
  return CGRect::make(host.width - barWidth, 0, barWidth, host.height);
}

void remove(std::shared_ptr<CPTGraphHostingView>& view) {
  if (view) view->setHostedGraph(nullptr);
  if (view) view->removeFromSuperview();
  view = nullptr;
}

CPTXYAxis& required(const std::shared_ptr<CPTAxis>& axis) {
  auto* xyAxis = dynamic_cast<CPTXYAxis*>(axis.get());
  if (!xyAxis) fatalError("ColorbarPlot.createColorbar: an axis is missing");
  return *xyAxis;
}

XAxisArguments abscissa(bool upperAxis) {
  return {
      .xRange = std::vector(kAbscissaRange),
      .gridLines = true,
      .noLabels = true,
      .tickMarks = false,
      .timeAxis = false,
      .upperAxis = upperAxis,
      .onNewPlotSpace = false,
      .separateLayers = false,
  };
}

YAxisArguments<double> valueAxis(const ColorBarDefinition& definition) {
  return {
      .title = definition.title,
      .yRange = definition.range,
      .yScale = 1.0,
      .formatter = definition.formatter,
      .gridLines = false,
      .minorGridLines = false,
      .noLabels = false,
      .tickMarks = true,
      .rightAxis = false,
  };
}

YAxisArguments<double> rightAxis(const ColorBarDefinition& definition) {
  return {
      .yRange = definition.range,
      .yScale = 1.0,
      .gridLines = true,
      .minorGridLines = false,
      .noLabels = false,
      .tickMarks = false,
      .rightAxis = true,
  };
}

}  // namespace

void ColorbarPlot::setViews() {
  hostingViews() = {};
  graphs() = {};
  remove(colorbarView());
  remove(figureView());

  const auto host = plotView();
  if (!host) return;
  host->setAutoresizingMask(kSizable);
  host->setAutoresizesSubviews(true);
  const CGSize size = host->bounds().size;
  const CGFloat width = colorbarWidth(*this);
  figureView() = std::make_shared<CPTGraphHostingView>(figureFrame(size, width));
  if (symbolColorCode().hasColorBar())
    colorbarView() = std::make_shared<CPTGraphHostingView>(colorbarFrame(size, width));

  for (const auto& view : {figureView(), colorbarView()}) {
    if (!view) continue;
    view->setAutoresizesSubviews(true);
    view->setAutoresizingMask(kSizable);
    host->addSubview(view);
    hostingViews().push_back(view);
  }
}

void ColorbarPlot::formatColorBarPlotViews() {
  formatFigureView();
  formatColorbarView();
}

void ColorbarPlot::formatFigureView() {
  figureGraph() = format(figureView(), kGraphPadding, kFigureFramePadding);
}

void ColorbarPlot::formatColorbarView() {
  // Deliberate: not for compositionType, whose bar has no view and so gets no graph.
  if (symbolColorCode().isNone()) return;
  colorbarGraph() = format(colorbarView(), kGraphPadding, kColorbarFramePadding);
}

void ColorbarPlot::set(CGSize frameSize) {
  const CGFloat width = colorbarWidth(*this);
  if (figureView()) figureView()->setFrame(figureFrame(frameSize, width));
  if (figureView()) figureView()->setNeedsDisplay(true);
  if (!symbolColorCode().hasColorBar() || !colorbarView()) return;
  colorbarView()->setFrame(colorbarFrame(frameSize, width));
  colorbarView()->setNeedsDisplay(true);
}

void ColorbarPlot::createColorbar(const ColorBarDefinition& definition) {
  const auto graph = colorbarGraph();
  if (!graph) return;
  const auto frame = graph->plotAreaFrame();
  const auto plotArea = frame ? frame->plotArea() : nullptr;
  if (!plotArea) return;
  const auto plotSpace = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  if (!plotSpace) return;
  if (definition.type == ColorBarDefinition::AxisType::discrete) return;

  CPTXYAxis& bottom = required(formatXAxis(graph, abscissa(false)));
  CPTXYAxis& top = required(formatXAxis(graph, abscissa(true)));
  CPTXYAxis& left = required(formatYAxis(graph, valueAxis(definition)));
  CPTXYAxis& right = required(formatYAxis(graph, rightAxis(definition)));

  const CPTPlotRange x = plotSpace->xRange();
  const CPTPlotRange y = plotSpace->yRange();
  const double inset = y.lengthDouble() * kFarAxisInset;
  bottom.setOrthogonalPosition(y.locationDouble());
  top.setOrthogonalPosition(y.locationDouble() + y.lengthDouble() - inset);
  left.setOrthogonalPosition(x.locationDouble());
  // Deliberate: this inset, too, is a part of the y range.
  right.setOrthogonalPosition(x.locationDouble() + x.lengthDouble() - inset);

  const bool isLogarithmic = definition.type == ColorBarDefinition::AxisType::log;
  plotSpace->setYScaleType(isLogarithmic ? CPTScaleTypeLog : CPTScaleTypeLinear);

  const PlotColorTable table(definition.colorTable.number(), definition.colorTable.family());
  const auto strip = stripImage(table);
  if (!strip) return;
  plotArea->setFill(CPTFill(CPTImage{.image = strip, .scale = 1.0, .tiled = false}));
}

}  // namespace vexel
