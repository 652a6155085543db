#include <PlotColorTable/ColorbarPlot.h>

#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Dust grains by speed and size, coloured by their mass.
class Colours : public Adopter<ColorbarPlot>, public SeriesSource {
 public:
  SymbolColorCode symbolColorCode() override { return SymbolColorCode::grainMass; }

  void setupPlot() override {
    Series grains{.name = "Grains", .x = {}, .y = {}};
    std::vector<double> masses;
    Random random(5);
    for (int i = 0; i < 260; ++i) {
      const double radius = 0.3 * std::pow(10, 0.35 * random.normal());
      grains.x.push_back(18 * std::pow(10, 0.12 * random.normal()) / std::sqrt(radius / 0.3));
      grains.y.push_back(radius);
      masses.push_back(4.0 / 3 * std::numbers::pi * 2.5e-15 * std::pow(radius, 3));
    }
    definition_ = *symbolColorCode().getColors(masses, PlotCT::brewerSpectral);
    definition_.title = "Mass (kg)";

    setViews();
    formatColorBarPlotViews();
    formatXAxis(figureGraph(), horizontal("Speed (km/s)", 4, 100));
    formatYAxis(figureGraph(), vertical("Radius (µm)", 0.01, 10));
    const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(figureGraph()->defaultPlotSpace());
    space->setXScaleType(CPTScaleTypeLog);
    space->setYScaleType(CPTScaleTypeLog);
    addCircles(figureGraph(), std::move(grains), NSColor::whiteColor(), 6);
    createColorbar(definition_);
  }

  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange) override {
    return definition_.colors;
  }

 private:
  ColorBarDefinition definition_;
};

}  // namespace

Sheet colours() {
  return sheetOf<Colours>({600, 340});
}

}  // namespace gallery
