#include <AppKit/NSWindow.h>
#include <Vexel/PlotView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

constexpr CGFloat kTolerance = 1e-9;

class ResizeCounter : public PlotViewDelegate {
 public:
  void setFrameSize(CGSize size) override {
    ++calls;
    last = size;
  }
  int calls = 0;
  CGSize last;
};

/// A stack of bands in a window.
struct Figure {
  Figure(int count, CGSize size, CGFloat paddingTop, CGFloat paddingBottom)
      : stackedHeight(size.height), top(paddingTop), bottom(paddingBottom) {
    window->setContentView(view);
    window->setContentSize(size);
    view->setDelegate(&counter);
    counter.last = size;
    plot.initPlot(view, PlotTheme::white);
    plot.setViews(count, paddingTop, paddingBottom);
  }

  /// Resizes the window. The delegate has to hear of it once, or may when nothing changes.
  void resize(CGSize size) {
    const bool changes = size != view->frame().size;
    counter.calls = 0;
    window->setContentSize(size);
    view->layoutSubtreeIfNeeded();
    EXPECT_EQ(view->frame().size, size);
    EXPECT_GE(counter.calls, changes ? 1 : 0);
    EXPECT_LE(counter.calls, 1);
    EXPECT_EQ(counter.last, size);
  }

  /// Height of the stack below the upper edge of band i, or of none for i = -1, when it was made.
  CGFloat heightUpTo(int i) const {
    const auto count = static_cast<int>(plot.hostingViews().size());
    const CGFloat each = (stackedHeight - top - bottom) / count;
    CGFloat height = 0;
    if (i >= 0) height = bottom + (i + 1) * each;
    if (i == count - 1 && count > 1) height = stackedHeight;
    return height;
  }

  void expectProportions() const {
    const CGSize size = view->bounds().size;
    int i = 0;
    for (const auto& band : plot.hostingViews()) {
      const CGFloat lower = size.height * heightUpTo(i - 1) / stackedHeight;
      const CGFloat upper = size.height * heightUpTo(i) / stackedHeight;
      const CGRect frame = band->frame();
      const CGFloat tolerance = kTolerance * size.height;
      EXPECT_NEAR(frame.minY(), lower, tolerance) << i;
      EXPECT_NEAR(frame.maxY(), upper, tolerance) << i;
      EXPECT_NEAR(frame.size.height, upper - lower, kTolerance * (upper - lower)) << i;
      EXPECT_NEAR(frame.minX(), 0, kTolerance * size.width) << i;
      EXPECT_NEAR(frame.size.width, size.width, kTolerance * size.width) << i;
      ++i;
    }
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{1, 1});
  std::shared_ptr<PlotView> view = std::make_shared<PlotView>();
  ResizeCounter counter;
  mutable TestPlot plot;
  CGFloat stackedHeight;
  CGFloat top;
  CGFloat bottom;
};

TEST(PlotResizing, KeepsTheProportionsOfOneToFiftyBands) {
  const CGSize sizes[] = {{1, 1}, {10000, 10000}, {1, 10000}, {10000, 1}, {640, 480}};
  for (int count = 1; count <= 50; ++count) {
    SCOPED_TRACE(count);
    Figure figure(count, {800, 600}, 20, 30);
    figure.view->layoutSubtreeIfNeeded();
    figure.expectProportions();
    for (const CGSize size : sizes) {
      SCOPED_TRACE(testing::Message() << size.width << " x " << size.height);
      figure.resize(size);
      figure.expectProportions();
    }
    if (testing::Test::HasFailure()) return;
  }
}

TEST(PlotResizing, KeepsTheProportionsOfBandsStackedInTheSmallestAndLargestHost) {
  for (const CGFloat height : {1.0, 10000.0})
    for (const int count : {1, 2, 3, 49, 50})
      for (const CGFloat padding : {0.0, height / 3}) {
        Figure figure(count, {height, height}, padding, padding / 2);
        for (const CGFloat now : {10000.0, 1.0, 333.3, height}) {
          figure.resize({now, now});
          figure.expectProportions();
        }
      }
}

TEST(PlotResizing, ResizesTheGraphsWithTheirBands) {
  Figure figure(2, {800, 600}, 0, 0);
  std::vector<std::shared_ptr<CPTXYGraph>> graphs;
  for (const auto& band : figure.plot.hostingViews())
    graphs.push_back(figure.plot.format(band, {0, 0, 0, 0}, {0, 0, 0, 0}));
  figure.resize({200, 100});
  for (const auto& graph : graphs) EXPECT_EQ(graph->frame().size, (CGSize{200, 50}));
}

TEST(PlotResizing, KeepsTheWidthAndStackOfASingleBandBelowItsUncoveredPadding) {
  Figure figure(1, {800, 400}, 20, 30);
  figure.resize({100, 1000});
  const CGRect frame = figure.plot.hostingViews()[0]->frame();
  EXPECT_NEAR(frame.minY(), 0, 1e-6);
  EXPECT_NEAR(frame.maxY(), 950, 1e-6);
}

TEST(PlotResizing, MayStackTheBandsAnewAtTheNewSize) {
  class Restacker : public PlotViewDelegate {
   public:
    explicit Restacker(TestPlot& plot) : plot_(plot) {}
    void setFrameSize(CGSize) override { plot_.setViews(2, 20, 30); }

   private:
    TestPlot& plot_;
  };
  Figure figure(2, {800, 600}, 20, 30);
  Restacker restacker(figure.plot);
  figure.view->setDelegate(&restacker);
  figure.window->setContentSize({100, 1050});
  figure.view->layoutSubtreeIfNeeded();
  ASSERT_EQ(figure.view->subviews().size(), 2u);
  EXPECT_NEAR(figure.plot.hostingViews()[0]->frame().size.height, 530, 1e-6);
  EXPECT_NEAR(figure.plot.hostingViews()[1]->frame().size.height, 520, 1e-6);
}

RC_GTEST_PROP(PlotResizing, KeepsTheProportionsThroughAnyResizes, ()) {
  const auto points = [] { return *rc::gen::inRange(100, 1000001) / 100.0; };
  const int count = *rc::gen::inRange(1, 51);
  const CGSize first{points(), points()};
  const CGFloat paddingTop = *rc::gen::inRange(0, 450) / 1000.0 * first.height;
  const CGFloat paddingBottom = *rc::gen::inRange(0, 450) / 1000.0 * first.height;
  Figure figure(count, first, paddingTop, paddingBottom);
  const int resizes = *rc::gen::inRange(1, 5);
  for (int i = 0; i < resizes; ++i) {
    figure.resize({points(), points()});
    figure.expectProportions();
  }
  RC_ASSERT(!testing::Test::HasFailure());
}

}  // namespace
}  // namespace vexel
