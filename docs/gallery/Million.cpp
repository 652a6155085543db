#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// A million records, and a thousand of them.
class Million : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    Series walk{.name = "Detail", .x = {}, .y = {}};
    Random random(1);
    double place = 0;
    for (int i = 0; i < 1'000'000; ++i) {
      place += random.uniform() - 0.5;
      walk.x.push_back(i * 1e-3);
      walk.y.push_back(place * 1e-1);
    }
    setViews(2, 0, 0);
    for (const bool isWhole : {false, true}) {
      const auto graph = format(hostingViews()[graphs().size()], {0, 0, 0, 0}, {76, 12, 24, 48});
      graphs().push_back(graph);
      formatXAxis(graph,
                  isWhole ? horizontal("Time (s)", 0, 1000) : horizontal("Time (s)", 400, 401));
      addLine(graph, walk, kBlue, 1);
      walk.name = "Whole";
    }
    formatYAxis(graphs()[1], vertical("Place (mm)", -30, 30));
    formatYAxis(graphs()[0], vertical("Place (mm)", 7, 9));
  }
};

}  // namespace

Sheet million() {
  return sheetOf<Million>({600, 440});
}

}  // namespace gallery
