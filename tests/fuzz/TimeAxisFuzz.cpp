// Time axes over any two dates, in any scale and of any size.

#include <CorePlot/CPTDump.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <Vexel/Adopter.h>

#include <cmath>
#include <cstdint>

#include "Drawing.h"
#include "FuzzStyles.h"
#include "TimeAxis.h"

namespace {

using namespace vexel;

class Figure : public Adopter<Vexel> {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

/// Mostly near the present. Others than these are no dates, which is a broken invariant.
double anyDate(FuzzInput& input) {
  const double date =
      input.choice(3) == 0 ? input.number() : 2451545 + input.raw<std::int32_t>() / 86400.0;
  return std::abs(date) < 0x1p31 ? date : 0;
}

void check(const TimeAxis& axis) {
  require(!axis.title.empty(), "a time axis has a title");
  constexpr std::size_t kYears = 9999 + 4712 + 1;
  require(axis.ticks.size() <= kYears, "ticks are capped");
  const auto isBehind = [](const auto& a, const auto& b) { return !(a.first < b.first); };
  require(std::ranges::adjacent_find(axis.ticks, isBehind) == axis.ticks.end(), "ticks ascend");
  for (const auto& [tick, text] : axis.ticks)
    require(std::isfinite(tick) && !text.empty(), "a tick has a place and a text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const double start = anyDate(input);
  const double end = input.flag() ? anyDate(input) : start + input.raw<std::int32_t>() / 1e6;
  if (!(std::abs(end) < 0x1p31)) return 0;
  check(timeAxis({start, end}));
  // The picture costs more than the ticks.
  if (input.choice(4) != 0) return 0;

  const auto view = std::make_shared<NSView>(CGRect{{}, figureSize(input)});
  const auto figure = makePlot<Figure>(view, PlotTheme::white);
  figure->setViews(1, 0, 0);
  const auto graph =
      figure->format(figure->hostingViews()[0], {0, 0, 0, 0}, {10, 10, 10, input.points()});
  XAxisArguments axis{.gridLines = input.flag(),
                      .noLabels = input.choice(8) == 0,
                      .tickMarks = input.choice(8) != 0,
                      .timeAxis = true,
                      .upperAxis = input.choice(4) == 0,
                      .onNewPlotSpace = input.choice(4) == 0,
                      .separateLayers = input.flag()};
  axis.xRange = {start, end};
  if (input.choice(4) == 0) axis.xScale = input.number();
  if (input.choice(4) == 0) axis.xMajorIntervalLength = input.number();
  figure->formatXAxis(graph, axis);
  drawEverywhere(*view, input);
  dump(*graph);
  return 0;
}
