#include <Kernels/BarRaster.h>
#include <Kernels/LineRaster.h>
#include <Kernels/RangeIndex.h>
#include <Kernels/ScaleMap.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

namespace vexel {
namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr std::uint32_t kBlue = 0xFF143CA0;

struct Picture {
  std::vector<std::uint32_t> pixels =
      std::vector<std::uint32_t>(static_cast<std::size_t>(kWidth * kHeight), 0xFFFFFFFF);
  PixelBuffer buffer{pixels.data(), kWidth, kHeight, kWidth};
  PixelRect all{0, 0, kWidth, kHeight};
};

/// A random walk with noise across the picture.
struct Walk {
  explicit Walk(std::size_t count) {
    std::mt19937 random(1);
    std::normal_distribution<double> normal;
    const double step = kHeight / 4.0 / std::sqrt(count);
    double walk = kHeight / 2.0;
    for (std::size_t i = 0; i < count; ++i) {
      walk += step * normal(random);
      x.push_back(static_cast<double>(i) * kWidth / static_cast<double>(count));
      y.push_back(walk + kHeight / 30.0 * normal(random));
    }
  }

  std::vector<CGPoint> points() const {
    std::vector<CGPoint> points;
    for (std::size_t i = 0; i < x.size(); ++i) points.push_back({x[i], y[i]});
    return points;
  }

  std::vector<double> x, y;
};

std::size_t size(const benchmark::State& state) {
  return static_cast<std::size_t>(state.range(0));
}

void countItems(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The values of samples become places on an axis.
void mapValues(benchmark::State& state, bool isLogarithmic) {
  const std::vector<double> values = Walk(size(state)).x;
  const ScaleMap map({1, kWidth, isLogarithmic, kWidth}, 1, 0);
  std::vector<double> places(values.size());
  for (auto _ : state) {
    map(values, places.data());
    benchmark::DoNotOptimize(places.data());
  }
  countItems(state);
}
BENCHMARK_CAPTURE(mapValues, linear, false)->Arg(100000);
BENCHMARK_CAPTURE(mapValues, logarithmic, true)->Arg(100000);

void readIntoIndex(benchmark::State& state) {
  const Walk walk(size(state));
  for (auto _ : state) {
    const RangeIndex index(walk.x, walk.y);
    benchmark::DoNotOptimize(index.count());
  }
  countItems(state);
}
BENCHMARK(readIntoIndex)->RangeMultiplier(10)->Range(10000, 10000000);

/// What a line needs of all samples: parts of a 16th of a pixel and their extremes.
void visitOutline(benchmark::State& state) {
  const Walk walk(size(state));
  const RangeIndex index(walk.x, walk.y);
  for (auto _ : state) {
    double sum = 0;
    index.visitOutline(
        0, index.count(), -1e300, [](double from) { return from + 1.0 / 16; },
        [&](double x, double y) { sum += x + y; });
    benchmark::DoNotOptimize(sum);
  }
  countItems(state);
}
BENCHMARK(visitOutline)->RangeMultiplier(10)->Range(100000, 10000000);

void strokeLine(benchmark::State& state, double width) {
  const std::vector<CGPoint> points = Walk(size(state)).points();
  Picture picture;
  for (auto _ : state) {
    LineRaster raster(picture.buffer, picture.all, width,
                      {.pointsPerPixel = static_cast<double>(points.size()) / kWidth});
    raster.add(points);
    raster.draw(kBlue);
  }
  countItems(state);
}
BENCHMARK_CAPTURE(strokeLine, thin, 1)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK_CAPTURE(strokeLine, wide, 5)->RangeMultiplier(10)->Range(1000, 100000);

void fillBars(benchmark::State& state) {
  const Walk walk(size(state));
  Picture picture;
  for (auto _ : state) {
    BarRaster raster(picture.buffer, picture.all, BarRaster::Direction::upright);
    for (std::size_t i = 0; i < walk.x.size(); ++i)
      raster.add(CGRect::make(walk.x[i], walk.y[i], 0.5, kHeight - walk.y[i]));
    raster.draw(kBlue);
  }
  countItems(state);
}
BENCHMARK(fillBars)->RangeMultiplier(10)->Range(1000, 1000000);

}  // namespace
}  // namespace vexel
