#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <Vexel/Adopter.h>
#include <VexelWithMarkers/VexelWithMarkers.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace vexel {
namespace {

constexpr CGSize kSize{1600, 1000};
constexpr int kLeft = 200;
constexpr int kRight = 1400;

/// A line of many points and the vertical marker.
class LinePlot : public Adopter<VexelWithMarkers> {
 public:
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

  std::size_t numberOfRecords(const CPTPlot& plot) override {
    return plot.identifier() == kVerticalMarker ? 3 : x.size();
  }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange) override {
    if (plot.identifier() == kVerticalMarker) return std::nullopt;
    return CPTNumericData(field == CPTScatterPlotFieldX ? x : y);
  }
  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    constexpr double kAlong[] = {-2, 2, std::numeric_limits<double>::quiet_NaN()};
    return field == CPTScatterPlotFieldX ? verticalMarkerX() : kAlong[record];
  }

  std::vector<double> x, y;
};

/// A window as its host sees it, with pixels that stay.
struct Shown {
  explicit Shown(std::size_t points) {
    for (std::size_t i = 0; i < points; ++i) {
      plot.x.push_back(static_cast<double>(i) / static_cast<double>(points));
      plot.y.push_back(0.6 * std::sin(12 * plot.x.back()) + 0.1 * std::sin(90 * plot.x.back()));
    }
    const auto host = std::make_shared<NSView>(CGRect{{}, kSize});
    window->setContentView(host);
    plot.initPlot(host, PlotTheme::white);
    plot.auxiliaryValues() = {0, 1};
    plot.setViews(1, 0, 0);
    graph = plot.format(plot.hostingViews()[0], {0, 0, 0, 0}, {70, 30, 30, 60});
    plot.graphs().push_back(graph);
    plot.formatXAxis(graph, {.title = "Time",
                             .xRange = std::vector{0.0, 1.0},
                             .gridLines = true,
                             .noLabels = false,
                             .tickMarks = true,
                             .timeAxis = false,
                             .upperAxis = false,
                             .onNewPlotSpace = false,
                             .separateLayers = false});
    plot.formatYAxis(graph, {.title = "Signal",
                             .yRange = std::vector{-1.0, 1.0},
                             .yScale = 1.0,
                             .gridLines = true,
                             .minorGridLines = false,
                             .noLabels = false,
                             .tickMarks = true,
                             .rightAxis = false});
    graph->setTitle("A long line");
    plot.addPlot(PlotArguments{.to = graph,
                               .identifiedBy = "line",
                               .lineWidth = 1,
                               .circle = false,
                               .circleSize = 5,
                               .label = false,
                               .labelOffset = 0,
                               .labelRotation = 0});
    plot.setVerticalMarker(eventAt(kLeft), graph);
  }

  static NSEvent eventAt(int x) {
    return {.type = NSEventType::mouseMoved, .locationInWindow = {x + 0.5, 500}};
  }

  void repaint() {
    for (const CGRect& rect : window->dirtyRects()) window->displayRect(rect, *bitmap);
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(kSize);
  std::unique_ptr<CGBitmapContext> bitmap = CGBitmapContext::create(kSize, 1);
  LinePlot plot;
  std::shared_ptr<CPTXYGraph> graph;
};

/// From the event to the updated bitmap.
void moveMarker(benchmark::State& state) {
  Shown shown(static_cast<std::size_t>(state.range(0)));
  int x = kLeft;
  const auto move = [&] {
    x = x < kRight ? x + 1 : kLeft;
    shown.plot.updateVerticalMarker(Shown::eventAt(x), shown.graph);
    shown.repaint();
  };
  shown.repaint();
  move();
  for (auto _ : state) move();
  benchmark::DoNotOptimize(shown.bitmap->pixels().data());
}

BENCHMARK(moveMarker)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

/// What a move cannot do without: the same columns read and written once.
void touchColumns(benchmark::State& state) {
  const std::size_t width = 1600, height = 1000;
  std::vector<std::uint32_t> kept(width * height, 0xffffffff), shown(width * height);
  std::size_t x = kLeft;
  for (auto _ : state) {
    x = x < kRight ? x + 1 : kLeft;
    for (std::size_t row = 0; row < height; ++row)
      std::copy_n(&kept[row * width + x], 5, &shown[row * width + x]);
    benchmark::DoNotOptimize(shown.data());
  }
}

BENCHMARK(touchColumns)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vexel
