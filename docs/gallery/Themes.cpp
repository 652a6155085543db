#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// The light of a variable star, folded with its period, and the curve through it.
class LightCurve : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const auto magnitude = [](double phase) {
      const double turn = 2 * std::numbers::pi * phase;
      return 4 + 0.35 * std::cos(turn + 0.6) + 0.12 * std::cos(2 * turn + 1.5);
    };
    Series curve{.name = "Curve", .x = {}, .y = {}};
    for (double phase = 0; phase <= 2; phase += 0.002) {
      curve.x.push_back(phase);
      curve.y.push_back(magnitude(phase));
    }
    Series measured{.name = "Measured", .x = {}, .y = {}};
    Random random(23);
    for (int i = 0; i < 160; ++i) {
      measured.x.push_back(2 * random.uniform());
      measured.y.push_back(magnitude(measured.x.back()) + 0.03 * random.normal());
    }
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("Phase", 0, 2));
    // Magnitudes grow downwards.
    formatYAxis(graph, vertical("Magnitude", 4.6, 3.4));
    addLine(graph, std::move(curve), kOrange, 2);
    addCircles(graph, std::move(measured), kBlue, 5);
  }
};

}  // namespace

Sheet themeBlack() {
  return sheetOf<LightCurve>({600, 280}, PlotTheme::black);
}
Sheet themeWhite() {
  return sheetOf<LightCurve>({600, 280}, PlotTheme::white);
}

}  // namespace gallery
