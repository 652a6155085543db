#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// The spectrum of a noise, and the slopes that it follows.
class Logarithms : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    Series power{.name = "Power", .x = {}, .y = {}};
    Series model{.name = "Model", .x = {}, .y = {}};
    Random random(3);
    for (double frequency = 1e-3; frequency <= 10; frequency *= 1.01) {
      const double expected = 1e-2 / (1 + std::pow(frequency / 0.05, 5.0 / 3)) + 2e-6;
      model.x.push_back(frequency);
      model.y.push_back(expected);
      power.x.push_back(frequency);
      power.y.push_back(expected * std::pow(10, 0.12 * random.normal()));
    }
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("Frequency (Hz)", 1e-3, 10));
    formatYAxis(graph, vertical("Power density (V²/Hz)", 1e-6, 1e-1));
    const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
    space->setXScaleType(CPTScaleTypeLog);
    space->setYScaleType(CPTScaleTypeLog);
    addLine(graph, std::move(power), kBlue, 1);
    addLine(graph, std::move(model), kRed, 2);
    NSAttributedString slope("f", {.fontSize = 13});
    slope.append("−5/3", {.fontSize = 13, .superscript = 1});
    addAnnotation(slope, {.graph = graph, .anchorPlotPoint = std::vector{0.5f, 6e-4f}});
  }
};

}  // namespace

Sheet logarithms() {
  return sheetOf<Logarithms>({600, 360});
}

}  // namespace gallery
