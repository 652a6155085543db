#include <AppKit/NSView.h>
#include <CoreGraphics/CGNullContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Fills what it is asked to draw and notes it.
class Painted : public NSView {
 public:
  explicit Painted(CGRect frame, CGColor color = CGColor::genericGray(0))
      : NSView(frame), color_(color) {}

  void draw(CGContext& context, CGRect dirtyRect) override {
    drawn.push_back(dirtyRect);
    context.fillAligned(dirtyRect, color_);
    if (whileDrawing) whileDrawing();
  }

  std::vector<CGRect> drawn;
  std::function<void()> whileDrawing;

 private:
  CGColor color_;
};

std::string recorded(NSView& view) {
  CGRecordingContext context;
  view.display(context);
  return context.text();
}

void displayOnce(NSView& view) {
  CGNullContext context;
  view.display(context);
}

/// A host of 100 x 80 with a child of 30 x 20 at (10, 40).
class NSViewDisplay : public testing::Test {
 protected:
  NSViewDisplay() { host->addSubview(child); }

  std::shared_ptr<Painted> host = std::make_shared<Painted>(CGRect::make(5, 6, 100, 80));
  std::shared_ptr<Painted> child =
      std::make_shared<Painted>(CGRect::make(10, 40, 30, 20), CGColor::genericRGB(1, 0, 0));
};

TEST_F(NSViewDisplay, DrawsAViewAndThenItsSubviewsEachClippedAtItsPlace) {
  EXPECT_EQ(recorded(*host),
            "save\n"
            "  clip M 0 0 L 100 0 L 100 80 L 0 80 Z\n"
            "  fill #000000 aligned: 0 0 100 80\n"
            "  save\n"
            "    transform 1 0 0 1 10 40\n"
            "    clip M 0 0 L 30 0 L 30 20 L 0 20 Z\n"
            "    fill #ff0000 aligned: 0 0 30 20\n"
            "  restore\n"
            "restore\n");
}

TEST_F(NSViewDisplay, ScrollingMovesWhatIsDrawn) {
  host->setBoundsOrigin({1, 2});
  child->setBoundsOrigin({-3, -4});
  EXPECT_EQ(recorded(*host),
            "save\n"
            "  transform 1 0 0 1 -1 -2\n"
            "  clip M 1 2 L 101 2 L 101 82 L 1 82 Z\n"
            "  fill #000000 aligned: 1 2 100 80\n"
            "  save\n"
            "    transform 1 0 0 1 13 44\n"
            "    clip M -3 -4 L 27 -4 L 27 16 L -3 16 Z\n"
            "    fill #ff0000 aligned: -3 -4 30 20\n"
            "  restore\n"
            "restore\n");
}

TEST_F(NSViewDisplay, ASubviewThatReachesOutIsDrawnUpToTheEdge) {
  child->setFrameOrigin({-10, 70});
  displayOnce(*host);
  EXPECT_THAT(child->drawn, testing::ElementsAre(CGRect::make(10, 0, 20, 10)));
  EXPECT_FALSE(host->subtreeNeedsDisplay());
}

TEST_F(NSViewDisplay, LaysOutFirst) {
  child->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addConstraint(NSLayoutConstraint::constraint(
      {.firstItem = *child, .firstAttribute = NSLayoutAttribute::width, .constant = 55}));
  EXPECT_TRUE(host->subtreeNeedsDisplay());
  displayOnce(*host);
  EXPECT_THAT(child->drawn, testing::ElementsAre(CGRect::make(0, 0, 55, 20)));
  EXPECT_FALSE(host->subtreeNeedsDisplay());
}

TEST_F(NSViewDisplay, HiddenAndEmptyViewsDrawNothing) {
  child->setHidden(true);
  displayOnce(*host);
  child->setHidden(false);
  child->setFrameSize({0, 20});
  displayOnce(*host);
  child->setFrame(CGRect::make(100, 0, 10, 10));
  displayOnce(*host);
  EXPECT_TRUE(child->drawn.empty());
  host->setHidden(true);
  EXPECT_EQ(recorded(*host), "");
  EXPECT_EQ(recorded(*std::make_shared<Painted>(CGRect{})), "");
}

TEST_F(NSViewDisplay, NothingIsMarkedAfterwards) {
  EXPECT_TRUE(host->needsDisplay());
  EXPECT_TRUE(child->needsDisplay());
  displayOnce(*host);
  EXPECT_FALSE(host->needsDisplay());
  EXPECT_FALSE(child->needsDisplay());
  EXPECT_TRUE(host->dirtyRects().empty());
  EXPECT_FALSE(host->subtreeNeedsDisplay());
}

TEST_F(NSViewDisplay, WhatIsMarkedWhileDrawingStaysMarked) {
  child->whileDrawing = [this] { child->setNeedsDisplay(true); };
  displayOnce(*host);
  EXPECT_TRUE(child->needsDisplay());
  EXPECT_TRUE(host->subtreeNeedsDisplay());
}

TEST_F(NSViewDisplay, ViewsMayBeRemovedWhileTheyAreDrawn) {
  host->addSubview(std::make_shared<Painted>(CGRect::make(0, 0, 10, 10)));
  const auto last = std::make_shared<Painted>(CGRect::make(0, 0, 10, 10));
  host->addSubview(last);
  child->whileDrawing = [this] {
    for (const auto& view : std::vector(host->subviews())) view->removeFromSuperview();
  };
  displayOnce(*host);
  EXPECT_TRUE(host->subviews().empty());
  EXPECT_TRUE(last->drawn.empty());
}

TEST_F(NSViewDisplay, DrawingAPartLeavesOutWhatIsOutside) {
  displayOnce(*host);
  host->drawn.clear();
  child->drawn.clear();
  CGNullContext context;
  host->displayRect(CGRect::make(35, 50, 100, 100), context);
  EXPECT_THAT(host->drawn, testing::ElementsAre(CGRect::make(35, 50, 65, 30)));
  EXPECT_THAT(child->drawn, testing::ElementsAre(CGRect::make(25, 10, 5, 10)));
  host->displayRect(CGRect::make(50, 0, 10, 10), context);
  EXPECT_EQ(child->drawn.size(), 1u);
  for (const CGRect& nothing :
       {CGRect{}, CGRect::make(200, 0, 10, 10), CGRect::make(kNaN, 0, 10, 10),
        CGRect::make(0, 0, kNaN, 10), CGRect::make(0, 0, -10, 10)})
    host->displayRect(nothing, context);
  EXPECT_EQ(host->drawn.size(), 2u);
}

TEST_F(NSViewDisplay, DrawingAPartForgetsTheMarksInside) {
  displayOnce(*host);
  CGNullContext context;
  child->setNeedsDisplayInRect(CGRect::make(1, 1, 5, 5));
  host->setNeedsDisplayInRect(CGRect::make(0, 0, 5, 5));
  host->displayRect(CGRect::make(11, 41, 5, 5), context);
  EXPECT_FALSE(child->needsDisplay());
  EXPECT_TRUE(host->needsDisplay());
  host->displayRect(CGRect::make(0, 0, 4, 5), context);
  EXPECT_TRUE(host->needsDisplay());
  host->displayRect(CGRect::make(0, 0, 5, 5), context);
  EXPECT_FALSE(host->subtreeNeedsDisplay());
}

struct PartCase {
  const char* what;
  CGRect drawn;
  std::vector<CGRect> left;
};

TEST_F(NSViewDisplay, DrawingAPartLeavesMarkedWhatIsAboveAndBelow) {
  const CGRect marked = CGRect::make(10, 10, 50, 60);
  const PartCase cases[] = {
      {"not a number", CGRect::make(kNaN, 0, 100, 100), {marked}},
      {"beside it", CGRect::make(70, 0, 20, 80), {marked}},
      {"above it", CGRect::make(0, 70, 100, 10), {marked}},
      {"not from side to side", CGRect::make(0, 0, 59, 80), {marked}},
      {"a hair short of the top", CGRect::make(10, 10, 50, 60 - 1e-5), {}},
      {"the bottom", CGRect::make(0, 0, 100, 30), {CGRect::make(10, 30, 50, 40)}},
      {"the top", CGRect::make(10, 55, 50, 25), {CGRect::make(10, 10, 50, 45)}},
      {"the middle",
       CGRect::make(0, 30, 100, 20),
       {CGRect::make(10, 10, 50, 20), CGRect::make(10, 50, 50, 20)}},
      {"all of it", CGRect::make(0, 0, 100, 80), {}},
  };
  for (const auto& [what, drawn, left] : cases) {
    host->setNeedsDisplay(false);
    host->setNeedsDisplayInRect(marked);
    CGNullContext context;
    host->displayRect(drawn, context);
    EXPECT_EQ(host->dirtyRects(), left) << what;
    EXPECT_EQ(host->needsDisplay(), !left.empty()) << what;
  }
}

struct MarkCase {
  CGRect marked;
  CGRect dirty;
};

TEST_F(NSViewDisplay, MarksThePartInsideTheBounds) {
  const MarkCase cases[] = {
      {CGRect::make(kNaN, 0, 10, 10), {}},
      {CGRect::make(0, 0, 10, kNaN), {}},
      {CGRect::make(0, 0, 0, 10), {}},
      {CGRect::make(0, 0, -10, 10), {}},
      {CGRect::make(101, 0, 10, 10), {}},
      {CGRect::make(-1e300, -1e300, 2e300, 2e300), CGRect::make(0, 0, 100, 80)},
      {CGRect::make(0, 0, kInfinity, 10), CGRect::make(0, 0, 100, 10)},
      {CGRect::make(-5, -5, 10, 10), CGRect::make(0, 0, 5, 5)},
      {CGRect::make(10, 20, 30, 40), CGRect::make(10, 20, 30, 40)},
  };
  for (const auto& [marked, dirty] : cases) {
    host->setNeedsDisplay(false);
    host->setNeedsDisplayInRect(marked);
    EXPECT_EQ(host->dirtyRects(), dirty.isEmpty() ? std::vector<CGRect>{} : std::vector{dirty});
    EXPECT_EQ(host->needsDisplay(), !dirty.isEmpty());
  }
}

TEST_F(NSViewDisplay, MarksFarApartStayApart) {
  const CGRect first = CGRect::make(10, 10, 5, 5), second = CGRect::make(50, 30, 5, 5);
  host->setNeedsDisplay(false);
  host->setNeedsDisplayInRect(first);
  host->setNeedsDisplayInRect(second);
  EXPECT_THAT(host->dirtyRects(), ElementsAre(first, second));
  CGNullContext context;
  host->displayRect(second, context);
  EXPECT_THAT(host->dirtyRects(), ElementsAre(first));
  EXPECT_TRUE(host->needsDisplay());
  host->displayRect(first, context);
  EXPECT_FALSE(host->needsDisplay());
  host->setNeedsDisplay(true);
  EXPECT_THAT(host->dirtyRects(), ElementsAre(host->bounds()));
}

struct ChangeCase {
  const char* what;
  std::function<void(NSView& host, NSView& child)> change;
  std::vector<CGRect> hostDirty;
  bool childNeedsDisplay;
};

TEST_F(NSViewDisplay, ChangesMarkTheSmallestPartThatLooksDifferent) {
  const auto other = std::make_shared<NSView>(CGRect::make(0, 0, 7, 7));
  const std::vector<CGRect> none;
  const CGRect childFrame = CGRect::make(10, 40, 30, 20);
  const CGRect movedFrame = CGRect::make(50, 40, 30, 20);
  const ChangeCase cases[] = {
      {"same frame", [](auto&, auto& c) { c.setFrame(c.frame()); }, none, false},
      {"same bounds",
       [](auto&, auto& c) {
         c.setBoundsOrigin({0, 0});
       },
       none, false},
      {"not hidden", [](auto&, auto& c) { c.setHidden(false); }, none, false},
      {"moving",
       [](auto&, auto& c) {
         c.setFrameOrigin({50, 40});
       },
       {childFrame, movedFrame},
       false},
      {"moving back",
       [](auto&, auto& c) {
         c.setFrameOrigin({10, 40});
       },
       {movedFrame, childFrame},
       false},
      {"shrinking",
       [](auto&, auto& c) {
         c.setFrameSize({10, 10});
       },
       {childFrame},
       true},
      {"growing",
       [](auto&, auto& c) {
         c.setFrameSize({30, 20});
       },
       {childFrame},
       true},
      {"scrolling",
       [](auto&, auto& c) {
         c.setBoundsOrigin({0, 1});
       },
       none, true},
      {"hiding", [](auto&, auto& c) { c.setHidden(true); }, {childFrame}, false},
      {"showing", [](auto&, auto& c) { c.setHidden(false); }, {childFrame}, true},
      {"adding", [&](auto& h, auto&) { h.addSubview(other); }, {other->frame()}, false},
      {"removing", [&](auto&, auto&) { other->removeFromSuperview(); }, {other->frame()}, false},
      {"bringing to the front",
       [this](auto& h, auto&) { h.addSubview(child); },
       {childFrame},
       true},
  };
  for (const auto& c : cases) {
    displayOnce(*host);
    c.change(*host, *child);
    EXPECT_EQ(host->dirtyRects(), c.hostDirty) << c.what;
    EXPECT_EQ(child->needsDisplay(), c.childNeedsDisplay) << c.what;
  }
}

TEST_F(NSViewDisplay, AHiddenTreeNeedsNoDisplay) {
  displayOnce(*host);
  child->setHidden(true);
  displayOnce(*host);
  child->setNeedsDisplay(true);
  child->setNeedsLayout(true);
  EXPECT_FALSE(host->subtreeNeedsDisplay());
  child->setHidden(false);
  EXPECT_TRUE(host->subtreeNeedsDisplay());
}

TEST_F(NSViewDisplay, AMarkThatCannotBeSeenNeedsNoDisplay) {
  child->setFrameOrigin({90, 0});
  displayOnce(*host);
  child->setNeedsDisplayInRect(CGRect::make(15, 0, 10, 10));
  EXPECT_TRUE(child->needsDisplay());
  EXPECT_FALSE(host->subtreeNeedsDisplay());
}

RC_GTEST_PROP(NSView, DisplayForgetsAllMarksHoweverLargeAndFarViewsAre, ()) {
  const auto unit = [] { return *rc::gen::inRange(1, 1000000) / 1e6; };
  const double scale = *rc::gen::element(1.0, 1e10, 1e17);
  const auto number = [&] { return (unit() - 0.5) * scale; };
  const auto view = [&] {
    return std::make_shared<NSView>(
        CGRect::make(number(), number(), unit() * scale, unit() * scale));
  };
  const auto root = view();
  const auto middle = view();
  const auto inner = view();
  root->addSubview(middle);
  middle->addSubview(inner);
  middle->setBoundsOrigin({number(), number()});
  displayOnce(*root);
  RC_ASSERT(!root->subtreeNeedsDisplay());
}

}  // namespace
}  // namespace vexel
