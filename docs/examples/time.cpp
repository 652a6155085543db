#include <Astrel/EventTime.h>
#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cmath>

#include "Axes.h"

using namespace vexel;

/// The height of the tide at a gauge, as it is measured.
struct Tide : Adopter<Vexel> {
  std::vector<double> julianDays;
  std::vector<double> metres;

  void measure(double julianDay) {
    constexpr double kTurn = 2 * 3.14159265358979;
    julianDays.push_back(julianDay);
    metres.push_back(1.6 * std::cos(kTurn * julianDay / 0.5175) +
                     0.55 * std::cos(kTurn * julianDay / 0.5));
  }

  void setupPlot() override {
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48})};
    formatYAxis(graphs()[0], vertical("Height (m)", -2.5, 2.5));
    addPlot({.to = graphs()[0],
             .identifiedBy = "Height",
             .color = NSColor::colorWithRed(0.09, 0.50, 0.60),
             .lineWidth = 1.5f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }

  /// Shows the days from presented[0] to presented[1].
  void draw(const std::vector<double>& presented) override {
    XAxisArguments time = horizontal("", presented[0], presented[1]);
    time.timeAxis = true;
    formatXAxis(graphs()[0], time);
  }

  /// Takes in what was measured since the last time.
  void refresh(const std::vector<double>&) override {
    for (const auto& plot : graphs()[0]->allPlots())
      plot->insertData(plot->recordCount(), julianDays.size() - plot->recordCount());
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return julianDays.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? julianDays : metres;
  }
};

int main() {
  const double start = EventTime::date2JulianYear(
      {.year = 2024, .month = 3, .day = 9, .hour = 0, .minute = 0, .second = 0, .nanosecond = 0});
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 600, 260));
  const auto tide = makePlot<Tide>(view, PlotTheme::white);
  constexpr int kPerDay = 240;

  for (int i = 0; i < kPerDay; ++i) tide->measure(start + 1.0 * i / kPerDay);
  tide->update({start, start + 1});  // calls draw with the two days
  exportFigure(*view, "tide-day.png", 1.5);

  for (int i = kPerDay; i < 15 * kPerDay; ++i) tide->measure(start + 1.0 * i / kPerDay);
  tide->update();  // calls refresh
  tide->update({start, start + 15});
  exportFigure(*view, "tide-weeks.png", 1.5);
}
