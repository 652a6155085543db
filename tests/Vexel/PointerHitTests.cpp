#include <AppKit/NSWindow.h>
#include <gtest/gtest.h>

#include <limits>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

NSEvent at(CGFloat x, CGFloat y) {
  return {.locationInWindow = {x, y}};
}

/// A host of 200 x 90 at (30, 40) in a view that stands at (100, 50) in the window.
class PointerHit : public testing::Test {
 protected:
  PointerHit() {
    window->contentView()->addSubview(outer);
    outer->addSubview(host);
    plot.initPlot(host, PlotTheme::white);
  }

  void makeBands(int count) {
    plot.setViews(count, 0, 0);
    host->layoutSubtreeIfNeeded();
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{500, 400});
  std::shared_ptr<NSView> outer = std::make_shared<NSView>(CGRect::make(100, 50, 300, 300));
  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(30, 40, 200, 90));
  TestPlot plot;
};

TEST_F(PointerHit, FindsNoBandWhereThereIsNone) {
  EXPECT_EQ(plot.getViewIndex(at(50, 60)), std::nullopt);
}

TEST_F(PointerHit, FindsNoBandWithoutHostOrItsSuperview) {
  makeBands(2);
  EXPECT_EQ(plot.getViewIndex(at(50, 60)), 0);
  host->removeFromSuperview();
  EXPECT_EQ(plot.getViewIndex(at(50, 60)), std::nullopt);
  plot.plotView() = nullptr;
  EXPECT_EQ(plot.getViewIndex(at(50, 60)), std::nullopt);
}

TEST_F(PointerHit, CountsBandsFromTheBottomInTheSuperviewsCoordinates) {
  makeBands(3);
  const struct {
    CGFloat y;
    std::optional<int> index;
  } cases[] = {
      {kNaN, std::nullopt},
      {kInfinity, std::nullopt},
      {-kInfinity, std::nullopt},
      {39.9, std::nullopt},
      {40, 0},
      {55, 0},
      {40 + 30.5, 1},
      {40 + 60, 1},
      {40 + 61, 2},
      {40 + 90, 2},
      {130.1, std::nullopt},
  };
  for (const auto& c : cases)
    for (const CGFloat x : {-1e9, 0.0, 100.0, kNaN})
      EXPECT_EQ(plot.getViewIndex(at(x, c.y)), c.index) << c.y;
}

TEST_F(PointerHit, TakesTheFirstOfOverlappingBandsAndNoneInAGap) {
  const auto frame = [](CGFloat y, CGFloat height) {
    return std::make_shared<CPTGraphHostingView>(CGRect::make(0, y, 200, height));
  };
  plot.hostingViews() = {frame(50, 20), frame(0, 10), frame(0, 60)};
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 55)), 0);
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 5)), 1);
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 30)), 2);
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 80)), std::nullopt);
  plot.hostingViews() = {frame(0, 30), frame(30, 60)};
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 30)), 0);
}

TEST_F(PointerHit, FollowsAScrolledHost) {
  makeBands(3);
  host->setBoundsOrigin({0, 30});
  EXPECT_EQ(plot.getViewIndex(at(0, 40 + 5)), 1);
}

TEST_F(PointerHit, IsInTheHostUpToItsEdges) {
  const struct {
    CGFloat x, y;
    bool inside;
  } cases[] = {
      {kNaN, 50, false},  {50, kNaN, false},   {kInfinity, 50, false}, {30, 40, true},
      {230, 130, true},   {230, 40, true},     {29.9, 50, false},      {230.1, 50, false},
      {100, 39.9, false}, {100, 130.1, false}, {100, 100, true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(plot.mouseInPlotView(at(c.x, c.y)), c.inside) << c.x << " " << c.y;
    EXPECT_EQ(plot.mouseInPlotView(at(c.x, c.y), outer), c.inside) << c.x << " " << c.y;
    // The same place in the window's coordinates.
    EXPECT_EQ(plot.mouseInPlotView(at(c.x + 100, c.y + 50), window->contentView()), c.inside);
  }
}

TEST_F(PointerHit, ReadsALocationInTheHostsOwnCoordinates) {
  EXPECT_TRUE(plot.mouseInPlotView(at(0, 0), host));
  EXPECT_TRUE(plot.mouseInPlotView(at(200, 90), host));
  EXPECT_FALSE(plot.mouseInPlotView(at(201, 90), host));
}

TEST_F(PointerHit, IsNowhereWithoutViews) {
  EXPECT_FALSE(plot.mouseInPlotView(at(50, 60), nullptr));
  host->removeFromSuperview();
  EXPECT_FALSE(plot.mouseInPlotView(at(50, 60)));
  EXPECT_TRUE(plot.mouseInPlotView(at(50, 60), host));
  plot.plotView() = nullptr;
  EXPECT_FALSE(plot.mouseInPlotView(at(50, 60)));
  EXPECT_FALSE(plot.mouseInPlotView(at(50, 60), outer));
}

TEST_F(PointerHit, UsesAReplacedFormForTheOther) {
  class Everywhere : public TestPlot {
   public:
    using TestPlot::mouseInPlotView;
    bool mouseInPlotView(const NSEvent&, const std::shared_ptr<NSView>&) override { return true; }
  } everywhere;
  everywhere.initPlot(host, PlotTheme::white);
  EXPECT_TRUE(everywhere.mouseInPlotView(at(-1e6, -1e6)));
}

}  // namespace
}  // namespace vexel
