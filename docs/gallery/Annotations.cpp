#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// The radiation of black bodies; texts stand at their maxima and in a corner.
class Annotations : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("Wavelength (µm)", 0, 2.5));
    formatYAxis(graph, vertical("Radiance (10¹³ W/m³/sr)", 0, 4));
    const struct {
      double kelvin;
      NSColor color;
    } bodies[] = {{4000, kRed}, {5000, kOrange}, {6000, kBlue}};
    for (const auto& [kelvin, color] : bodies) {
      const auto radiance = [&](double micrometres) {
        return 1.19104e-16 / std::pow(micrometres * 1e-6, 5) /
               std::expm1(1.43878e-2 / (micrometres * 1e-6 * kelvin)) / 1e13;
      };
      Series body{.name = std::to_string(kelvin), .x = {}, .y = {}};
      for (double x = 0.1; x <= 2.5; x += 0.005) {
        body.x.push_back(x);
        body.y.push_back(radiance(x));
      }
      addLine(graph, std::move(body), color, 2);
      const double peak = 2897.77 / kelvin;
      NSAttributedString text(" T", {.color = color, .italic = true});
      text.append(" = " + std::to_string(static_cast<int>(kelvin)) + " K", {.color = color});
      addAnnotation(text, {.graph = graph,
                           .anchorPlotPoint = std::vector{static_cast<float>(peak),
                                                          static_cast<float>(radiance(peak))}});
    }
    NSAttributedString law("λ", {.fontSize = 15, .italic = true});
    law.append("max", {.fontSize = 15, .superscript = -1});
    law.append(" T", {.fontSize = 15, .italic = true});
    law.append(" = 2898 µm K", {.fontSize = 15});
    addAnnotation(law, {.graph = graph, .anchorPointNormal = std::vector{0.62, 0.78}});
  }
};

}  // namespace

Sheet annotations() {
  return sheetOf<Annotations>({600, 340});
}

}  // namespace gallery
