#include <Astrel/EventTime.h>

#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// One signal over eight years, 100 days, a day, and an hour.
class TimeAxes : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const double start = EventTime::date2JulianYear(
        {.year = 2019, .month = 1, .day = 1, .hour = 0, .minute = 0, .second = 0, .nanosecond = 0});
    setViews(4, 0, 0);
    for (const double days : {1.0 / 24, 1.0, 100.0, 8 * 365.25}) {
      const auto graph = format(hostingViews()[graphs().size()], {0, 0, 0, 0}, {72, 10, 28, 48});
      graphs().push_back(graph);
      XAxisArguments time = horizontal("", start, start + days);
      time.timeAxis = true;
      formatXAxis(graph, time);
      formatYAxis(graph, vertical("Signal", -1, 1));
      Series signal{.name = std::to_string(days), .x = {}, .y = {}};
      for (int i = 0; i <= 1000; ++i) {
        const double share = i / 1000.0;
        signal.x.push_back(start + share * days);
        signal.y.push_back(0.8 * std::sin(20 * share) * std::cos(3 * share));
      }
      addLine(graph, std::move(signal), kTeal);
    }
  }
};

}  // namespace

Sheet timeAxes() {
  return sheetOf<TimeAxes>({600, 500});
}

}  // namespace gallery
