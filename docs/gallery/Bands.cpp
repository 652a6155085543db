#include <Astrel/EventTime.h>

#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "Random.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Six quantities of the solar wind over five days, a shock wave among them.
class Bands : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const struct {
      const char* name;
      double quiet, shocked, noise, lower, upper;
      NSColor color;
    } quantities[] = {
        {"Bz (nT)", 0, -8, 1.5, -20, 20, kViolet},    {"|B| (nT)", 5, 16, 0.6, 0, 30, kBlue},
        {"T (MK)", 0.06, 0.34, 0.015, 0, 0.6, kRed},  {"n (1/cm³)", 5, 18, 0.8, 0, 40, kGreen},
        {"v (km/s)", 370, 640, 8, 200, 800, kOrange}, {"Dst (nT)", -5, -110, 4, -150, 50, kTeal}};
    const double start = EventTime::date2JulianYear({.year = 2023,
                                                     .month = 4,
                                                     .day = 21,
                                                     .hour = 0,
                                                     .minute = 0,
                                                     .second = 0,
                                                     .nanosecond = 0});
    constexpr int kDays = 5;
    constexpr int kPerDay = 24;
    setViews(static_cast<int>(std::size(quantities)), 10, 40);
    Random random(42);
    for (const auto& [name, quiet, shocked, noise, lower, upper, color] : quantities) {
      const bool lowest = graphs().empty();
      const bool highest = graphs().size() + 1 == std::size(quantities);
      const auto graph = format(hostingViews()[graphs().size()], {0, 0, 0, 0},
                                {76, highest ? 14.0 : 4.0, 24, lowest ? 44.0 : 4.0});
      graphs().push_back(graph);
      XAxisArguments time = horizontal("", start, start + kDays);
      time.timeAxis = true;
      time.noLabels = !lowest;
      formatXAxis(graph, time);
      if (!lowest) graph->axisSet()->axes()[0]->setTitle(std::nullopt);
      formatYAxis(graph, vertical(name, lower, upper));
      Series series{.name = name, .x = {}, .y = {}};
      for (int i = 0; i <= kDays * kPerDay; ++i) {
        const double day = 1.0 * i / kPerDay;
        const double storm = day < 1.6 ? 0 : std::exp(-(day - 1.6) / 0.9);
        series.x.push_back(start + day);
        series.y.push_back(quiet + (shocked - quiet) * storm + noise * random.normal());
      }
      addLine(graph, std::move(series), color, 1);
    }
  }
};

}  // namespace

Sheet bands() {
  return sheetOf<Bands>({600, 540});
}

}  // namespace gallery
