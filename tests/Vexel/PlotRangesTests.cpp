#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

std::uint32_t bits(float number) {
  return std::bit_cast<std::uint32_t>(number);
}

class PlotSpaceWithoutCoordinates : public CPTPlotSpace {
 public:
  std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override {
    return std::nullopt;
  }
};

class PlotRanges : public testing::Test {
 protected:
  PlotRanges() { plot.initPlot(nullptr, PlotTheme::white); }

  CPTXYPlotSpace& space() { return dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()); }

  TestPlot plot;
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
};

using PlotRangesDeathTest = PlotRanges;

TEST_F(PlotRanges, ShowNothingWithoutAGraph) {
  EXPECT_THAT(plot.getCurrentShowRange(nullptr), IsEmpty());
}

TEST_F(PlotRanges, ShowTheXRangeInDataUnits) {
  space().setXRange({10, 20});
  space().setYRange({-7, 3});
  plot.xUnitScale() = 2;
  plot.yUnitScale() = 5;
  EXPECT_THAT(plot.getCurrentShowRange(graph), ElementsAre(5.0, 15.0));
}

TEST_F(PlotRanges, ShowWhateverTheRangeIs) {
  space().setXRange({3, -4});
  EXPECT_THAT(plot.getCurrentShowRange(graph), ElementsAre(3.0, -1.0));
  space().setXScaleType(CPTScaleTypeLog);
  EXPECT_THAT(plot.getCurrentShowRange(graph), ElementsAre(3.0, -1.0));
  plot.xUnitScale() = 0;
  EXPECT_THAT(plot.getCurrentShowRange(graph),
              ElementsAre(std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()));
}

TEST_F(PlotRanges, ReadTheDefaultPlotSpaceOnly) {
  const auto other = std::make_shared<CPTXYPlotSpace>();
  other->setXRange({100, 1});
  graph->addPlotSpace(other);
  EXPECT_THAT(plot.getCurrentShowRange(graph), ElementsAre(0.0, 1.0));
}

TEST_F(PlotRangesDeathTest, NeedAnXYPlotSpace) {
  graph->removePlotSpace(*graph->defaultPlotSpace());
  EXPECT_DEATH(plot.getCurrentShowRange(graph), "Fatal error: .*getCurrentShowRange");
  graph->addPlotSpace(std::make_shared<PlotSpaceWithoutCoordinates>());
  EXPECT_DEATH(plot.getCurrentShowRange(graph), "Fatal error: .*getCurrentShowRange");
}

TEST_F(PlotRanges, PlaceTwoValuesLinearlyInSinglePrecision) {
  const struct {
    std::vector<float> amplitudes, f;
    std::uint32_t lower, upper;
  } cases[] = {
      {{-2, 8}, {0.1f, 0.9f}, bits(-3.25f), bits(9.25f)},
      {{5, 10}, {0.25f, 0.75f}, bits(-5), bits(15)},
      // The nearest floats of the results in double are neighbours of these.
      {{-1.7f, 3.3f}, {0.15f, 0.85f}, 0xc0315f15u, 0x408be2bcu},
      {{-0.3f, 1e-3f}, {0.05f, 0.95f}, 0xbea2296bu, 0x3c912f00u},
      {{-1e30f, 7e29f}, {0.3f, 0.7f}, 0xf1e5b760u, 0x71c76c8eu},
      // More numbers than two are not read.
      {{-2, 8, 99}, {0.1f, 0.9f, 99}, bits(-3.25f), bits(9.25f)},
  };
  for (const auto& c : cases) {
    const auto range = plot.getLinearPlotRange(17, c.amplitudes, c.f);
    ASSERT_EQ(range.size(), 2u);
    EXPECT_EQ(bits(range[0]), c.lower) << range[0];
    EXPECT_EQ(bits(range[1]), c.upper) << range[1];
  }
}

TEST_F(PlotRanges, IncludeZeroAndTakeItForWhatIsNoNumber) {
  const auto fromZero = plot.getLinearPlotRange(0, {0, 10}, {0.25f, 0.75f});
  for (const float first : {5.0f, 0.0f, -0.0f, kNaN, kInfinity}) {
    const auto range = plot.getLinearPlotRange(0, {first, 10}, {0.25f, 0.75f});
    EXPECT_EQ(bits(range[0]), bits(fromZero[0])) << first;
    EXPECT_EQ(bits(range[1]), bits(fromZero[1])) << first;
  }
}

TEST_F(PlotRanges, DoNotReadTheOffsetOfALinearRange) {
  for (const float offset : {kNaN, kInfinity, -1.0f})
    EXPECT_THAT(plot.getLinearPlotRange(offset, {-2, 8}, {0.1f, 0.9f}), ElementsAre(-3.25f, 9.25f));
}

TEST_F(PlotRanges, AreNotFiniteForFractionsWithoutRoom) {
  const auto atZero = plot.getLinearPlotRange(0, {5, 10}, {0, 1});
  EXPECT_EQ(atZero[0], 0);
  EXPECT_FALSE(std::isfinite(atZero[1]));
  EXPECT_FALSE(std::isfinite(plot.getLinearPlotRange(0, {-1, 10}, {0.5f, 0.5f})[0]));
  EXPECT_TRUE(std::isnan(plot.getLinearPlotRange(0, {-1, kNaN}, {0.2f, 0.5f})[0]));
}

TEST_F(PlotRangesDeathTest, NeedTwoAmplitudesAndFractions) {
  const std::vector<float> f = {0.1f, 0.9f};
  EXPECT_DEATH(plot.getLinearPlotRange(0, {}, f), "amplitudeRange is empty");
  EXPECT_DEATH(plot.getLinearPlotRange(0, {}, {}), "amplitudeRange is empty");
  EXPECT_DEATH(plot.getLinearPlotRange(0, {1}, {1}), "f needs two numbers");
  EXPECT_DEATH(plot.getLinearPlotRange(0, {1, 2}, {}), "f needs two numbers");
  EXPECT_DEATH(plot.getLinearPlotRange(0, {1}, f), "amplitudeRange needs two numbers");
  EXPECT_DEATH(plot.getLogPlotRange(1, 2, {}), "f needs two numbers");
  EXPECT_DEATH(plot.getLogPlotRange(1, 2, {1}), "f needs two numbers");
}

TEST_F(PlotRanges, PlaceTwoValuesLogarithmicallyInSinglePrecision) {
  const struct {
    float offset, amplitude;
    std::vector<float> f;
    std::uint32_t lower, upper;
  } cases[] = {
      {1, 100, {0.5f, 1}, bits(-2), bits(2)},
      {0.02f, 35, {0.1f, 0.9f}, 0xc006adabu, 0x3ff98782u},
      {3e-15f, 2e-9f, {0.05f, 0.8f}, 0xc16e9405u, 0xc0e4ab6cu},
  };
  for (const auto& c : cases) {
    const auto range = plot.getLogPlotRange(c.offset, c.amplitude, c.f);
    ASSERT_EQ(range.size(), 2u);
    EXPECT_EQ(bits(range[0]), c.lower) << range[0];
    EXPECT_EQ(bits(range[1]), c.upper) << range[1];
  }
}

TEST_F(PlotRanges, LeaveTheFloatsOnTheWayToTheirDecades) {
  const auto range = plot.getLogPlotRange(1e-30f, 1e30f, {0.4f, 0.6f});
  EXPECT_EQ(range[0], -kInfinity);
  EXPECT_EQ(range[1], kInfinity);
}

TEST_F(PlotRanges, AreNotFiniteForLogarithmsThatAreNot) {
  const auto atZero = plot.getLogPlotRange(1, 100, {0, 1});
  EXPECT_EQ(atZero[0], 0);
  EXPECT_TRUE(std::isnan(atZero[1]));
  EXPECT_EQ(plot.getLogPlotRange(0, 100, {0.25f, 0.75f})[0], -kInfinity);
  EXPECT_TRUE(std::isnan(plot.getLogPlotRange(-1, 100, {0.25f, 0.75f})[0]));
  EXPECT_TRUE(std::isnan(plot.getLogPlotRange(1, kNaN, {0.25f, 0.75f})[1]));
}

}  // namespace
}  // namespace vexel
