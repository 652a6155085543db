#include <CoreGraphics/CGBitmapContext.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYGraph.h>
#include <PlotColorTable/SymbolColorCode.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace vexel {
namespace {

/// Random points with a colour each, as a quantity gives them.
class Cloud : public CPTPlotDataSource {
 public:
  explicit Cloud(std::size_t count) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> place(0, 1);
    std::normal_distribution<double> decades(1, 0.4);
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
      x_.push_back(place(random));
      y_.push_back(place(random));
      values.push_back(std::pow(10, decades(random)));
    }
    colors_ = SymbolColorCode(SymbolColorCode::grainMass).getColors(values, std::nullopt)->colors;
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return x_.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return CPTNumericData(field == CPTScatterPlotFieldX ? x_ : y_);
  }
  double number(const CPTPlot&, unsigned, std::size_t) override { return 0; }
  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange) override { return colors_; }

 private:
  std::vector<double> x_, y_;
  CPTColorList colors_;
};

/// A figure of 1600 x 1000 pixels with coloured circles; what is kept of it is dropped each time.
void drawColoredSymbols(benchmark::State& state) {
  Cloud cloud(static_cast<std::size_t>(state.range(0)));
  CPTXYGraph graph(CGRect::make(0, 0, 1600, 1000));
  const auto plot = std::make_shared<CPTScatterPlot>();
  plot->setDataSource(&cloud);
  plot->setDataLineStyle(std::nullopt);
  CPTPlotSymbol circle = CPTPlotSymbol::ellipsePlotSymbol();
  circle.setSize({6, 6});
  circle.setLineStyle(std::nullopt);
  circle.setFill(CPTFill(CPTColor::redColor()));
  plot->setPlotSymbol(circle);
  graph.addPlot(plot);
  const auto bitmap = CGBitmapContext::create(graph.bounds().size, 1);
  for (auto _ : state) {
    graph.setNeedsDisplay();
    graph.displayChart(*bitmap);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(drawColoredSymbols)
    ->RangeMultiplier(10)
    ->Range(1000, 1'000'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vexel
