#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGNullContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vexel {
namespace {

/// Fails to draw or to lay itself out while it is told to.
class FailingView : public NSView {
 public:
  using NSView::NSView;

  void draw(CGContext&, CGRect) override {
    if (failsToDraw) throw std::runtime_error("draw");
    ++drawn;
  }
  void layout() override {
    NSView::layout();
    if (failsToLayOut) throw std::runtime_error("layout");
    ++laidOut;
  }
  void setFrameSize(CGSize size) override {
    NSView::setFrameSize(size);
    if (failsToResize) throw std::runtime_error("resize");
  }

  bool failsToDraw = false;
  bool failsToLayOut = false;
  bool failsToResize = false;
  int drawn = 0;
  int laidOut = 0;
};

class DepthContext : public CGNullContext {
 public:
  void saveState() override { ++depth; }
  void restoreState() override { --depth; }
  int depth = 0;
};

/// Three views side by side in a window, of which the middle one fails.
class FailingViewTest : public testing::Test {
 protected:
  FailingViewTest() {
    window->setContentView(content);
    for (const auto& view : {first, failing, last}) content->addSubview(view);
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{90, 30});
  std::shared_ptr<FailingView> content = std::make_shared<FailingView>();
  std::shared_ptr<FailingView> first = std::make_shared<FailingView>(CGRect::make(0, 0, 30, 30));
  std::shared_ptr<FailingView> failing = std::make_shared<FailingView>(CGRect::make(30, 0, 30, 30));
  std::shared_ptr<FailingView> last = std::make_shared<FailingView>(CGRect::make(60, 0, 30, 30));
  DepthContext context;
};

TEST_F(FailingViewTest, ThatDoesNotDrawStaysMarkedWithAllThatWasLeftOut) {
  failing->failsToDraw = true;
  for (int i = 0; i < 2; ++i) {
    EXPECT_THROW(window->display(context), std::runtime_error);
    EXPECT_EQ(context.depth, 0);
    EXPECT_TRUE(failing->needsDisplay());
    EXPECT_TRUE(last->needsDisplay());
    EXPECT_EQ(window->dirtyRect(), CGRect::make(0, 0, 90, 30));
  }
  failing->failsToDraw = false;
  window->display(context);
  EXPECT_EQ(failing->drawn, 1);
  EXPECT_EQ(last->drawn, 1);
  EXPECT_FALSE(window->needsDisplay());
}

TEST_F(FailingViewTest, ThatDoesNotDrawAPartStaysMarked) {
  window->display(context);
  failing->setNeedsDisplayInRect(CGRect::make(5, 5, 10, 10));
  failing->failsToDraw = true;
  EXPECT_THROW(window->displayRect(window->dirtyRect(), context), std::runtime_error);
  EXPECT_EQ(context.depth, 0);
  failing->failsToDraw = false;
  ASSERT_TRUE(window->needsDisplay());
  for (const CGRect& rect : window->dirtyRects()) window->displayRect(rect, context);
  EXPECT_EQ(failing->drawn, 2);
  EXPECT_FALSE(window->needsDisplay());
}

TEST_F(FailingViewTest, ThatIsNotLaidOutStillNeedsLayout) {
  failing->failsToLayOut = true;
  EXPECT_THROW(window->dirtyRects(), std::runtime_error);
  EXPECT_THROW(window->display(context), std::runtime_error);
  EXPECT_EQ(context.depth, 0);
  EXPECT_TRUE(failing->needsLayout());
  EXPECT_TRUE(window->needsDisplay());
  failing->failsToLayOut = false;
  window->display(context);
  EXPECT_EQ(failing->laidOut, 1);
  EXPECT_EQ(last->laidOut, 1);
  EXPECT_FALSE(window->needsDisplay());
}

TEST_F(FailingViewTest, ThatIsNotResizedIsPlacedWithTheOthersTheNextTime) {
  for (const auto& view : {first, failing, last}) {
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    content->addConstraint(NSLayoutConstraint::constraint({
        .firstItem = *view,
        .firstAttribute = NSLayoutAttribute::height,
        .secondItem = content.get(),
        .secondAttribute = NSLayoutAttribute::height,
        .multiplier = 0.5,
    }));
  }
  window->display(context);
  failing->failsToResize = true;
  EXPECT_THROW(window->setContentSize({90, 80}), std::runtime_error);
  failing->failsToResize = false;
  window->display(context);
  for (const auto& view : {first, failing, last}) EXPECT_EQ(view->frame().size.height, 40);
}

TEST_F(FailingViewTest, ThatIsDestroyedByItsOwnDrawingLeavesTheOthers) {
  struct Vanishing : NSView {
    using NSView::NSView;
    void draw(CGContext&, CGRect) override { removeFromSuperview(); }
  };
  const std::weak_ptr<NSView> gone = [&] {
    const auto view = std::make_shared<Vanishing>(CGRect::make(10, 0, 10, 10));
    content->addSubview(view);
    return view;
  }();
  const int before = last->drawn;
  window->display(context);
  EXPECT_TRUE(gone.expired());
  EXPECT_EQ(last->drawn, before + 1);
  EXPECT_EQ(context.depth, 0);
}

}  // namespace
}  // namespace vexel
