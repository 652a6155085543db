#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGPath.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

namespace vexel {
namespace {

constexpr CGSize kSize{1600, 1000};

/// Circles of 256 colours with an outline, at random places.
struct Circles {
  explicit Circles(std::size_t count) {
    for (int i = 0; i < 256; ++i) colors.push_back(CGColor::genericRGB(i / 255.0, 0.4, 0.6));
    for (const CGColor& color : colors) styles.push_back({&color, &outline});
    path.addEllipse(CGRect::make(-3, -3, 6, 6));
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, kSize.width), y(0, kSize.height);
    for (std::size_t i = 0; i < count; ++i) {
      centers.push_back({x(random), y(random)});
      styleOfCenter.push_back(static_cast<std::uint32_t>(random() & 255));
    }
  }

  CGStrokeStyle outline{.color = CGColor::genericRGB(0.1, 0.1, 0.1), .width = 0.75};
  std::vector<CGColor> colors;
  std::vector<CGSymbolStyle> styles;
  CGMutablePath path;
  std::vector<CGPoint> centers;
  std::vector<std::uint32_t> styleOfCenter;
};

void drawStyledSymbols(benchmark::State& state) {
  const Circles circles(static_cast<std::size_t>(state.range(0)));
  const auto bitmap = CGBitmapContext::create(kSize, 1);
  for (auto _ : state)
    bitmap->drawStyledSymbols(circles.path, circles.styles, circles.styleOfCenter, circles.centers);
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(drawStyledSymbols)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);

void strokeGrid(benchmark::State& state) {
  const auto bitmap = CGBitmapContext::create(kSize, 1);
  CGMutablePath lines;
  for (int x = 20; x < 1600; x += 40) {
    lines.move({x + 0.5, 0});
    lines.addLine({x + 0.5, kSize.height});
  }
  const CGStrokeStyle style{.color = CGColor::genericRGB(0.5, 0.5, 0.5, 0.5), .width = 1};
  for (auto _ : state) bitmap->stroke(lines, style);
}
BENCHMARK(strokeGrid)->Unit(benchmark::kMicrosecond);

/// A picture like a figure: mostly white, with symbols.
void writePng(benchmark::State& state) {
  const Circles circles(1000);
  const auto bitmap = CGBitmapContext::create(kSize, 1);
  CGMutablePath page;
  page.addRect({{}, kSize});
  bitmap->fill(page, CGColor::genericRGB(1, 1, 1));
  bitmap->drawStyledSymbols(circles.path, circles.styles, circles.styleOfCenter, circles.centers);
  for (auto _ : state) {
    const std::string file = bitmap->pngData();
    benchmark::DoNotOptimize(file.data());
  }
}
BENCHMARK(writePng)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vexel
