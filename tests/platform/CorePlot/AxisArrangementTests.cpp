#include <AxisArrangement.h>

#include <CoreGraphics/CGNullContext.h>
#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTDump.h>
#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/CorePlot/Charts.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// By more than the padding around texts.
bool overlap(const CGRect& a, const CGRect& b) {
  const CGSize common = a.intersection(b).size;
  return std::min(common.width, common.height) > 1;
}

class AxisArrangementTest : public testing::Test {
 protected:
  AxisArrangementTest() {
    graph->setPadding(80);
    for (const auto& axis : axesOf(*graph)->axes()) {
      axis->setMajorIntervalLength(0.25);
      axis->setTickDirection(CPTSign::positive);
      axis->setTickLabelDirection(CPTSign::negative);
      axis->setTitleDirection(CPTSign::negative);
    }
  }

  /// An axis as an upper or right one is made: labels outside, ticks inside.
  std::shared_ptr<CPTXYAxis> add(CPTCoordinate coordinate, const std::string& title = {}) {
    const auto axis = std::make_shared<CPTXYAxis>();
    axis->setCoordinate(coordinate);
    axis->setPlotSpace(spaceOf(*graph));
    axis->setMajorIntervalLength(0.25);
    axis->setMajorTickLength(10);
    axis->setTickDirection(CPTSign::negative);
    axis->setTickLabelDirection(CPTSign::positive);
    axis->setTitleDirection(CPTSign::positive);
    axis->setTitle(title);
    auto axes = axesOf(*graph)->axes();
    axes.push_back(axis);
    axesOf(*graph)->setAxes(axes);
    return axis;
  }

  AxisLayout layoutOf(const std::shared_ptr<CPTXYAxis>& axis) {
    for (const auto& member : AxisArrangement(*graph).axes)
      if (member.axis == axis) return member.layout;
    ADD_FAILURE() << "the axis is not there";
    return {};
  }

  std::vector<CGRect> textBoxes() {
    std::vector<CGRect> boxes;
    for (const auto& [axis, layout] : AxisArrangement(*graph).axes) {
      for (const auto& label : layout.labels) boxes.push_back(label.box());
      if (layout.title) boxes.push_back(layout.title->box());
    }
    return boxes;
  }

  void expectNoTextOnAnother() {
    const auto boxes = textBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i)
      for (std::size_t j = i + 1; j < boxes.size(); ++j) {
        const CGSize common = boxes[i].intersection(boxes[j]).size;
        EXPECT_TRUE(common.width < 1e-9 || common.height < 1e-9)
            << i << " and " << j << ": " << common.width << " x " << common.height;
      }
  }

  /// The plot area is 340 by 240.
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(5, 6, 500, 400));
  std::shared_ptr<CPTXYAxis> x = axesOf(*graph)->xAxis();
  std::shared_ptr<CPTXYAxis> y = axesOf(*graph)->yAxis();
};

TEST_F(AxisArrangementTest, OfAGraphThatLacksPartsIsEmpty) {
  x->setHidden(true);
  EXPECT_EQ(AxisArrangement(*graph).axes.size(), 1u);
  axesOf(*graph)->setHidden(true);
  EXPECT_THAT(AxisArrangement(*graph).axes, IsEmpty());
  graph->setAxisSet(nullptr);
  EXPECT_THAT(AxisArrangement(*graph).axes, IsEmpty());
  graph->setAxisSet(std::make_shared<CPTXYAxisSet>());
  graph->plotAreaFrame()->setPlotArea(nullptr);
  EXPECT_THAT(AxisArrangement(*graph).axes, IsEmpty());
  graph->setPlotAreaFrame(nullptr);
  EXPECT_THAT(AxisArrangement(*graph).axes, IsEmpty());
}

TEST_F(AxisArrangementTest, KnowsTheGraphAroundThePlotArea) {
  const AxisArrangement arrangement(*graph);
  EXPECT_EQ(arrangement.surroundings.plotArea, (CGSize{340, 240}));
  EXPECT_EQ(arrangement.surroundings.view, CGRect::make(-80, -80, 500, 400));
  graph->plotAreaFrame()->setPaddingLeft(7);
  EXPECT_EQ(AxisArrangement(*graph).surroundings.view, CGRect::make(-87, -80, 500, 400));
}

// Where axes stand

TEST_F(AxisArrangementTest, FurtherAxesForTheOtherSideStandThere) {
  EXPECT_EQ(layoutOf(add(CPTCoordinate::Y)).line, 340);
  EXPECT_EQ(layoutOf(add(CPTCoordinate::X)).line, 240);
  EXPECT_EQ(layoutOf(x).line, 0);
  EXPECT_EQ(layoutOf(y).line, 0);
}

TEST_F(AxisArrangementTest, TheSideOfTheTicksCountsWhenLabelsHaveNone) {
  const auto right = add(CPTCoordinate::Y);
  right->setTickLabelDirection(CPTSign::none);
  EXPECT_LT(layoutOf(right).line, 0) << "outside the first axis";
  right->setTickDirection(CPTSign::positive);
  EXPECT_EQ(layoutOf(right).line, 340);
}

TEST_F(AxisArrangementTest, FirstAxesStayWhateverTheirSide) {
  y->setTickLabelDirection(CPTSign::positive);
  EXPECT_EQ(layoutOf(y).line, 0);
  y->setHidden(true);
  const auto right = add(CPTCoordinate::Y);
  EXPECT_EQ(layoutOf(right).line, 340);
  axesOf(*graph)->setAxes({right});
  EXPECT_EQ(layoutOf(right).line, 0);
}

TEST_F(AxisArrangementTest, FurtherAxesThatArePinnedStandWhereTheyArePinned) {
  const auto right = add(CPTCoordinate::Y);
  right->setOrthogonalPosition(0);
  EXPECT_EQ(layoutOf(right).line, 0);
  right->setOrthogonalPosition(0.5);
  EXPECT_EQ(layoutOf(right).line, 170);
  right->setAxisConstraints(CPTConstraints::constraintWithUpperOffset(40));
  EXPECT_EQ(layoutOf(right).line, 300);
}

TEST_F(AxisArrangementTest, SeveralAxesOfASideStandOutsideEachOther) {
  for (const auto coordinate : {CPTCoordinate::X, CPTCoordinate::Y}) {
    const auto first = add(coordinate, "first");
    const auto second = add(coordinate, "second");
    const auto third = add(coordinate);
    double outer = coordinate == CPTCoordinate::X ? 240 : 340;
    EXPECT_EQ(layoutOf(first).line, outer);
    for (const auto& pair : {std::pair{first, second}, std::pair{second, third}}) {
      const CGRect title = layoutOf(pair.first).title->box();
      const double titleEnd = coordinate == CPTCoordinate::X ? title.maxY() : title.maxX();
      // Its ticks reach back by 10.
      EXPECT_NEAR(layoutOf(pair.second).line, titleEnd + 6 + 10, 1e-9);
    }
    expectNoTextOnAnother();
  }
}

TEST_F(AxisArrangementTest, AxesPinnedToTheSamePlaceStandOutsideEachOtherToo) {
  const auto edge = CPTConstraints::constraintWithUpperOffset(0);
  const auto first = add(CPTCoordinate::Y);
  const auto second = add(CPTCoordinate::Y);
  first->setAxisConstraints(edge);
  second->setAxisConstraints(edge);
  EXPECT_EQ(layoutOf(first).line, 340);
  EXPECT_GT(layoutOf(second).line, 340 + 20);
  second->setAxisConstraints(CPTConstraints::constraintWithUpperOffset(-60));
  EXPECT_EQ(layoutOf(second).line, 400);
  expectNoTextOnAnother();
}

TEST_F(AxisArrangementTest, AxesThatShowNothingOutsideShareTheirPlace) {
  const auto first = add(CPTCoordinate::Y);
  const auto second = add(CPTCoordinate::Y);
  second->setLabelFormatter(nullptr);
  EXPECT_EQ(layoutOf(second).line, 340);
  first->setLabelFormatter(nullptr);
  second->setLabelFormatter(x->labelFormatter());
  EXPECT_EQ(layoutOf(second).line, 340);
  second->setTickLabelDirection(CPTSign::negative);
  second->setOrthogonalPosition(1);
  first->setLabelFormatter(x->labelFormatter());
  EXPECT_EQ(layoutOf(second).line, 340);
}

// Labels of different axes

TEST_F(AxisArrangementTest, LabelsAtTheCornersOfAxesDoNotOverlap) {
  add(CPTCoordinate::Y, "right");
  add(CPTCoordinate::X, "upper");
  x->setTitle("lower");
  y->setTitle("left");
  for (const double size : {9.0, 12.0, 14.0, 24.0})
    for (const double interval : {1.0, 0.25, 0.125}) {
      for (const auto& axis : axesOf(*graph)->axes()) {
        axis->setLabelTextStyle(CPTTextStyle{.fontSize = size});
        axis->setMajorIntervalLength(interval);
      }
      expectNoTextOnAnother();
      for (const auto& [axis, layout] : AxisArrangement(*graph).axes)
        EXPECT_GE(layout.labels.size(), 2u) << size;
    }
}

TEST_F(AxisArrangementTest, ACornerIsClearedByTheShorterWay) {
  const auto texts = [](const AxisLayout& layout, double place) {
    return layout.coordinate == CPTCoordinate::X ? layout.labels[0].center.x - place
                                                 : layout.labels[0].center.y - place;
  };
  x->setMajorIntervalLength(1);
  y->setMajorIntervalLength(1);
  // Both labels say 0.0: the boxes share more of their width than of their height.
  EXPECT_EQ(texts(layoutOf(x), 0), 0);
  EXPECT_GT(texts(layoutOf(y), 0), 0);
  const auto whole = std::make_shared<NSNumberFormatter>();
  x->setLabelFormatter(whole);
  EXPECT_GT(texts(layoutOf(x), 0), 0);
  EXPECT_EQ(texts(layoutOf(y), 0), 0);
  // A label that lies across the whole of the other one.
  const auto words = std::make_shared<CPTAxisLabel>("2001-001 10:20:30");
  x->setLabelingPolicy(CPTAxisLabelingPolicy::none);
  x->setAxisLabels({words});
  EXPECT_EQ(texts(layoutOf(x), 0), 0);
  EXPECT_GT(texts(layoutOf(y), 0), 0);
  expectNoTextOnAnother();
}

TEST_F(AxisArrangementTest, NoLineRunsThroughALabelOfAnotherAxis) {
  spaceOf(*graph)->setXRange({-1, 2});
  spaceOf(*graph)->setYRange({-1, 2});
  const AxisArrangement arrangement(*graph);
  ASSERT_EQ(arrangement.axes.size(), 2u);
  for (const auto& label : arrangement.axes[0].layout.labels)
    EXPECT_TRUE(label.box().minX() >= 170 || label.box().maxX() <= 170);
  for (const auto& label : arrangement.axes[1].layout.labels)
    EXPECT_TRUE(label.box().minY() >= 120 || label.box().maxY() <= 120);
  EXPECT_EQ(arrangement.axes[0].layout.labels.size(), 9u);
  EXPECT_EQ(arrangement.axes[1].layout.labels.size(), 9u);
  expectNoTextOnAnother();
  y->setAxisLineStyle(std::nullopt);
  EXPECT_NEAR(layoutOf(x).labels[4].center.x, 170, 1e-9);
}

TEST_F(AxisArrangementTest, LabelsThatCannotMoveAreLeftOut) {
  y->setMajorIntervalLength(0.05);
  y->setLabelTextStyle(CPTTextStyle{.fontSize = 11});
  x->setLabelTextStyle(CPTTextStyle{.fontSize = 40});
  expectNoTextOnAnother();
}

TEST_F(AxisArrangementTest, AtUsualPaddingsNothingLeavesTheView) {
  for (const double padding : {0.0, 20.0, 60.0}) {
    graph->setPadding(0);
    graph->setPaddingLeft(70);
    graph->setPaddingBottom(50);
    graph->setPaddingTop(padding);
    graph->setPaddingRight(padding);
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    x->setTitle("Time");
    y->setTitle("A title that is far longer than the axis can be, so it comes in lines");
    const CGRect view = AxisArrangement(*graph).surroundings.view;
    for (const CGRect& box : textBoxes()) {
      EXPECT_GE(box.minX(), view.minX() - 1e-9);
      EXPECT_GE(box.minY(), view.minY() - 1e-9);
      EXPECT_LE(box.maxX(), view.maxX() + 1e-9);
      EXPECT_LE(box.maxY(), view.maxY() + 1e-9);
    }
  }
}

TEST_F(AxisArrangementTest, TheTitleOfTheGraphStandsClearOfUpperAxes) {
  const auto upper = add(CPTCoordinate::X, "upper");
  upper->setTitleOffset(100);
  graph->setTitle("Impacts");
  const CGFloat titleHeight = graph->titleFrame().size.height;
  for (double padding = 80; padding >= 0; padding -= 1) {
    graph->setPaddingTop(padding);
    const AxisArrangement arrangement(*graph);
    const CGRect& title = arrangement.surroundings.graphTitle;
    const AxisLayout layout = layoutOf(upper);
    ASSERT_FALSE(layout.labels.empty());
    const CGRect label = layout.labels[2].box();
    // Labels before the title of the graph before the title of the axis.
    EXPECT_EQ(arrangement.showsGraphTitle, !overlap(label, title)) << padding;
    if (arrangement.showsGraphTitle && layout.title) {
      EXPECT_FALSE(overlap(layout.title->box(), title)) << padding;
      EXPECT_GE(layout.title->box().minY(), label.maxY()) << padding;
    }
    const std::string drawing = recorded(*graph);
    EXPECT_EQ(drawing.find("Impacts") != std::string::npos, arrangement.showsGraphTitle) << padding;
    EXPECT_EQ(drawing.find("upper") != std::string::npos, layout.title.has_value()) << padding;
    const double labelReach = label.maxY() - arrangement.surroundings.plotArea.height;
    const bool hasRoomForAll = padding >= labelReach + 3 + titleHeight + titleHeight + 2;
    if (hasRoomForAll) {
      ASSERT_TRUE(layout.title) << padding;
      EXPECT_EQ(layout.title->content->textStyle()->fontSize, 12) << padding;
    }
  }
}

TEST_F(AxisArrangementTest, TheTitleOfTheGraphLeavesOtherAxesWhereTheyAre) {
  graph->setPaddingTop(20);
  const CGRect before = layoutOf(y).labels.back().box();
  graph->setTitle("Impacts");
  EXPECT_EQ(layoutOf(y).labels.back().box(), before);
  EXPECT_TRUE(AxisArrangement(*graph).showsGraphTitle);
  axesOf(*graph)->setHidden(true);
  EXPECT_TRUE(AxisArrangement(*graph).showsGraphTitle);
  graph->setTitle("");
  EXPECT_FALSE(AxisArrangement(*graph).showsGraphTitle);
}

TEST_F(AxisArrangementTest, LogAxesHaveLabelledDecadesOnEverySide) {
  add(CPTCoordinate::Y);
  add(CPTCoordinate::X);
  const auto space = spaceOf(*graph);
  space->setXScaleType(CPTScaleType::log);
  space->setYScaleType(CPTScaleType::log);
  space->setXRange({1e-3, 1e3});
  space->setYRange({1e-3, 1e3});
  const AxisArrangement arrangement(*graph);
  ASSERT_EQ(arrangement.axes.size(), 4u);
  for (const auto& [axis, layout] : arrangement.axes) {
    EXPECT_EQ(layout.labels.size(), 7u);
    EXPECT_EQ(layout.labels[0].content->text(), "10\u22123");
    EXPECT_EQ(layout.labels[3].content->text(), "100");
  }
  expectNoTextOnAnother();
}

// Themes

TEST_F(AxisArrangementTest, AxesThatJoinAThemedGraphTakeItsTextWhereTheyHaveNoneOfTheirOwn) {
  graph->applyTheme(CPTTheme::themeNamed(kCPTPlainBlackTheme));
  const CPTTextStyle themed{.fontSize = 14, .color = CPTColor::whiteColor()};
  const auto plain = add(CPTCoordinate::Y);
  EXPECT_EQ(plain->labelTextStyle(), themed);
  EXPECT_EQ(plain->titleTextStyle(), themed);
  EXPECT_EQ(plain->axisLineStyle(), CPTLineStyle{});
  EXPECT_EQ(plain->majorTickLength(), 10);

  const auto styled = std::make_shared<CPTXYAxis>();
  const CPTTextStyle own{.fontSize = 9};
  styled->setLabelTextStyle(own);
  styled->setTitleTextStyle(std::nullopt);
  axesOf(*graph)->setAxes({x, y, plain, styled});
  EXPECT_EQ(styled->labelTextStyle(), own);
  EXPECT_EQ(styled->titleTextStyle(), std::nullopt);

  plain->setLabelTextStyle(CPTTextStyle{});
  axesOf(*graph)->setAxes({x, y, plain});
  EXPECT_EQ(plain->labelTextStyle(), CPTTextStyle{}) << "it has not joined anew";
}

TEST_F(AxisArrangementTest, AxesThatJoinAGraphWithoutThemeStayAsTheyAre) {
  const auto axis = add(CPTCoordinate::Y);
  EXPECT_EQ(axis->labelTextStyle(), CPTTextStyle{});
  EXPECT_EQ(axis->titleTextStyle(), CPTTextStyle{});
}

// Delegates

class Listener : public CPTAxisDelegate {
 public:
  explicit Listener(std::function<void(CPTAxis&)> action = [](CPTAxis&) {})
      : action_(std::move(action)) {}
  void axisDidRelabel(CPTAxis& axis) override {
    told.push_back(&axis);
    action_(axis);
  }

  std::vector<CPTAxis*> told;

 private:
  std::function<void(CPTAxis&)> action_;
};

TEST_F(AxisArrangementTest, DelegatesAreToldOfEachPlacementForADisplay) {
  Listener listener;
  x->setDelegate(&listener);
  CGNullContext context;
  dump(*graph);
  EXPECT_THAT(listener.told, IsEmpty());
  graph->displayChart(context);
  EXPECT_THAT(listener.told, ElementsAre(x.get()));
  graph->displayChart(context);
  EXPECT_THAT(listener.told, ElementsAre(x.get())) << "nothing has moved";
  spaceOf(*graph)->setXRange({0, 2});
  graph->displayChart(context);
  graph->setFrame(CGRect::make(0, 0, 600, 400));
  graph->displayChart(context);
  y->setTitle("new");
  graph->displayChart(context);
  EXPECT_EQ(listener.told.size(), 4u);
  x->setHidden(true);
  graph->displayChart(context);
  EXPECT_EQ(listener.told.size(), 4u);
}

TEST_F(AxisArrangementTest, ADelegateMayRemoveTheAxis) {
  Listener listener([&](CPTAxis&) { axesOf(*graph)->setAxes({y}); });
  x->setDelegate(&listener);
  x->setTitle("Time");
  x = nullptr;
  const std::string drawing = recorded(*graph);
  EXPECT_EQ(listener.told.size(), 1u);
  EXPECT_EQ(drawing.find("Time"), std::string::npos);
  EXPECT_EQ(recorded(*graph).find("Time"), std::string::npos);
}

TEST_F(AxisArrangementTest, ADelegateMayRemoveTheAxisSet) {
  Listener listener([&](CPTAxis&) { graph->setAxisSet(nullptr); });
  y->setDelegate(&listener);
  x = y = nullptr;
  EXPECT_THAT(calls(recorded(*graph), {"text"}), IsEmpty());
  EXPECT_THAT(calls(recorded(*graph), {"text"}), IsEmpty());
}

TEST_F(AxisArrangementTest, WhatADelegateChangesShowsAtOnce) {
  Listener listener([&](CPTAxis& axis) { axis.setTitle("changed"); });
  x->setDelegate(&listener);
  EXPECT_NE(recorded(*graph).find("changed"), std::string::npos);
}

TEST_F(AxisArrangementTest, ADelegateOfAnotherKindIsNotTold) {
  CALayerDelegate delegate;
  x->setDelegate(&delegate);
  CGNullContext context;
  graph->displayChart(context);
}

// Any figure

RC_GTEST_FIXTURE_PROP(AxisArrangementTest, NoTextLiesOnAnotherOrOutsideAtUsualPaddings, ()) {
  const auto between = [](int low, int high) { return *rc::gen::inRange(low, high + 1); };
  const int rightAxes = between(0, 2);
  const bool hasUpper = *rc::gen::arbitrary<bool>();
  graph->setFrame(CGRect::make(0, 0, between(400, 1000), between(250, 700)));
  graph->setPaddingLeft(between(80, 110));
  graph->setPaddingBottom(between(60, 80));
  graph->setPaddingTop(hasUpper ? between(70, 90) : between(30, 60));
  graph->setPaddingRight(30 + 85 * rightAxes);
  if (*rc::gen::arbitrary<bool>()) graph->setTitle("Impacts of a year");

  const auto space = spaceOf(*graph);
  const auto chooseScale = [&](CPTCoordinate coordinate) {
    const bool logarithmic = *rc::gen::arbitrary<bool>();
    const double magnitude = std::pow(10, between(-12, 6));
    const CPTPlotRange range =
        logarithmic ? CPTPlotRange(magnitude, magnitude * std::pow(10, between(0, 12)))
                    : CPTPlotRange(magnitude * between(-50, 50), magnitude * between(1, 50));
    if (coordinate == CPTCoordinate::X) {
      space->setXRange(range);
      space->setXScaleType(logarithmic ? CPTScaleType::log : CPTScaleType::linear);
    } else {
      space->setYRange(range);
      space->setYScaleType(logarithmic ? CPTScaleType::log : CPTScaleType::linear);
    }
    return niceInterval(range.lengthDouble(), between(2, 12));
  };
  const double intervals[] = {chooseScale(CPTCoordinate::X), chooseScale(CPTCoordinate::Y)};
  for (int i = 0; i < rightAxes; ++i) add(CPTCoordinate::Y);
  if (hasUpper) add(CPTCoordinate::X);
  const double fontSize = between(9, 14);
  const std::string titles[] = {"", "Charge [fC]", "Charge of the largest impacts of a year [fC]"};
  x->setAxisConstraints(CPTConstraints::constraintWithLowerOffset(0));
  y->setAxisConstraints(CPTConstraints::constraintWithLowerOffset(0));
  for (const auto& axis : axesOf(*graph)->axes()) {
    axis->setMajorIntervalLength(intervals[axis->coordinate() == CPTCoordinate::X ? 0 : 1]);
    axis->setLabelTextStyle(CPTTextStyle{.fontSize = fontSize});
    axis->setTitleTextStyle(CPTTextStyle{.fontSize = fontSize});
    axis->setTitleOffset(between(20, 50));
    axis->setTitle(titles[between(0, 2)]);
  }

  const AxisArrangement arrangement(*graph);
  const CGRect view = arrangement.surroundings.view;
  auto boxes = textBoxes();
  for (const CGRect& box : boxes) {
    RC_ASSERT(box.minX() >= view.minX() - 1 && box.maxX() <= view.maxX() + 1);
    RC_ASSERT(box.minY() >= view.minY() - 1 && box.maxY() <= view.maxY() + 1);
  }
  if (graph->title()) RC_ASSERT(arrangement.showsGraphTitle);
  if (graph->title()) boxes.push_back(arrangement.surroundings.graphTitle);
  for (std::size_t i = 0; i < boxes.size(); ++i)
    for (std::size_t j = i + 1; j < boxes.size(); ++j) RC_ASSERT(!overlap(boxes[i], boxes[j]));
  for (const auto& [axis, layout] : arrangement.axes) {
    const bool hasTitle = axis->title() && !axis->title()->empty();
    RC_ASSERT(layout.title.has_value() == hasTitle);
    RC_ASSERT(layout.labels.size() >= std::min<std::size_t>(layout.majorTicks.size(), 1));
  }
}

}  // namespace
}  // namespace vexel
