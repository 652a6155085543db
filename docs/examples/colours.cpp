#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cmath>
#include <random>

#include "Axes.h"

using namespace vexel;

/// Grains that hit a detector: when, how fast, and the charge that they set free.
struct Impacts : Adopter<ColorbarPlot> {
  std::vector<double> days, charges, speeds;
  ColorBarDefinition definition;

  Impacts() {
    std::mt19937 engine(7);
    const auto random = [&] { return static_cast<double>(engine()) / 4294967296; };
    for (int i = 0; i < 250; ++i) {
      const double day = 100 * random();
      const double speed = 8 + 30 * std::pow(std::sin(day / 32), 2) + 6 * random();
      days.push_back(day);
      speeds.push_back(speed);
      charges.push_back(std::pow(10, 3 * random() - 1) * std::pow(speed / 20, 3));
    }
  }

  SymbolColorCode symbolColorCode() override { return SymbolColorCode::impactSpeed; }

  void setupPlot() override {
    definition = *symbolColorCode().getColors(speeds, PlotCT::idlRainbow);
    definition.title = "Speed (km/s)";
    setViews();
    formatColorBarPlotViews();
    formatXAxis(figureGraph(), horizontal("Time (days)", 0, 100));
    formatYAxis(figureGraph(), vertical("Charge (fC)", 1e-2, 1e3));
    const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(figureGraph()->defaultPlotSpace());
    space->setYScaleType(CPTScaleTypeLog);
    addPlot({.to = figureGraph(),
             .identifiedBy = "Impacts",
             .color = theme().symbolLineCPTColor(),
             .lineWidth = 0.0f,
             .circle = true,
             .circleSize = 5.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
    createColorbar(definition);
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return days.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? days : charges;
  }
  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange) override {
    return definition.colors;
  }

  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 600, 320));
  const auto impacts = makePlot<Impacts>(view, PlotTheme::white);
  exportFigure(*view, "colours.png", 1.5);
}
