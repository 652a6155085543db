#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// The same records joined in three ways, one of them missing.
class Steps : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const double kMissing = std::numeric_limits<double>::quiet_NaN();
    const Series counts{.name = "",
                        .x = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10},
                        .y = {2, 5, 4, 7, 8, kMissing, 6, 6, 3, 4, 2}};
    const struct {
      const char* name;
      CPTScatterPlotInterpolation interpolation;
    } ways[] = {{"histogram", CPTScatterPlotInterpolation::histogram},
                {"stepped", CPTScatterPlotInterpolation::stepped},
                {"linear", CPTScatterPlotInterpolation::linear}};
    setViews(3, 0, 40);
    for (const auto& [name, interpolation] : ways) {
      const bool lowest = graphs().empty();
      const auto graph =
          format(hostingViews()[graphs().size()], {0, 0, 0, 0}, {72, 8, 20, lowest ? 48.0 : 8.0});
      graphs().push_back(graph);
      XAxisArguments x = horizontal(lowest ? "Hours" : "", -0.5, 10.5);
      x.noLabels = !lowest;
      formatXAxis(graph, x);
      formatYAxis(graph, vertical("Counts", 0, 10));
      Series line = counts;
      line.name = name;
      addLine(graph, line, kBlue, 2)->setInterpolation(interpolation);
      Series points = counts;
      points.name = std::string(name) + " points";
      addCircles(graph, points, kOrange, 6);
      addAnnotation(
          name, {.graph = graph, .anchorPointNormal = std::vector{0.84, 0.72}, .fontSize = 13.0f});
    }
  }
};

}  // namespace

Sheet steps() {
  return sheetOf<Steps>({600, 400});
}

}  // namespace gallery
