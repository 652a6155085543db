#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>
#include <ostream>
#include <random>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::SizeIs;
using Values = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr CGFloat kWidth = 200;
constexpr CGFloat kHeight = 100;

/// A series and how it is looked at.
struct Example {
  std::string name;
  Values x;
  Values y;
  CPTPlotRange xRange{0, 1};
  CPTPlotRange yRange{0, 1};
  bool logX = false;
  bool logY = false;
  CPTScatterPlotInterpolation interpolation = CPTScatterPlotInterpolation::linear;
  double alpha = 1;

  friend std::ostream& operator<<(std::ostream& out, const Example& example) {
    return out << example.name;
  }
};

Values filled(std::size_t count, const std::function<double(double)>& value) {
  Values values;
  for (std::size_t i = 0; i < count; ++i)
    values.push_back(value(static_cast<double>(i) / static_cast<double>(count - 1)));
  return values;
}

double wave(double t) {
  return 0.5 + 0.3 * std::sin(40 * t) + 0.15 * std::sin(391 * t);
}

double identity(double t) {
  return t;
}

Example with(std::string name, Values x, Values y) {
  return {.name = std::move(name), .x = std::move(x), .y = std::move(y)};
}

std::vector<Example> examples() {
  std::vector<Example> all;
  const auto add = [&](Example example) -> Example& {
    all.push_back(std::move(example));
    return all.back();
  };
  const Values x = filled(3000, identity);
  const Values y = filled(3000, wave);

  Values gaps = y;
  for (const std::size_t i : {0u, 700u, 702u, 1500u, 1501u, 2999u}) gaps[i] = kNaN;
  add(with("gaps and isolated points", x, gaps));
  Values twoLevels = filled(3000, [](double t) { return std::fmod(t * 3000, 2) < 1 ? 0.2 : 0.8; });
  for (std::size_t i = 1; i < 3000; i += 3) twoLevels[i] = kNaN;
  add(with("gaps shorter than a pixel, which nothing bridges", x, twoLevels));
  Values infinite = y;
  infinite[100] = kInfinity;
  infinite[200] = -kInfinity;
  Values gappedX = x;
  gappedX[2000] = kNaN;
  gappedX[2500] = kInfinity;
  add(with("infinities", x, infinite));
  add(with("x that are no numbers", gappedX, y));
  Values huge = y;
  huge[500] = 1e300;
  huge[1500] = -1e300;
  huge[1501] = 1e305;
  add(with("huge values", x, huge));
  add(with("one point", {0.5}, {0.5}));
  add(with("two points far outside", {-1e9, 1e9}, {-1e9, 1e9}));
  add(with("points just outside", {-0.01, 0.3, 0.7, 1.01}, {0.1, 0.9, 0.1, 0.9}));
  add(with("equal x", {0.2, 0.2, 0.2, 0.5, 0.5, 0.8}, {0.1, 0.9, 0.5, 0.5, 0.1, 0.2}));
  add(with("all x equal", Values(500, 0.5), filled(500, wave)));
  add(with("few points", filled(20, identity), filled(20, wave)));
  add(with("many points", filled(100000, identity), filled(100000, wave)));

  Example& offset = add(with("an offset that dwarfs the range", x, y));
  for (double& value : offset.x) value = 2451545 + value / 86400;
  for (double& value : offset.y) value = 1e9 + value;
  offset.xRange = {2451545, 1 / 86400.0};
  offset.yRange = {1e9, 1};

  add(with("descending x", {x.rbegin(), x.rend()}, y));
  Example& reversed = add(with("reversed axes", x, y));
  reversed.xRange = {1, -1};
  reversed.yRange = {1, -1};
  Example& both = add(with("descending x on a reversed axis", {x.rbegin(), x.rend()}, y));
  both.xRange = {1, -1};

  Example& logarithmic = add(with("logarithmic axes", x, y));
  for (double& value : logarithmic.x) value = std::pow(10, 3 * value);
  for (double& value : logarithmic.y) value = std::pow(10, 6 * value - 3);
  logarithmic.xRange = {1, 999};
  logarithmic.yRange = {1e-3, 1e3};
  logarithmic.logX = logarithmic.logY = true;
  Example zeros = logarithmic;
  zeros.name = "zeros and negative values on logarithmic axes";
  for (std::size_t i = 0; i < zeros.y.size(); i += 500) zeros.y[i] = i % 1000 == 0 ? 0 : -5;
  zeros.x[0] = -3;
  zeros.x[1] = 0;
  add(zeros);
  Example backwards = logarithmic;
  backwards.name = "reversed logarithmic axes";
  backwards.xRange = {1000, -999};
  backwards.yRange = {1000, 1e-3 - 1000};
  add(backwards);
  Example& narrow = add(with("a logarithmic axis over next to nothing", x, y));
  for (double& value : narrow.x) value = 1 + value * 1e-9;
  narrow.xRange = {1, 1e-9};
  narrow.logX = true;

  for (const auto interpolation :
       {CPTScatterPlotInterpolation::stepped, CPTScatterPlotInterpolation::histogram})
    for (const std::size_t count : {30u, 20000u}) {
      Example& steps = add(with("steps", filled(count, identity), filled(count, wave)));
      steps.y[count / 2] = kNaN;
      steps.interpolation = interpolation;
    }
  add(with("a translucent line", x, y)).alpha = 0.4;

  const auto gentle = [](double t) { return 0.5 + 0.02 * std::sin(9 * t); };
  add(with("a flat curve", filled(150, identity), filled(150, gentle)));
  add(with("a flat curve of three points", {-1, 0.4, 3}, {0.4, 0.6, 0.45})).alpha = 0.4;
  add(with("a short flat line", {0.4, 0.45}, {0.5, 0.505}));
  Example& spike = add(with("a curve that is flat but for a spike", x, filled(3000, gentle)));
  for (std::size_t i = 0; i < spike.x.size(); ++i) spike.x[i] = static_cast<double>(i) / 30;
  spike.y[13] = 0.9;
  return all;
}

class SeriesLine : public testing::TestWithParam<Example> {
 protected:
  void SetUp() override {
    const Example& example = GetParam();
    source.fields = {example.x, example.y};
    graph->setFill(CPTFill(CPTColor::whiteColor()));
    spaceOf(*graph)->setXRange(example.xRange);
    spaceOf(*graph)->setYRange(example.yRange);
    spaceOf(*graph)->setXScaleType(example.logX ? CPTScaleTypeLog : CPTScaleTypeLinear);
    spaceOf(*graph)->setYScaleType(example.logY ? CPTScaleTypeLog : CPTScaleTypeLinear);
    plot->setInterpolation(example.interpolation);
  }

  /// The line through every record by the drawing library, in one stroke per run.
  std::vector<std::uint32_t> plain(CGFloat width, CGFloat scale) const {
    const auto context = CGBitmapContext::create({kWidth, kHeight}, scale);
    context->fillAligned(CGRect::make(0, 0, kWidth, kHeight), CGColor::genericRGB(1, 1, 1));
    const Example& example = GetParam();
    const AxisScale xScale = spaceOf(*graph)->scale(CPTCoordinate::X, kWidth);
    const AxisScale yScale = spaceOf(*graph)->scale(CPTCoordinate::Y, kHeight);
    const CGColor color = CGColor::genericRGB(0, 0, 0, example.alpha);
    std::vector<CGPoint> run;
    CGMutablePath lines;
    const auto finish = [&] {
      if (run.size() == 1) {
        CGMutablePath dot;
        dot.addEllipse(CGRect::make(run[0].x - width / 2, run[0].y - width / 2, width, width));
        context->fill(dot, color);
      } else if (!run.empty()) {
        lines.addLines(run);
      }
      run.clear();
    };
    for (std::size_t i = 0; i < example.x.size(); ++i) {
      const CGPoint b{xScale.position(example.x[i]), yScale.position(example.y[i])};
      if (!std::isfinite(b.x) || !std::isfinite(b.y)) {
        finish();
        continue;
      }
      if (!run.empty() && example.interpolation != CPTScatterPlotInterpolation::linear) {
        const CGPoint a = run.back();
        const bool isHalfWay = example.interpolation == CPTScatterPlotInterpolation::histogram;
        const CGFloat turn = isHalfWay ? a.x / 2 + b.x / 2 : b.x;
        run.push_back({turn, a.y});
        run.push_back({turn, b.y});
      }
      run.push_back(b);
    }
    finish();
    context->stroke(
        lines,
        {.color = color, .width = width, .cap = CGLineCap::round, .join = CGLineJoin::round});
    return pixelsOf(*context);
  }

  std::shared_ptr<CPTXYGraph> graph = bareGraph(kWidth, kHeight);
  ListSource source{{{}, {}}};
  std::shared_ptr<CPTScatterPlot> plot = addScatter(*graph, source);
};

/// Of the pixels that either picture inks: how many there are, the part of them that differ by
/// more than 16 of 255, and the largest difference.
struct Fidelity {
  int inked = 0;
  int apart = 0;
  int largest = 0;
};

Fidelity compared(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b) {
  Fidelity found;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const int left = static_cast<int>(a[i] & 255);
    const int right = static_cast<int>(b[i] & 255);
    if (left == 255 && right == 255) continue;
    ++found.inked;
    found.apart += std::abs(left - right) > 16;
    found.largest = std::max(found.largest, std::abs(left - right));
  }
  return found;
}

TEST_P(SeriesLine, LooksOnBitmapsLikeTheStrokeOfEveryRecord) {
  for (const CGFloat scale : {1.0, 1.5, 2.0})
    for (const CGFloat width : {0.5, 1.0, 2.0, 6.0}) {
      plot->setDataLineStyle(
          CPTLineStyle{.lineCap = CGLineCap::round,
                       .lineWidth = width,
                       .lineColor = CPTColor::colorWithComponents(0, 0, 0, GetParam().alpha)});
      const Fidelity found = compared(drawn(*graph, scale), plain(width, scale));
      EXPECT_GT(found.inked, 0);
      EXPECT_LE(found.apart, 0.03 * found.inked) << "width " << width << " at scale " << scale;
      EXPECT_LE(found.largest, 64) << "width " << width << " at scale " << scale;
    }
}

TEST_P(SeriesLine, LooksTheSamePartByPart) {
  for (const CGFloat scale : {1.0, 1.25, 2.0})
    for (const CGFloat width : {0.7, 1.0, 5.0}) {
      plot->setDataLineStyle(
          CPTLineStyle{.lineCap = CGLineCap::round,
                       .lineWidth = width,
                       .lineColor = CPTColor::colorWithComponents(0, 0, 0, GetParam().alpha)});
      const auto draw = [&](const std::vector<CGRect>& parts) {
        const auto context =
            CGBitmapContext::create({kWidth, kHeight}, scale, CGBitmapContext::Use::file);
        for (const CGRect& part : parts) graph->displayChart(*context, part);
        return pixelsOf(*context);
      };
      // The edges are on pixels at every scale.
      std::vector<CGRect> parts;
      for (int low = 0; low < kHeight; low += 36)
        for (int left = 0; left < kWidth; left += 52)
          parts.push_back(CGRect::make(left, low, 52, 36));
      EXPECT_EQ(draw(parts), draw({CGRect::make(0, 0, kWidth, kHeight)}))
          << "width " << width << " at scale " << scale;
    }
}

INSTANTIATE_TEST_SUITE_P(Traps, SeriesLine, testing::ValuesIn(examples()));

class SeriesPixels : public testing::Test {
 protected:
  SeriesPixels() {
    graph->setFill(CPTFill(CPTColor::whiteColor()));
    measureInPoints(*graph);
  }

  std::vector<std::uint32_t> drawnWith(Values x, Values y) {
    source.fields = {std::move(x), std::move(y)};
    plot->setDataNeedsReloading();
    return drawn(*graph);
  }

  std::shared_ptr<CPTXYGraph> graph = bareGraph(kWidth, kHeight);
  ListSource source{{{}, {}}};
  std::shared_ptr<CPTScatterPlot> plot = addScatter(*graph, source);
};

TEST_F(SeriesPixels, MoveWithTheViewByWholePixels) {
  const Values x = filled(50000, [](double t) { return 400 * t - 100; });
  const Values y = filled(50000, [](double t) { return 100 * wave(t); });
  const auto before = drawnWith(x, y);
  spaceOf(*graph)->setXRange({7, kWidth});
  const auto after = drawn(*graph);
  int different = 0;
  for (std::size_t row = 0; row < 100; ++row)
    for (std::size_t column = 0; column + 7 < 200; ++column) {
      const auto left = static_cast<int>(before[row * 200 + column + 7] & 255);
      const auto right = static_cast<int>(after[row * 200 + column] & 255);
      different += std::abs(left - right) > 1;
    }
  EXPECT_EQ(different, 0);
}

TEST_F(SeriesPixels, AreTheSameForEveryTypeOfNumbers) {
  class TypedSource : public ListSource {
   public:
    using ListSource::ListSource;
    std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
      return lent[field];
    }
    CPTNumericData lent[2];
  };
  const Values x = filled(5000, [](double t) { return std::round(200 * t); });
  const Values y = filled(5000, [](double t) { return std::round(100 * wave(t)); });
  const auto expected = drawnWith(x, y);

  TypedSource typed({x, y});
  plot->setDataSource(&typed);
  const auto expectSame = [&](CPTNumericData lentX, CPTNumericData lentY) {
    typed.lent[0] = lentX;
    typed.lent[1] = lentY;
    plot->setDataNeedsReloading();
    EXPECT_EQ(drawn(*graph), expected);
  };
  const std::vector<float> floats(y.begin(), y.end());
  const std::vector<std::int16_t> shorts(x.begin(), x.end());
  const std::vector<std::int32_t> ints(y.begin(), y.end());
  const std::vector<std::int64_t> longs(x.begin(), x.end());
  expectSame(x, floats);
  expectSame(shorts, ints);
  expectSame(longs, y);
  struct Record {
    char kind;
    double x, y;
  };
  std::vector<Record> records;
  for (std::size_t i = 0; i < x.size(); ++i) records.push_back({'r', x[i], y[i]});
  const auto column = [&](const double& first) {
    return CPTNumericData::strided(CPTNumericData::Type::float64, &first, records.size(),
                                   sizeof(Record));
  };
  expectSame(column(records[0].x), column(records[0].y));
}

TEST_F(SeriesPixels, OfUnsortedDataAreDrawnInTheOrderOfTheRecords) {
  // A loop: the line back at the top would be missing if x were taken for sorted.
  const auto pixels = drawnWith({20, 180, 180, 20}, {20, 20, 80, 80});
  const auto inkAt = [&](std::size_t x, std::size_t y) { return pixels[(99 - y) * 200 + x] & 255; };
  EXPECT_LT(inkAt(100, 20), 200u);
  EXPECT_LT(inkAt(100, 80), 200u);
}

TEST_F(SeriesPixels, DashesThatNobodyCouldTellApartAreLeftOut) {
  plot->setDataLineStyle(CPTLineStyle{.dashPattern = {4, 4}});
  const auto isDashed = [&](std::size_t count) {
    source.fields = {filled(count, [](double t) { return 200 * t; }), Values(count, 50)};
    plot->setDataNeedsReloading();
    const auto strokes = calls(recorded(*graph), {"stroke"});
    EXPECT_THAT(strokes, SizeIs(1));
    return strokes[0].find("dash") != std::string::npos;
  };
  EXPECT_TRUE(isDashed(2));
  EXPECT_TRUE(isDashed(400));
  EXPECT_FALSE(isDashed(402));
}

TEST_F(SeriesPixels, OfPathsFollowManyRecordsToASixteenthOfAPoint) {
  std::mt19937 random(5);
  Values x = filled(300000, [](double t) { return 200 * t; });
  Values y(x.size());
  for (double& value : y) value = 50 + static_cast<double>(random() % 1000) / 100;
  y[123456] = 90;
  y[234567] = 5;
  source.fields = {x, y};
  plot->setDataNeedsReloading();
  plot->setDataLineStyle(CPTLineStyle{.lineColor = CPTColor::colorWithComponents(0, 0, 0, 0.5)});
  const std::string text = recorded(*graph);
  EXPECT_LT(text.size(), 1000000u);
  double highest = 0, lowest = 100;
  const auto strokes = calls(text, {"stroke"});
  ASSERT_THAT(strokes, SizeIs(1));
  for (std::size_t at = strokes[0].find(" L "); at != std::string::npos;
       at = strokes[0].find(" L ", at + 1)) {
    const char* const end = strokes[0].data() + strokes[0].size();
    double px = 0, py = 0;
    const auto x0 = std::from_chars(strokes[0].data() + at + 3, end, px);
    const auto y0 = std::from_chars(x0.ptr + 1, end, py);
    ASSERT_TRUE(x0.ec == std::errc() && y0.ec == std::errc());
    if (py > highest) highest = py;
    if (py < lowest) lowest = py;
    if (py > 80) {
      EXPECT_NEAR(px, x[123456], 1.0 / 16);
    }
    if (py < 20) {
      EXPECT_NEAR(px, x[234567], 1.0 / 16);
    }
  }
  EXPECT_EQ(highest, 90);
  EXPECT_EQ(lowest, 5);
}

}  // namespace
}  // namespace vexel
