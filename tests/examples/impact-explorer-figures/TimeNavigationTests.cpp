#include "TimeNavigation.h"

#include <gtest/gtest.h>

#include <limits>

namespace explorer {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(TimeNavigation, AWholeThatIsNoSpanBecomesOne) {
  for (const TimeSpan& none : {TimeSpan{0, kNaN}, TimeSpan{-kInfinity, 5}, TimeSpan{7, 7},
                               TimeSpan{8, 7}, TimeSpan{-1e308, 1e308}})
    EXPECT_EQ(TimeNavigation(none).shown(), (TimeSpan{0, 1}));
}

struct Wanted {
  TimeSpan wanted, shown;
};

TEST(TimeNavigation, ShowsWhatIsInsideTheWhole) {
  const Wanted cases[] = {
      {{kNaN, 50}, {0, 100}},        {{10, kInfinity}, {0, 100}}, {{-1e308, 1e308}, {0, 100}},
      {{20, 60}, {20, 60}},          {{60, 20}, {20, 60}},        {{-10, 30}, {0, 40}},
      {{70, 130}, {40, 100}},        {{-50, 250}, {0, 100}},      {{500, 510}, {90, 100}},
      {{-1e300, -1e300}, {0, 1e-4}},
  };
  for (const auto& [wanted, shown] : cases) {
    TimeNavigation time({0, 100});
    time.show(wanted);
    EXPECT_DOUBLE_EQ(time.shown().start, shown.start) << wanted.start;
    EXPECT_NEAR(time.shown().end, shown.end, 1e-12) << wanted.end;
  }
}

struct Zoom {
  double about, factor;
  TimeSpan shown;
};

TEST(TimeNavigation, ZoomsAboutAPlaceThatStays) {
  const Zoom cases[] = {
      {kNaN, 0.5, {0, 100}}, {50, kNaN, {0, 100}},      {50, 0, {0, 100}},
      {50, -1, {0, 100}},    {50, kInfinity, {0, 100}}, {50, 0.5, {25, 75}},
      {0, 0.5, {0, 50}},     {100, 0.25, {75, 100}},    {20, 0.1, {18, 28}},
      {-40, 0.5, {0, 50}},   {1e300, 0.5, {50, 100}},   {30, 4, {0, 100}},
  };
  for (const auto& [about, factor, shown] : cases) {
    TimeNavigation time({0, 100});
    time.zoom(about, factor);
    EXPECT_DOUBLE_EQ(time.shown().start, shown.start) << about << ' ' << factor;
    EXPECT_DOUBLE_EQ(time.shown().end, shown.end) << about << ' ' << factor;
  }
}

TEST(TimeNavigation, ZoomsNoFurtherThanTimesCanBeToldApart) {
  for (const TimeSpan& whole : {TimeSpan{0, 100}, TimeSpan{2459000, 2460000},
                                TimeSpan{2459000, 2459000 + 1e-8}, TimeSpan{-1e300, 1e300}}) {
    TimeNavigation time(whole);
    for (int i = 0; i < 2000; ++i) time.zoom(whole.start + (whole.end - whole.start) / 3, 0.7);
    const auto [start, end] = time.shown();
    EXPECT_LT(start, end);
    EXPECT_GE(start, whole.start);
    EXPECT_LE(end, whole.end);
    EXPECT_GE(end - start, 0.999 * TimeNavigation::kShortest * (whole.end - whole.start));
    EXPECT_LT(start, start + (end - start) / 10);
    EXPECT_FALSE(time.zoom(start, 0.5));
    for (int i = 0; i < 3000; ++i) time.zoom(start, 1.5);
    EXPECT_EQ(time.shown(), whole);
  }
}

TEST(TimeNavigation, ZoomsNoFurtherThanItIsTold) {
  for (const double shortest : {kNaN, -5.0, 0.0, 1e-9}) {
    TimeNavigation time({0, 100}, shortest);
    time.zoom(50, 1e-9);
    EXPECT_NEAR(time.shown().end - time.shown().start, 1e-4, 1e-12) << shortest;
  }
  TimeNavigation time({0, 100}, 20);
  time.zoom(50, 0.01);
  EXPECT_EQ(time.shown(), (TimeSpan{40, 60}));
  TimeNavigation fixed({0, 100}, 500);
  EXPECT_FALSE(fixed.zoom(50, 0.01));
}

TEST(TimeNavigation, PansToTheEndsAndKeepsTheLength) {
  TimeNavigation time({0, 100});
  EXPECT_FALSE(time.pan(10));
  time.show({40, 60});
  EXPECT_TRUE(time.pan(15));
  EXPECT_EQ(time.shown(), (TimeSpan{55, 75}));
  EXPECT_TRUE(time.pan(1e9));
  EXPECT_EQ(time.shown(), (TimeSpan{80, 100}));
  EXPECT_FALSE(time.pan(1));
  EXPECT_TRUE(time.pan(-1e9));
  EXPECT_EQ(time.shown(), (TimeSpan{0, 20}));
  EXPECT_FALSE(time.pan(kNaN));
}

TEST(TimeNavigation, GoesBackAndForwardByGestures) {
  TimeNavigation time({0, 100});
  EXPECT_FALSE(time.back());
  EXPECT_FALSE(time.forward());
  time.show({10, 60});
  time.show({20, 50});
  time.beginGesture();
  time.show({30, 40});
  EXPECT_TRUE(time.back());
  EXPECT_EQ(time.shown(), (TimeSpan{20, 50}));
  EXPECT_TRUE(time.back());
  EXPECT_EQ(time.shown(), (TimeSpan{0, 100}));
  EXPECT_FALSE(time.canGoBack());
  EXPECT_TRUE(time.forward());
  EXPECT_TRUE(time.forward());
  EXPECT_EQ(time.shown(), (TimeSpan{30, 40}));
  EXPECT_FALSE(time.canGoForward());
}

TEST(TimeNavigation, AStepAfterGoingBackReplacesWhatCameAfter) {
  TimeNavigation time({0, 100});
  time.show({10, 60});
  time.beginGesture();
  time.show({20, 30});
  time.back();
  time.show({70, 80});
  EXPECT_FALSE(time.canGoForward());
  time.back();
  EXPECT_EQ(time.shown(), (TimeSpan{10, 60}));
}

TEST(TimeNavigation, ShowingAllIsAStepOfItsOwn) {
  TimeNavigation time({0, 100});
  EXPECT_FALSE(time.showAll());
  time.show({10, 60});
  EXPECT_TRUE(time.showAll());
  EXPECT_EQ(time.shown(), (TimeSpan{0, 100}));
  time.back();
  EXPECT_EQ(time.shown(), (TimeSpan{10, 60}));
}

TEST(TimeNavigation, ForgetsTheOldestOfManySteps) {
  TimeNavigation time({0, 1000});
  for (int i = 1; i < 500; ++i) {
    time.beginGesture();
    time.show({static_cast<double>(i), static_cast<double>(i) + 10});
  }
  std::size_t steps = 0;
  while (time.back()) ++steps;
  EXPECT_EQ(steps, TimeNavigation::kLongestHistory - 1);
  EXPECT_EQ(time.shown().start, 400);
}

}  // namespace
}  // namespace explorer
