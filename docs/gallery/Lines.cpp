#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Bessel functions, each with its name beside its first maximum.
class Lines : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("x", 0, 20));
    formatYAxis(graph, vertical("Bessel functions", -0.6, 1.2));
    const struct {
      const char* name;
      NSColor color;
      std::vector<CGFloat> dashes;
      std::vector<float> labelAt;
    } functions[] = {{"0", kBlue, {}, {0.5f, 1.0f}},
                     {"1", kRed, {8, 3}, {2.2f, 0.59f}},
                     {"2", kGreen, {2, 2}, {3.6f, 0.48f}}};
    int order = 0;
    for (const auto& [name, color, dashes, labelAt] : functions) {
      Series bessel{.name = name, .x = {}, .y = {}};
      for (int i = 0; i <= 1000; ++i) {
        bessel.x.push_back(0.02 * i);
        bessel.y.push_back(std::cyl_bessel_j(order, bessel.x.back()));
      }
      ++order;
      const auto line = addLine(graph, std::move(bessel), color, 2);
      CPTLineStyle style = *line->dataLineStyle();
      style.dashPattern = dashes;
      line->setDataLineStyle(style);
      NSAttributedString label("J", {.fontSize = 14, .color = color, .italic = true});
      label.append(name, {.fontSize = 14, .color = color, .superscript = -1});
      addAnnotation(label, {.graph = graph, .anchorPlotPoint = labelAt});
    }
  }
};

}  // namespace

Sheet lines() {
  return sheetOf<Lines>({600, 320});
}

}  // namespace gallery
