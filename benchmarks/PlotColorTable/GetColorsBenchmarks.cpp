#include <PlotColorTable/SymbolColorCode.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace vexel {
namespace {

constexpr std::size_t kMillion = 1'000'000;

/// Log-normal values as quantities of impacts have them.
std::vector<double> values() {
  std::mt19937 random(1);
  std::normal_distribution<double> decades(1, 0.4);
  std::vector<double> result(kMillion);
  for (double& value : result) value = std::pow(10, decades(random));
  return result;
}

void mapValues(benchmark::State& state, SymbolColorCode quantity) {
  const std::vector<double> input = values();
  for (auto _ : state) {
    const auto definition = quantity.getColors(input, std::nullopt);
    benchmark::DoNotOptimize(definition);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kMillion));
}

BENCHMARK_CAPTURE(mapValues, logarithmic, SymbolColorCode::impactCharge)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(mapValues, linear, SymbolColorCode::eventTime)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vexel
