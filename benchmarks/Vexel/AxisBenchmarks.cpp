#include <Vexel/Adopter.h>
#include <benchmark/benchmark.h>

namespace vexel {
namespace {

constexpr double kStart = 2451545.3;

class BandPlot : public Adopter<Vexel> {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

/// Both axes of a band, the horizontal one over some days of calendar time.
void formatAxes(benchmark::State& state, double days) {
  const auto plot = makePlot<BandPlot>(nullptr, PlotTheme::white);
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 800, 200));
  for (auto _ : state) {
    plot->formatXAxis(graph, {
                                 .xRange = std::vector{kStart, kStart + days},
                                 .gridLines = true,
                                 .noLabels = false,
                                 .tickMarks = true,
                                 .timeAxis = true,
                                 .upperAxis = false,
                                 .onNewPlotSpace = false,
                                 .separateLayers = false,
                             });
    plot->formatYAxis(graph, {
                                 .title = "Impact charge [fC]",
                                 .yRange = std::vector{0.0, 20.0},
                                 .yScale = 1.0,
                                 .gridLines = true,
                                 .minorGridLines = false,
                                 .noLabels = false,
                                 .tickMarks = true,
                                 .rightAxis = false,
                             });
  }
}

BENCHMARK_CAPTURE(formatAxes, years, 3650.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(formatAxes, daysAcrossNewYear, 400.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(formatAxes, daysOfYear, 150.0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(formatAxes, hours, 0.5)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(formatAxes, minutes, 0.03)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vexel
