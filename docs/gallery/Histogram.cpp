#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Residuals of a fit, and the normal distribution that they should have.
class Histogram : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    constexpr int kBins = 32;
    constexpr int kResiduals = 5000;
    constexpr double kWidth = 0.25;
    Series bins{.name = "Residuals", .x = {}, .y = std::vector<double>(kBins)};
    for (int i = 0; i < kBins; ++i) bins.x.push_back(kWidth * (i + 0.5) - 4);
    Random random(11);
    for (int i = 0; i < kResiduals; ++i) {
      const double bin = std::floor((random.normal() + 4) / kWidth);
      if (bin >= 0 && bin < kBins) ++bins.y[static_cast<std::size_t>(bin)];
    }
    Series normal{.name = "Normal", .x = {}, .y = {}};
    for (double x = -4; x <= 4; x += 0.02) {
      normal.x.push_back(x);
      normal.y.push_back(kResiduals * kWidth * std::exp(-x * x / 2) /
                         std::sqrt(2 * std::numbers::pi));
    }

    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("Residual (σ)", -4, 4));
    formatYAxis(graph, vertical("Count", 0, 600));
    addBars(graph, std::move(bins), NSColor::colorWithRed(0.70, 0.80, 0.90),
            static_cast<float>(kWidth));
    addLine(graph, std::move(normal), kRed, 2);
  }
};

}  // namespace

Sheet histogram() {
  return sheetOf<Histogram>({600, 320});
}

}  // namespace gallery
