#include <AxisLayout.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace vexel {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr CGSize kArea{400, 300};
const CGRect kView = CGRect::make(-1000, -1000, 4000, 4000);

MATCHER(IsNear, "") {
  return std::abs(std::get<0>(arg) - std::get<1>(arg)) <= 1e-9;
}

class AxisLayoutTest : public testing::Test {
 protected:
  AxisLayoutTest() {
    axis.setPlotSpace(space);
    space->setXRange({0, 4});
    space->setYRange({0, 3});
  }

  std::optional<AxisLayout> placed(CGSize area) {
    return layoutAxis(axis, area, view, pinnedLine(axis, area));
  }

  AxisLayout layout(CGSize area = kArea) {
    const auto result = placed(area);
    EXPECT_TRUE(result);
    return result.value_or(AxisLayout{});
  }

  std::vector<std::string> texts(const AxisLayout& placed) {
    std::vector<std::string> result;
    for (const auto& label : placed.labels) result.push_back(label.content->text());
    return result;
  }

  CGRect box(const AxisLayout::Text& text) { return text.box(); }

  std::shared_ptr<CPTAxisLabel> label(const std::string& text, double location) {
    auto result = std::make_shared<CPTAxisLabel>(text);
    result->setTickLocation(location);
    return result;
  }

  std::shared_ptr<CPTXYPlotSpace> space = std::make_shared<CPTXYPlotSpace>();
  CPTXYAxis axis;
  CGRect view = kView;
};

TEST_F(AxisLayoutTest, AnAxisWithoutPlotSpaceOrAPlotAreaWithoutSizeHasNoLayout) {
  for (const CGSize area : {CGSize{0, 10}, CGSize{10, 0}, CGSize{kNaN, 10}, CGSize{-1, 10}})
    EXPECT_FALSE(placed(area));
  axis.setPlotSpace(nullptr);
  EXPECT_FALSE(placed(kArea));
}

TEST_F(AxisLayoutTest, RangesThatAreNoneHaveALineButNoTicks) {
  const CPTPlotRange ranges[] = {{kNaN, 1}, {0, kNaN}, {kInfinity, 1}, {0, kInfinity}, {0, 0}};
  using Policy = CPTAxisLabelingPolicy;
  for (const CPTPlotRange& range : ranges)
    for (const Policy policy : {Policy::none, Policy::locationsProvided, Policy::fixedInterval,
                                Policy::automatic, Policy::equalDivisions}) {
      space->setXRange(range);
      axis.setLabelingPolicy(policy);
      axis.setMajorTickLocations({0, 1});
      axis.setAxisLabels({label("a", 0)});
      const AxisLayout placed = layout();
      EXPECT_THAT(placed.majorTicks, IsEmpty());
      EXPECT_THAT(placed.minorTicks, IsEmpty());
      EXPECT_THAT(placed.labels, IsEmpty());
      EXPECT_EQ(placed.line, 0);
    }
}

TEST_F(AxisLayoutTest, HugeAndTinyRangesHaveFewTicksInsideThePlotArea) {
  const CPTPlotRange ranges[] = {{0, 1e308},    {-1e308, 1.7e308}, {1e308, -1e308},  {0, 5e-324},
                                 {1e15, 0.125}, {2451544.5, 1e-6}, {-1e-300, 2e-300}};
  for (const CPTPlotRange& range : ranges)
    for (const auto policy :
         {CPTAxisLabelingPolicy::fixedInterval, CPTAxisLabelingPolicy::automatic,
          CPTAxisLabelingPolicy::equalDivisions}) {
      space->setXRange(range);
      axis.setLabelingPolicy(policy);
      const AxisLayout placed = layout();
      EXPECT_LE(placed.majorTicks.size(), 140u);
      for (const double place : placed.majorTicks) {
        EXPECT_GE(place, 0);
        EXPECT_LE(place, 400);
      }
    }
}

TEST_F(AxisLayoutTest, IntervalsThatAreNoneMakeNoTicks) {
  for (const double interval : {kNaN, kInfinity, -kInfinity, 0.0, -1.0}) {
    axis.setMajorIntervalLength(interval);
    EXPECT_THAT(layout().majorTicks, IsEmpty()) << interval;
  }
}

TEST_F(AxisLayoutTest, NeverMoreTicksThanThereIsRoomFor) {
  axis.setMajorIntervalLength(1e-9);
  EXPECT_LE(layout().majorTicks.size(), 136u);
  EXPECT_LE(layout({3, 3}).majorTicks.size(), 3u);
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::equalDivisions);
  axis.setPreferredNumberOfMajorTicks(5000);
  EXPECT_LE(layout().majorTicks.size(), 136u);
  axis.setMinorTicksPerInterval(std::numeric_limits<int>::max());
  EXPECT_LE(layout().minorTicks.size(), 10000u);
}

TEST_F(AxisLayoutTest, ThousandsOfProvidedTicksAreLabelledWhereThereIsRoom) {
  std::set<double> ticks;
  for (int i = 0; i <= 100000; ++i) ticks.insert(i * 4e-5);
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::locationsProvided);
  axis.setMajorTickLocations(ticks);
  const AxisLayout placed = layout();
  EXPECT_LE(placed.labels.size(), 40u);
  EXPECT_GE(placed.labels.size(), 5u);
  EXPECT_EQ(placed.majorTicks.size(), placed.labels.size());
}

TEST_F(AxisLayoutTest, AnAxisBeyondAllSizesHasNoMoreLabelsThanCanBeRead) {
  axis.setLabelFormatter(std::make_shared<NSNumberFormatter>());
  axis.setMajorIntervalLength(1);
  space->setXRange({0, 9000});
  for (const CGFloat length : {1e5, 1e9, 1e300}) {
    view = CGRect::make(-1000, -1000, length + 2000, 4000);
    const AxisLayout placed = layout({length, 300});
    EXPECT_EQ(placed.majorTicks.size(), 9001u) << length;
    EXPECT_LE(placed.labels.size(), 1000u) << length;
    EXPECT_GT(placed.labels.size(), 800u) << length;
  }
}

TEST_F(AxisLayoutTest, HandMadeLabelsWithoutAPlaceAreNotDrawn) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels({label("nan", kNaN), label("b", 3), label("inf", kInfinity),
                      label("left", -0.01), label("nan", kNaN), label("a", 1), label("right", 4.01),
                      std::make_shared<CPTAxisLabel>(std::shared_ptr<CPTTextLayer>())});
  EXPECT_THAT(texts(layout()), ElementsAre("a", "b"));
}

TEST_F(AxisLayoutTest, OffsetsAndRotationsThatAreNoNumbersDrawNoText) {
  const auto hostile = label("a", 1);
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels({hostile});
  for (const double value : {kNaN, kInfinity}) {
    hostile->setOffset(value);
    CGRecordingContext context;
    drawLabels(context, layout(), std::nullopt);
    hostile->setOffset(0);
    hostile->setRotation(value);
    drawLabels(context, layout(), std::nullopt);
    EXPECT_EQ(context.text(), "") << value;
    hostile->setRotation(0);
  }
}

TEST_F(AxisLayoutTest, TickLengthsThatAreNotFiniteDrawNoTicks) {
  for (const auto direction : {CPTSign::negative, CPTSign::none, CPTSign::positive})
    for (const double length : {kNaN, kInfinity, 0.0}) {
      axis.setTickDirection(direction);
      axis.setMajorTickLength(length);
      axis.setMinorTickLength(length);
      axis.setAxisLineStyle(std::nullopt);
      CGRecordingContext context;
      drawLineAndTicks(context, axis, layout());
      EXPECT_EQ(context.text(), "") << length;
    }
}

// Where ticks stand

TEST_F(AxisLayoutTest, FixedIntervalsCountFromTheLabellingOrigin) {
  axis.setLabelingOrigin(0.5);
  axis.setMajorIntervalLength(2);
  axis.setMinorTicksPerInterval(3);
  const AxisLayout placed = layout();
  EXPECT_THAT(placed.majorTicks, Pointwise(IsNear(), {50.0, 250.0}));
  EXPECT_THAT(placed.minorTicks,
              Pointwise(IsNear(), {0.0, 100.0, 150.0, 200.0, 300.0, 350.0, 400.0}));
  EXPECT_THAT(texts(placed), ElementsAre("0.5", "2.5"));
}

TEST_F(AxisLayoutTest, TheEndsOfTheRangeHaveTicksWhateverRoundingDoes) {
  space->setXRange({0, 0.3});
  axis.setMajorIntervalLength(0.1);
  EXPECT_THAT(layout().majorTicks,
              ElementsAre(0, DoubleNear(400.0 / 3, 1e-9), DoubleNear(800.0 / 3, 1e-9), 400));
}

TEST_F(AxisLayoutTest, AReversedRangeRunsTheOtherWay) {
  space->setXRange({4, -4});
  axis.setMinorTicksPerInterval(0);
  const AxisLayout placed = layout();
  EXPECT_EQ(placed.majorTicks.size(), 5u);
  ASSERT_EQ(placed.labels.size(), 5u);
  EXPECT_EQ(placed.labels.front().content->text(), "0.0");
  EXPECT_NEAR(placed.labels.front().center.x, 400, 1e-9);
  EXPECT_EQ(placed.labels.back().content->text(), "4.0");
  EXPECT_NEAR(placed.labels.back().center.x, 0, 1e-9);
}

TEST_F(AxisLayoutTest, LogarithmicTicksStandAtDecadesWithMinorOnesBetween) {
  space->setXRange({1, 99});
  space->setXScaleType(CPTScaleType::log);
  const AxisLayout placed = layout();
  EXPECT_THAT(placed.majorTicks, Pointwise(IsNear(), {0.0, 200.0, 400.0}));
  EXPECT_EQ(placed.minorTicks.size(), 16u);
  EXPECT_THAT(texts(placed), ElementsAre("1.0", "10.0", "100.0"));
}

TEST_F(AxisLayoutTest, ALogScaleWithoutPositiveRangeHasNoTicks) {
  space->setXScaleType(CPTScaleType::log);
  for (const CPTPlotRange& range :
       {CPTPlotRange(0, 10), CPTPlotRange(-5, 10), CPTPlotRange(1, -1), CPTPlotRange(1, -2)}) {
    space->setXRange(range);
    EXPECT_THAT(layout().majorTicks, IsEmpty());
    EXPECT_THAT(layout().labels, IsEmpty());
  }
}

TEST_F(AxisLayoutTest, AutomaticTicksStandAtRoundNumbers) {
  space->setXRange({0.3, 9.4});
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::automatic);
  axis.setMinorTicksPerInterval(0);
  EXPECT_THAT(texts(layout()), ElementsAre("2.0", "4.0", "6.0", "8.0"));
}

TEST_F(AxisLayoutTest, EqualDivisionsHaveTicksAtBothEnds) {
  space->setXRange({1, 10});
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::equalDivisions);
  axis.setPreferredNumberOfMajorTicks(4);
  EXPECT_THAT(layout().majorTicks, Pointwise(IsNear(), {0.0, 100.0, 200.0, 300.0, 400.0}));
}

TEST_F(AxisLayoutTest, ProvidedLocationsAreLabelledByTheFormatter) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::locationsProvided);
  axis.setMajorTickLocations({-1, 1, 3, 5});
  axis.setMinorTickLocations({2, 7});
  axis.setAxisLabels({label("by hand", 1)});
  const AxisLayout placed = layout();
  EXPECT_THAT(placed.majorTicks, Pointwise(IsNear(), {100.0, 300.0}));
  EXPECT_THAT(placed.minorTicks, Pointwise(IsNear(), {200.0}));
  EXPECT_THAT(texts(placed), ElementsAre("1.0", "3.0"));
}

TEST_F(AxisLayoutTest, WithPolicyNoneOnlyWhatWasSetByHandIsDrawn) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  EXPECT_THAT(layout().majorTicks, IsEmpty());
  EXPECT_THAT(layout().minorTicks, IsEmpty());
  EXPECT_THAT(layout().labels, IsEmpty());
  axis.setMajorTickLocations({1, 9});
  axis.setMinorTickLocations({2});
  axis.setAxisLabels({label("here", 3)});
  const AxisLayout placed = layout();
  EXPECT_THAT(placed.majorTicks, Pointwise(IsNear(), {100.0}));
  EXPECT_THAT(placed.minorTicks, Pointwise(IsNear(), {200.0}));
  EXPECT_THAT(texts(placed), ElementsAre("here"));
}

TEST_F(AxisLayoutTest, LabelsSetByHandAreDrawnUnderPolicyNoneAlone) {
  axis.setAxisLabels({label("here", 3)});
  EXPECT_THAT(texts(layout()), ElementsAre("0.0", "1.0", "2.0", "3.0", "4.0"));
}

TEST_F(AxisLayoutTest, TheTicksThatShowAreThoseInsideTheRange) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setMajorTickLocations({-1, 0, 4, 5});
  EXPECT_THAT(visibleTicks(axis, 400).major, ElementsAre(0, 4));
}

TEST_F(AxisLayoutTest, ATickThatIsOutsideByLessThanTheEyeSeesShowsAtTheEdge) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setMajorTickLocations({-0.006, -0.004, 4.004, 4.006});
  axis.setAxisLabels(
      {label("a", -0.006), label("b", -0.004), label("c", 4.004), label("d", 4.006)});
  EXPECT_THAT(layout().majorTicks, ElementsAre(0, 400));
  EXPECT_THAT(texts(layout()), ElementsAre("b", "c"));
}

TEST_F(AxisLayoutTest, OfTicksTooManyToBeToldApartThoseWithLabelsShow) {
  space->setXRange({1700, 300});
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  std::set<double> ticks;
  std::vector<std::shared_ptr<CPTAxisLabel>> years;
  for (int year = 1700; year <= 2000; ++year) {
    ticks.insert(year);
    years.push_back(label(std::to_string(year), year));
  }
  axis.setMajorTickLocations(ticks);
  axis.setMinorTickLocations(ticks);
  EXPECT_LE(layout().majorTicks.size(), 136u);
  EXPECT_GE(layout().majorTicks.size(), 100u);
  axis.setAxisLabels(years);
  EXPECT_THAT(texts(layout()), ElementsAre("1700", "1725", "1750", "1775", "1800", "1825", "1850",
                                           "1875", "1900", "1925", "1950", "1975", "2000"));
  EXPECT_EQ(layout().majorTicks.size(), 13u);
  EXPECT_LE(layout().minorTicks.size(), 136u);
  EXPECT_EQ(axis.majorTickLocations().size(), 301u);
}

// Labels

TEST_F(AxisLayoutTest, HandMadeLabelsAreSilencedByAFormatterThatPrintsNothing) {
  class Upper : public NSFormatter {
    std::string string(double value) const override { return value > 2 ? "any" : ""; }
  };
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels({label("a", 1), label("b", 2), label("c", 3)});
  axis.setLabelFormatter(std::make_shared<Upper>());
  EXPECT_THAT(texts(layout()), ElementsAre("c"));
  EXPECT_EQ(axis.axisLabels().size(), 3u);
  axis.setLabelFormatter(nullptr);
  EXPECT_THAT(texts(layout()), ElementsAre("a", "b", "c"));
}

TEST_F(AxisLayoutTest, LabelsAreMovedIntoTheView) {
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y}) {
    axis.setCoordinate(coordinate);
    space->setYRange({0, 4});
    view = CGRect::make(-100, -100, 600, 600);
    const AxisLayout free = layout({400, 400});
    view = CGRect::make(
        coordinate == CPTCoordinate::X ? 0 : -100, coordinate == CPTCoordinate::X ? -100 : 0,
        coordinate == CPTCoordinate::X ? 402 : 600, coordinate == CPTCoordinate::X ? 600 : 402);
    const AxisLayout moved = layout({400, 400});
    ASSERT_EQ(moved.labels.size(), 5u);
    for (std::size_t i = 1; i < 4; ++i) EXPECT_EQ(moved.labels[i].center, free.labels[i].center);
    const bool alongX = coordinate == CPTCoordinate::X;
    const CGRect first = box(moved.labels[0]), last = box(moved.labels[4]);
    EXPECT_NEAR(alongX ? first.minX() : first.minY(), 0, 1e-9);
    EXPECT_NEAR(alongX ? last.maxX() : last.maxY(), 402, 1e-9);
  }
}

TEST_F(AxisLayoutTest, ALabelLongerThanTheViewStaysInItsMiddle) {
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels({label(std::string(100, 'w'), 3)});
  view = CGRect::make(-10, -10, 420, 320);
  EXPECT_NEAR(layout().labels[0].center.x, 200, 1e-9);
}

TEST_F(AxisLayoutTest, LabelsThatAreLeftOutLeaveTheRoundOnes) {
  const auto ends = [&](double lower, double upper, double interval) {
    space->setXRange({lower, upper - lower});
    axis.setMajorIntervalLength(interval);
    const auto all = texts(layout({260, 300}));
    return std::vector<std::string>{all.at(0), all.at(1)};
  };
  EXPECT_THAT(ends(0, 100, 10), ElementsAre("0.0", "20.0"));
  EXPECT_THAT(ends(10, 110, 10), ElementsAre("20.0", "40.0"));
  EXPECT_THAT(ends(-110, -10, 10), ElementsAre("-100.0", "-80.0"));
  // Ticks from another origin have no rounder ones among them.
  axis.setLabelingOrigin(3);
  EXPECT_THAT(ends(13, 113, 10), ElementsAre("13.0", "33.0"));
}

TEST_F(AxisLayoutTest, TimesOfDayThatAreLeftOutLeaveTheFullHours) {
  std::vector<std::shared_ptr<CPTAxisLabel>> times;
  for (int i = 0; i < 8; ++i)
    times.push_back(label(std::to_string(7 + (i + 1) / 4) + ":" + std::to_string((i + 1) % 4 * 15),
                          0.01 + i * 0.25));
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels(times);
  space->setXRange({0, 2});
  EXPECT_THAT(texts(layout({260, 300})).size(), 8u);
  EXPECT_THAT(texts(layout({180, 300})), ElementsAre("7:30", "8:0", "8:30", "9:0"));
  EXPECT_THAT(texts(layout({80, 300})), ElementsAre("8:0", "9:0"));
}

TEST_F(AxisLayoutTest, TimesOfDayThatAreLeftOutLeaveEvenPartsOfTheDay) {
  std::vector<std::shared_ptr<CPTAxisLabel>> times;
  for (int i = 0; i <= 18; ++i) times.push_back(label(std::to_string((11 + i) % 24) + ":00", i));
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels(times);
  space->setXRange({0, 18});
  EXPECT_THAT(texts(layout({260, 300})),
              ElementsAre("12:00", "15:00", "18:00", "21:00", "0:00", "3:00"));
}

TEST_F(AxisLayoutTest, NumbersAreRatherWholeThanTheTitle) {
  axis.setCoordinate(CPTCoordinate::Y);
  axis.setTitle("title");
  space->setYRange({0, 3e12});
  axis.setMajorIntervalLength(1e12);
  view = CGRect::make(-85, -50, 600, 500);
  EXPECT_THAT(texts(layout()).back(), "3\u00d71012");
  view = CGRect::make(-60, -50, 600, 500);
  EXPECT_GE(box(layout().labels.back()).minX(), -60);
  axis.setTitle(std::nullopt);
  view = CGRect::make(-150, -50, 600, 500);
  EXPECT_THAT(texts(layout()).back(), "3000000000000.0");
}

TEST_F(AxisLayoutTest, OnALogScaleLabelsBetweenTheDecadesAreTheFirstToGo) {
  space->setXScaleType(CPTScaleType::log);
  space->setXRange({2, 58});
  EXPECT_THAT(texts(layout()), ElementsAre("2.0", "5.0", "10.0", "20.0", "50.0"));
  EXPECT_THAT(texts(layout({60, 300})), ElementsAre("10.0"));
  space->setXRange({1e-7, 1e8});
  EXPECT_EQ(layout({800, 300}).labels.size(), 16u);
  const auto few = texts(layout({200, 300}));
  EXPECT_THAT(few, ElementsAre("10\u22125", "100", "105"));
}

TEST_F(AxisLayoutTest, WithoutAFormatterOrWithOneThatPrintsNothingThereAreNoLabels) {
  class Silent : public NSFormatter {
    std::string string(double) const override { return ""; }
  };
  axis.setLabelFormatter(std::make_shared<Silent>());
  EXPECT_THAT(layout().labels, IsEmpty());
  axis.setLabelFormatter(nullptr);
  EXPECT_THAT(layout().labels, IsEmpty());
  EXPECT_EQ(layout().majorTicks.size(), 5u);
}

TEST_F(AxisLayoutTest, LabelsStandOffsetPointsFromTheEndOfTheTicksOnTheirSide) {
  const struct {
    CPTSign ticks, labels;
    double nearEdge;
  } rows[] = {
      // The axis line is at 100, ticks are 10 long, the offset is 2.
      {CPTSign::negative, CPTSign::none, 88},     {CPTSign::positive, CPTSign::none, 112},
      {CPTSign::none, CPTSign::none, 93},         {CPTSign::none, CPTSign::positive, 107},
      {CPTSign::positive, CPTSign::negative, 98}, {CPTSign::negative, CPTSign::positive, 102},
      {CPTSign::negative, CPTSign::negative, 88},
  };
  axis.setMajorTickLength(10);
  axis.setOrthogonalPosition(1);
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y})
    for (const auto& row : rows) {
      axis.setCoordinate(coordinate);
      space->setXRange({0, 4});
      axis.setTickDirection(row.ticks);
      axis.setTickLabelDirection(row.labels);
      const AxisLayout placed = layout();
      ASSERT_FALSE(placed.labels.empty());
      const CGRect rect = box(placed.labels[0]);
      const bool alongX = coordinate == CPTCoordinate::X;
      const double low = alongX ? rect.minY() : rect.minX();
      const double high = alongX ? rect.maxY() : rect.maxX();
      EXPECT_NEAR(row.nearEdge < 100 ? high : low, row.nearEdge, 1e-9);
    }
}

TEST_F(AxisLayoutTest, WithoutTickLineStyleLabelsMoveUpToTheAxisLine) {
  axis.setMajorTickLineStyle(std::nullopt);
  axis.setTickDirection(CPTSign::negative);
  axis.setOrthogonalPosition(1);
  EXPECT_NEAR(box(layout().labels[0]).maxY(), 98, 1e-9);
}

TEST_F(AxisLayoutTest, LabelsAreCentredOnTheirTicks) {
  EXPECT_NEAR(layout().labels[1].center.x, 100, 1e-9);
  axis.setCoordinate(CPTCoordinate::Y);
  EXPECT_NEAR(layout().labels[1].center.y, 100, 1e-9);
}

TEST_F(AxisLayoutTest, ATurnedLabelKeepsTheDistanceOfItsUprightBox) {
  axis.setOrthogonalPosition(3);
  axis.setTickDirection(CPTSign::negative);
  axis.setLabelRotation(std::numbers::pi / 2);
  const AxisLayout placed = layout();
  const CGRect rect = box(placed.labels[2]);
  EXPECT_EQ(placed.labels[2].rotation, std::numbers::pi / 2);
  EXPECT_NEAR(rect.maxY(), 293, 1e-9);
  EXPECT_GT(rect.size.height, rect.size.width);
}

TEST_F(AxisLayoutTest, AHandMadeLabelHasItsOwnOffsetAndRotation) {
  const auto own = label("own", 2);
  own->setOffset(3);
  own->setRotation(1.5707962513);
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setTickDirection(CPTSign::positive);
  axis.setTickLabelDirection(CPTSign::negative);
  axis.setOrthogonalPosition(3);
  axis.setAxisLabels({own});
  const AxisLayout placed = layout();
  ASSERT_EQ(placed.labels.size(), 1u);
  EXPECT_EQ(placed.labels[0].content, own->contentLayer());
  EXPECT_EQ(placed.labels[0].rotation, 1.5707962513);
  EXPECT_NEAR(box(placed.labels[0]).maxY(), 297, 1e-6);
}

TEST_F(AxisLayoutTest, LabelsAreThinnedEvenlyUntilNoTwoTouch) {
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y})
    for (const double width : {2000.0, 400.0, 123.0, 60.0, 20.0, 5.0}) {
      axis.setCoordinate(coordinate);
      space->setXRange({0, 50});
      space->setYRange({0, 50});
      const AxisLayout placed = layout({width, width});
      ASSERT_FALSE(placed.labels.empty());
      for (std::size_t i = 1; i < placed.labels.size(); ++i) {
        const CGRect a = box(placed.labels[i - 1]), b = box(placed.labels[i]);
        EXPECT_TRUE(a.intersection(b).isEmpty()) << width;
      }
      EXPECT_EQ(placed.labels[0].content->text(), "0.0");
      if (placed.labels.size() < 3) continue;
      const double step = std::stod(placed.labels[1].content->text());
      EXPECT_EQ(std::stod(placed.labels[2].content->text()), 2 * step);
    }
}

TEST_F(AxisLayoutTest, WithRoomForAllLabelsNoneIsLeftOut) {
  EXPECT_EQ(layout().labels.size(), layout().majorTicks.size());
}

TEST_F(AxisLayoutTest, LabelsTakeTheLabelTextStyle) {
  const CPTTextStyle style{.fontSize = 9};
  axis.setLabelTextStyle(style);
  EXPECT_EQ(layout().labels[0].content->textStyle(), style);
  axis.setLabelTextStyle(std::nullopt);
  EXPECT_EQ(layout().labels[0].content->textStyle(), CPTTextStyle{});
}

// The title

TEST_F(AxisLayoutTest, WithoutTextThereIsNoTitle) {
  EXPECT_FALSE(layout().title);
  axis.setTitle("");
  EXPECT_FALSE(layout().title);
}

TEST_F(AxisLayoutTest, TheTitleStandsItsOffsetFromTheAxisLineInTheMiddle) {
  axis.setTitle("Charge");
  axis.setOrthogonalPosition(2);
  axis.setTickDirection(CPTSign::negative);
  const AxisLayout placed = layout();
  ASSERT_TRUE(placed.title);
  EXPECT_EQ(placed.title->rotation, 0);
  EXPECT_NEAR(placed.title->center.x, 200, 1e-9);
  EXPECT_NEAR(box(*placed.title).maxY(), 200 - 30, 1e-9);
}

TEST_F(AxisLayoutTest, TheTitleOfAYAxisRunsUpwards) {
  axis.setTitle("Charge");
  axis.setCoordinate(CPTCoordinate::Y);
  axis.setOrthogonalPosition(4);
  const AxisLayout placed = layout();
  ASSERT_TRUE(placed.title);
  EXPECT_EQ(placed.title->rotation, std::numbers::pi / 2);
  EXPECT_NEAR(placed.title->center.y, 150, 1e-9);
  EXPECT_NEAR(box(*placed.title).maxX(), 400 - 30, 1e-9);
}

TEST_F(AxisLayoutTest, TheTitleStandsOnTheSideItIsGiven) {
  const struct {
    CPTSign ticks, labels, title;
    bool above;
  } rows[] = {
      {CPTSign::none, CPTSign::none, CPTSign::none, false},
      {CPTSign::positive, CPTSign::none, CPTSign::none, true},
      {CPTSign::positive, CPTSign::negative, CPTSign::none, false},
      {CPTSign::negative, CPTSign::positive, CPTSign::none, true},
      {CPTSign::negative, CPTSign::negative, CPTSign::positive, true},
      {CPTSign::positive, CPTSign::positive, CPTSign::negative, false},
  };
  axis.setTitle("title");
  axis.setOrthogonalPosition(1.5);
  for (const auto& row : rows) {
    axis.setTickDirection(row.ticks);
    axis.setTickLabelDirection(row.labels);
    axis.setTitleDirection(row.title);
    const AxisLayout placed = layout();
    EXPECT_EQ(placed.title->center.y > placed.line, row.above);
  }
}

TEST_F(AxisLayoutTest, TheTitleKeepsClearOfLongLabels) {
  axis.setCoordinate(CPTCoordinate::Y);
  axis.setTitle("title");
  axis.setTitleOffset(5);
  space->setYRange({0, 3e9});
  axis.setMajorIntervalLength(1e9);
  const AxisLayout placed = layout();
  ASSERT_EQ(placed.labels.size(), 4u);
  for (const auto& one : placed.labels)
    EXPECT_TRUE(box(one).intersection(box(*placed.title)).isEmpty());
  EXPECT_GT(box(placed.labels[3]).minX() - box(*placed.title).maxX(), 0);
}

TEST_F(AxisLayoutTest, LabelsOnTheOtherSideDoNotPushTheTitleAway) {
  axis.setCoordinate(CPTCoordinate::Y);
  axis.setTitle("title");
  axis.setTitleOffset(5);
  axis.setTitleDirection(CPTSign::positive);
  axis.setOrthogonalPosition(0);
  EXPECT_NEAR(box(*layout().title).minX(), 5, 1e-9);
}

TEST_F(AxisLayoutTest, ATitleLongerThanItsAxisIsBrokenAtBlanks) {
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y}) {
    axis.setCoordinate(coordinate);
    axis.setTitle("Charge of the largest impacts of the year");
    const AxisLayout placed = layout({120, 120});
    const CGRect rect = box(*placed.title);
    const bool alongX = coordinate == CPTCoordinate::X;
    EXPECT_LE(alongX ? rect.size.width : rect.size.height, 120);
    EXPECT_GT(alongX ? rect.size.height : rect.size.width, 25);
    EXPECT_EQ(alongX ? rect.midX() : rect.midY(), 60);
    EXPECT_NEAR(alongX ? rect.maxY() : rect.maxX(), -30, 1e-9);
  }
}

TEST_F(AxisLayoutTest, ATitleThatTheViewWouldCutIsSetInSmallerType) {
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y}) {
    axis.setCoordinate(coordinate);
    axis.setTitle("Charge of the largest impacts");
    axis.setTickDirection(CPTSign::positive);
    axis.setTickLabelDirection(CPTSign::negative);
    space->setYRange({0, 3e6});
    axis.setMajorIntervalLength(coordinate == CPTCoordinate::X ? 1 : 1e6);
    axis.setLabelFormatter(coordinate == CPTCoordinate::X ? axis.labelFormatter()
                                                          : std::make_shared<NSNumberFormatter>());
    std::set<double> sizes;
    for (double room = 120; room >= 30; room -= 1) {
      view = CGRect::make(-room, -room, 600, 500);
      const AxisLayout placed = layout({110, 110});
      const CGRect title = box(*placed.title);
      const double outerEdge = coordinate == CPTCoordinate::X ? title.minY() : title.minX();
      const double size = placed.title->content->textStyle()->fontSize;
      sizes.insert(size);
      if (size > 0.71 * 12) {
        EXPECT_GE(outerEdge, -room - 1);
      }
      for (const auto& one : placed.labels) EXPECT_TRUE(box(one).intersection(title).isEmpty());
    }
    EXPECT_TRUE(sizes.contains(12));
    EXPECT_GE(sizes.size(), 2u);
  }
}

TEST_F(AxisLayoutTest, ATitleThatWouldLeaveTheViewMovesUpToTheLabels) {
  axis.setTitle("title");
  view = CGRect::make(-20, -40, 500, 400);
  const AxisLayout near = layout();
  EXPECT_NEAR(box(*near.title).minY(), -40, 1e-9);
  view = CGRect::make(-20, -20, 500, 400);
  const AxisLayout nearest = layout();
  EXPECT_LT(box(*nearest.title).minY(), -20);
  EXPECT_NEAR(box(*nearest.title).maxY(), box(nearest.labels[0]).minY() - 3, 1e-9);
  view = CGRect::make(-20, -20, 500, 340);
  axis.setTitleDirection(CPTSign::positive);
  axis.setOrthogonalPosition(3);
  EXPECT_NEAR(box(*layout().title).maxY(), 320, 1e-9);
  axis.setTitleOffset(kNaN);
  CGRecordingContext context;
  drawAxisTitle(context, layout(), std::nullopt);
  EXPECT_EQ(context.text(), "");
}

// The axis line

TEST_F(AxisLayoutTest, TheLineCrossesTheOtherCoordinateAtTheOrthogonalPosition) {
  axis.setOrthogonalPosition(2);
  EXPECT_NEAR(layout().line, 200, 1e-9);
  axis.setCoordinate(CPTCoordinate::Y);
  EXPECT_NEAR(layout().line, 200, 1e-9);
}

TEST_F(AxisLayoutTest, AnOrthogonalPositionOutsideTheRangeIsTheNearerEdge) {
  const struct {
    double position, line;
  } rows[] = {{kNaN, 0}, {-kInfinity, 0}, {kInfinity, 300}, {-1, 0}, {1e308, 300}, {4, 300}};
  for (const auto& row : rows) {
    axis.setOrthogonalPosition(row.position);
    EXPECT_EQ(layout().line, row.line) << row.position;
  }
}

TEST_F(AxisLayoutTest, OnALogScaleThePlaceOfZeroIsTheLowEdge) {
  space->setYRange({1, 99});
  space->setYScaleType(CPTScaleType::log);
  EXPECT_EQ(layout().line, 0);
}

TEST_F(AxisLayoutTest, ConstraintsPinTheLineAndWin) {
  axis.setOrthogonalPosition(2);
  const struct {
    CPTConstraints constraints;
    double line;
  } rows[] = {
      {CPTConstraints::constraintWithLowerOffset(kNaN), 0},
      {CPTConstraints::constraintWithUpperOffset(kInfinity), 0},
      {CPTConstraints::constraintWithLowerOffset(-10), -10},
      {CPTConstraints::constraintWithLowerOffset(0), 0},
      {CPTConstraints::constraintWithUpperOffset(0), 300},
      {CPTConstraints::constraintWithUpperOffset(20), 280},
      {CPTConstraints::constraintWithRelativeOffset(0.5), 150},
  };
  for (const auto& row : rows) {
    axis.setAxisConstraints(row.constraints);
    EXPECT_EQ(layout().line, row.line);
  }
}

// Drawing

TEST_F(AxisLayoutTest, TicksAndLineAreAlignedToPixelsAndTheCornersFilled) {
  axis.setMajorIntervalLength(4);
  axis.setTickDirection(CPTSign::negative);
  axis.setOrthogonalPosition(1);
  CGRecordingContext context;
  drawLineAndTicks(context, axis, layout());
  EXPECT_EQ(context.text(),
            "stroke #000000 width 1 cap square aligned: M 200 100 L 200 97\n"
            "stroke #000000 width 1 cap square aligned: M 0 100 L 0 95 M 400 100 L 400 95\n"
            "stroke #000000 width 1 cap square aligned: M 0 100 L 400 100\n");
}

TEST_F(AxisLayoutTest, TicksStandOnTheSideOfTheirDirectionOrHalfOnEither) {
  axis.setMajorIntervalLength(8);
  axis.setMinorTicksPerInterval(0);
  axis.setAxisLineStyle(std::nullopt);
  axis.setOrthogonalPosition(1);
  const auto drawn = [&](CPTSign direction) {
    axis.setTickDirection(direction);
    CGRecordingContext context;
    drawLineAndTicks(context, axis, layout());
    return context.text();
  };
  EXPECT_EQ(drawn(CPTSign::positive),
            "stroke #000000 width 1 cap square aligned: M 0 100 L 0 105\n");
  EXPECT_EQ(drawn(CPTSign::negative),
            "stroke #000000 width 1 cap square aligned: M 0 100 L 0 95\n");
  EXPECT_EQ(drawn(CPTSign::none), "stroke #000000 width 1 aligned: M 0 97.5 L 0 102.5\n");
  axis.setCoordinate(CPTCoordinate::Y);
  EXPECT_EQ(drawn(CPTSign::negative),
            "stroke #000000 width 1 cap square aligned: M 100 0 L 95 0\n");
}

TEST_F(AxisLayoutTest, GridLinesCrossTheWholePlotAreaAtTheirTicks) {
  axis.setMajorIntervalLength(2);
  axis.setMajorGridLineStyle(CPTLineStyle{.lineWidth = 0.5});
  axis.setMinorGridLineStyle(CPTLineStyle{.lineWidth = 0.25});
  CGRecordingContext major, minor;
  drawMajorGrid(major, axis, layout());
  drawMinorGrid(minor, axis, layout());
  EXPECT_EQ(
      major.text(),
      "stroke #000000 width 0.5 aligned: M 0 0 L 0 300 M 200 0 L 200 300 M 400 0 L 400 300\n");
  EXPECT_EQ(minor.text(),
            "stroke #000000 width 0.25 aligned: M 100 0 L 100 300 M 300 0 L 300 300\n");
}

TEST_F(AxisLayoutTest, WhatHasNoStyleIsNotDrawn) {
  axis.setAxisLineStyle(std::nullopt);
  axis.setMajorTickLineStyle(std::nullopt);
  axis.setMinorTickLineStyle(std::nullopt);
  CGRecordingContext context;
  drawLineAndTicks(context, axis, layout());
  drawMajorGrid(context, axis, layout());
  drawMinorGrid(context, axis, layout());
  EXPECT_EQ(context.text(), "");
}

}  // namespace
}  // namespace vexel
