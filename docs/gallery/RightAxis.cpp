#include <Foundation/NSNumberFormatter.h>

#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// Writes degrees Celsius in degrees Fahrenheit.
class Fahrenheit : public NSNumberFormatter {
 public:
  std::string string(double celsius) const override {
    return NSNumberFormatter::string(celsius * 9 / 5 + 32);
  }
};

/// The temperature of a year in two units.
class RightAxis : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    Series mean{.name = "Mean", .x = {}, .y = {}};
    for (int day = 0; day <= 365; ++day) {
      mean.x.push_back(day);
      mean.y.push_back(10 - 9.5 * std::cos(2 * std::numbers::pi * (day - 18) / 365));
    }
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 72, 48});
    formatXAxis(graph, horizontal("Day of the year", 0, 365));
    formatYAxis(graph, vertical("Temperature (°C)", -5, 25));
    YAxisArguments<double> right = vertical("Temperature (°F)", -5, 25);
    right.axisConstraints = std::nullopt;
    right.gridLines = false;
    right.formatter = std::make_shared<Fahrenheit>();
    right.rightAxis = true;
    formatYAxis(graph, right);
    addLine(graph, std::move(mean), kRed, 2);
  }
};

}  // namespace

Sheet rightAxis() {
  return sheetOf<RightAxis>({600, 300});
}

}  // namespace gallery
