// Plots of any kind that show any data in any range, and data that change between two displays.

#include <CorePlot/CPTBarPlot.h>
#include <CorePlot/CPTDump.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYGraph.h>
#include <Foundation/NSNumberFormatter.h>

#include <cmath>
#include <cstdint>

#include "Drawing.h"
#include "FuzzSource.h"

namespace {

using namespace vexel;

constexpr std::size_t kMostSteps = 12;

void style(CPTScatterPlot& plot, FuzzInput& input) {
  plot.setDataLineStyle(maybeLineStyle(input));
  plot.setInterpolation(
      input.oneOf({CPTScatterPlotInterpolation::linear, CPTScatterPlotInterpolation::stepped,
                   CPTScatterPlotInterpolation::histogram}));
  if (input.flag()) plot.setPlotSymbol(anySymbol(input));
}

void style(CPTBarPlot& plot, FuzzInput& input) {
  plot.setBarWidth(input.number());
  plot.setBarWidthsAreInViewCoordinates(input.flag());
  plot.setBarOffset(input.number());
  plot.setBarCornerRadius(input.number());
  plot.setBaseValue(input.number());
  plot.setBarBasesVary(input.flag());
  plot.setBarsAreHorizontal(input.flag());
  plot.setLineStyle(maybeLineStyle(input));
  if (input.flag()) plot.setFill(CPTFill(anyColor(input)));
}

void setLabels(CPTPlot& plot, FuzzInput& input) {
  if (input.choice(4) != 0) return;
  plot.setLabelFormatter(std::make_shared<NSNumberFormatter>());
  plot.setLabelTextStyle(anyTextStyle(input));
  plot.setLabelOffset(input.number());
  plot.setLabelRotation(input.number());
}

std::shared_ptr<CPTPlot> anyPlot(FuzzInput& input) {
  if (input.choice(3) != 0) {
    const auto plot = std::make_shared<CPTScatterPlot>();
    style(*plot, input);
    return plot;
  }
  const auto plot = std::make_shared<CPTBarPlot>();
  style(*plot, input);
  return plot;
}

void checkSpan(CPTPlot& plot, CPTCoordinate coordinate) {
  if (const auto range = plot.plotRangeForCoordinate(coordinate))
    require(std::isfinite(range->locationDouble()) && std::isfinite(range->lengthDouble()) &&
                range->lengthDouble() >= 0,
            "records span a finite range");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect{{}, figureSize(input)});
  const auto graph = std::make_shared<CPTXYGraph>();
  graph->plotAreaFrame()->setPadding(input.byte() / 8.0);
  view->setHostedGraph(graph);
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  setAnyRanges(*space, input);

  std::vector<std::unique_ptr<FuzzSource>> sources;
  const auto addPlot = [&] {
    const auto plot = anyPlot(input);
    setLabels(*plot, input);
    if (sources.empty() || input.flag()) sources.push_back(std::make_unique<FuzzSource>(input));
    plot->setDataSource(sources.back().get());
    graph->addPlot(plot);
  };
  addPlot();
  drawEverywhere(*view, input);

  for (std::size_t step = 0; step < kMostSteps && !input.isAtEnd(); ++step) {
    switch (input.choice(9)) {
      case 0:
        if (graph->allPlots().size() < 3) addPlot();
        break;
      case 1:
        sources.back()->replace(input);
        graph->reloadData();
        break;
      case 2: {
        // Now and then other data are passed off as more of the same.
        if (input.choice(4) == 0)
          sources.back()->replace(input);
        else
          sources.back()->extend(input);
        for (const auto& plot : graph->allPlots())
          plot->insertData(input.flag() ? plot->recordCount() : input.byte(), 1 + input.byte());
        break;
      }
      case 3:
        setAnyRanges(*space, input);
        break;
      case 4:
        space->scaleToFitPlots(graph->allPlots());
        break;
      case 5:
        view->setFrameSize(figureSize(input));
        break;
      case 6:
        if (!graph->allPlots().empty()) graph->removePlot(*graph->allPlots().front());
        break;
      case 7:
        if (sources.size() > 1) sources.pop_back();
        break;
      default:
        for (const auto& plot : graph->allPlots()) {
          setLabels(*plot, input);
          if (auto* line = dynamic_cast<CPTScatterPlot*>(plot.get())) style(*line, input);
          if (auto* bars = dynamic_cast<CPTBarPlot*>(plot.get())) style(*bars, input);
        }
    }
    drawEverywhere(*view, input);
  }
  for (const auto& plot : graph->allPlots()) {
    checkSpan(*plot, CPTCoordinate::X);
    checkSpan(*plot, CPTCoordinate::Y);
  }
  dump(*graph);
  return 0;
}
