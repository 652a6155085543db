#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Lying bars, named by labels that are set by hand.
class Bars : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const struct {
      const char* name;
      double share;
    } elements[] = {{"Magnesium", 2.3}, {"Calcium", 4.2},  {"Iron", 5.6},
                    {"Aluminium", 8.2}, {"Silicon", 28.2}, {"Oxygen", 46.1}};
    Series bars{.name = "Elements", .x = {}, .y = {}};
    std::vector<std::shared_ptr<CPTAxisLabel>> names;
    std::set<double> places;
    for (const auto& [name, share] : elements) {
      const double place = static_cast<double>(names.size());
      bars.x.push_back(place);
      bars.y.push_back(share);
      places.insert(place);
      names.push_back(std::make_shared<CPTAxisLabel>(name, CPTTextStyle{.fontSize = 13}));
      names.back()->setTickLocation(place);
      names.back()->setOffset(4);
    }

    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {96, 16, 24, 48});
    formatXAxis(graph, horizontal("Share of the crust's mass (%)", 0, 50));
    YAxisArguments<double> y = vertical("", -0.6, 5.6);
    y.title = std::nullopt;
    y.gridLines = false;
    y.tickLocations = places;
    y.axisLabels = names;
    formatYAxis(graph, y);
    addBars(graph, std::move(bars), kTeal, 0.7f, true);
  }
};

}  // namespace

Sheet bars() {
  return sheetOf<Bars>({600, 300});
}

}  // namespace gallery
