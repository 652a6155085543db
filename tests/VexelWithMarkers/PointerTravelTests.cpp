#include <AppKit/NSWindow.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "VexelWithMarkers/MarkerPlot.h"

namespace vexel {
namespace {

constexpr double kEpsilon = std::numeric_limits<double>::epsilon();

/// From `lower` to `upper`, whatever size the case has.
double between(double lower, double upper) {
  const int part = *rc::gen::inRange(0, 1'000'001);
  return lower + (upper - lower) * part / 1e6;
}

/// A view that hands every event it gets to a function.
class EventView : public NSView {
 public:
  using NSView::NSView;
  void mouseMoved(const NSEvent& event) override { got = event; }
  std::optional<NSEvent> got;
};

/// A range with a scale on it that shows something.
struct Visible {
  CPTPlotRange range;
  CPTScaleType scale;
};

Visible randomRange() {
  const bool reversed = *rc::gen::arbitrary<bool>();
  if (*rc::gen::arbitrary<bool>()) {
    const double length = std::pow(10, between(-12, 12));
    const double location = between(-3, 3) * length;
    return {reversed ? CPTPlotRange(location, -length) : CPTPlotRange(location, length),
            CPTScaleTypeLinear};
  }
  const double lower = std::pow(10, between(-30, 30));
  const double upper = lower * std::pow(10, between(0.1, 12));
  return {reversed ? CPTPlotRange(upper, lower - upper) : CPTPlotRange(lower, upper - lower),
          CPTScaleTypeLog};
}

/// How far a value may be off when its place in points is off by `points`.
double tolerance(const Visible& visible, double value, double extent, double points) {
  const double location = visible.range.locationDouble(), length = visible.range.lengthDouble();
  if (visible.scale == CPTScaleTypeLinear)
    return std::abs(length) / extent * points +
           8 * kEpsilon * (std::abs(location) + std::abs(length));
  const double span = std::abs(std::log(visible.range.endDouble() / location));
  return std::abs(value) * (span / extent * points + 64 * kEpsilon * (1 + span));
}

double valueAt(const Visible& visible, double fraction) {
  const double location = visible.range.locationDouble();
  if (visible.scale == CPTScaleTypeLinear)
    return location + fraction * visible.range.lengthDouble();
  return location * std::pow(visible.range.endDouble() / location, fraction);
}

RC_GTEST_PROP(RandomPointerTravel, APointOfTheDataComesBackFromTheWindowThroughAnEvent, ()) {
  const auto window = std::make_shared<NSWindow>(CGSize{between(300, 2000), between(300, 2000)});
  std::shared_ptr<NSView> parent = window->contentView();
  for (int depth = *rc::gen::inRange(0, 4); depth > 0; --depth) {
    auto nested = std::make_shared<NSView>(
        CGRect::make(between(-50, 50), between(-50, 50), between(200, 1500), between(200, 1500)));
    parent->addSubview(nested);
    parent->setBoundsOrigin({between(-40, 40), between(-40, 40)});
    parent = nested;
  }
  const auto host = std::make_shared<NSView>(
      CGRect::make(between(-20, 20), between(-20, 20), between(200, 1500), between(400, 1500)));
  parent->addSubview(host);
  MarkerPlot plot;
  plot.initPlot(host, PlotTheme::white);
  const int bands = *rc::gen::inRange(1, 5);
  plot.setViews(bands, between(0, 30), between(0, 30));
  const auto padding = [] {
    return std::vector{between(0, 12), between(0, 12), between(0, 12), between(0, 12)};
  };
  for (const auto& view : plot.hostingViews())
    plot.graphs().push_back(plot.format(view, padding(), padding()));
  window->contentView()->layoutSubtreeIfNeeded();
  host->setFrameOrigin({between(-30, 30), between(-30, 30)});

  const int index = *rc::gen::inRange(0, bands);
  const auto& band = plot.hostingViews()[static_cast<std::size_t>(index)];
  const auto& graph = plot.graphs()[static_cast<std::size_t>(index)];
  if (*rc::gen::arbitrary<bool>()) band->setBoundsOrigin({between(-9, 9), between(-9, 9)});
  auto& space = dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace());
  const Visible x = randomRange(), y = randomRange();
  space.setXRange(x.range), space.setXScaleType(x.scale);
  space.setYRange(y.range), space.setYScaleType(y.scale);

  const auto frame = graph->plotAreaFrame();
  const CGSize size = frame->plotArea()->frame().size;
  RC_ASSERT(size.width > 50 && size.height > 20);
  const double xValue = valueAt(x, between(0, 1)), yValue = valueAt(y, between(0, 1));
  const auto place = space.plotAreaViewPoint(xValue, yValue, size);
  RC_ASSERT(place.has_value());
  // The view draws the graph at the origin of its bounds.
  const CGPoint inView =
      *place + frame->plotArea()->frame().origin + frame->frame().origin + band->bounds().origin;
  const NSEvent event{.locationInWindow = band->convertPointToView(inView, nullptr)};

  const auto point = space.plotPointForEvent(event);
  RC_ASSERT(point.has_value());
  RC_ASSERT(point->size() == 2u);
  // Each of some fifteen sums on the way rounds a coordinate of at most a few thousand points.
  constexpr double kPoints = 15 * kEpsilon * 4096;
  RC_ASSERT(std::abs((*point)[0] - xValue) <= tolerance(x, xValue, size.width, kPoints));
  RC_ASSERT(std::abs((*point)[1] - yValue) <= tolerance(y, yValue, size.height, kPoints));

  // The marker that the event moves stands there.
  const double lower = std::min(x.range.locationDouble(), x.range.endDouble());
  const double upper = std::max(x.range.locationDouble(), x.range.endDouble());
  plot.auxiliaryValues() = {lower, upper};
  plot.setVerticalMarker(event, graph);
  RC_ASSERT(plot.verticalMarkerX() == std::clamp((*point)[0], lower, upper));
}

class PointerTravel : public testing::Test {
 protected:
  PointerTravel() {
    view->setHostedGraph(graph);
    graph->setPadding(10);
    graph->plotAreaFrame()->setPadding(20);
  }
  auto pointAt(CGFloat x, CGFloat y) {
    return space->plotPointForEvent({.locationInWindow = {x, y}});
  }

  std::shared_ptr<CPTGraphHostingView> view =
      std::make_shared<CPTGraphHostingView>(CGRect::make(100, 50, 260, 160));
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect{});
  std::shared_ptr<CPTXYPlotSpace> space =
      std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
};

TEST_F(PointerTravel, LeadsFromTheWindowToTheData) {
  EXPECT_EQ(pointAt(130, 80), (std::vector<double>{0, 0}));
  EXPECT_EQ(pointAt(330, 180), (std::vector<double>{1, 1}));
  EXPECT_EQ(pointAt(230, 130), (std::vector<double>{0.5, 0.5}));
}

TEST_F(PointerTravel, GoesOnOutsideThePlotArea) {
  EXPECT_EQ(pointAt(30, 280), (std::vector<double>{-0.5, 2}));
}

TEST_F(PointerTravel, EndsWithoutGraphViewOrPlotArea) {
  CPTXYPlotSpace alone;
  EXPECT_EQ(alone.plotPointForEvent({}), std::nullopt);
  view->setHostedGraph(nullptr);
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
  view->setHostedGraph(graph);
  const auto frame = graph->plotAreaFrame();
  frame->setPlotArea(nullptr);
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
  graph->setPlotAreaFrame(nullptr);
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
}

TEST_F(PointerTravel, EndsWhereRangesHaveNoPlaces) {
  const double nan = std::nan("");
  EXPECT_EQ(pointAt(nan, 130), std::nullopt);
  EXPECT_EQ(pointAt(230, nan), std::nullopt);
  space->setXRange({0, 0});
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
  space->setXRange({0, 1});
  space->setYScaleType(CPTScaleTypeLog);
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
  space->setYRange({1, 99});
  EXPECT_NEAR((*pointAt(230, 130))[1], 10, 1e-12);
  graph->plotAreaFrame()->setPadding(500);
  EXPECT_EQ(pointAt(230, 130), std::nullopt);
}

TEST_F(PointerTravel, EndsAtAPlotSpaceOfAnotherKind) {
  class Other : public CPTPlotSpace {
   public:
    std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override {
      return std::nullopt;
    }
  };
  const auto other = std::make_shared<Other>();
  graph->addPlotSpace(other);
  EXPECT_EQ(other->plotPointForEvent({}), std::nullopt);
}

TEST_F(PointerTravel, PassesThroughTheWindowToAViewThatMovesAMarker) {
  const auto window = std::make_shared<NSWindow>(CGSize{500, 300});
  const auto outer = std::make_shared<EventView>(CGRect::make(10, 20, 480, 270));
  window->contentView()->addSubview(outer);
  outer->addSubview(view);
  window->sendEvent({.locationInWindow = {10 + 230, 20 + 130}});
  ASSERT_TRUE(outer->got.has_value());
  MarkerPlot plot;
  plot.initPlot(outer, PlotTheme::white);
  plot.auxiliaryValues() = {0, 1};
  plot.setVerticalMarker(*outer->got, graph);
  plot.setHorizontalMarker(*outer->got, graph, {0, 1}, 1);
  EXPECT_EQ(plot.verticalMarkerX(), 0.5);
  EXPECT_EQ(plot.horizontalMarkerY(), 0.5f);
}

}  // namespace
}  // namespace vexel
