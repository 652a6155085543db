#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGNullContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <map>
#include <stdexcept>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

using Log = std::vector<std::string>;

/// Notes the events it gets under its name, runs what was planned for one, and keeps them.
class EventProbe : public NSView {
 public:
  EventProbe(std::string name, Log& log, CGRect frame)
      : NSView(frame), name_(std::move(name)), log_(log) {}

  void mouseDown(const NSEvent&) override { got("down"); }
  void mouseUp(const NSEvent&) override { got("up"); }
  void mouseMoved(const NSEvent&) override { got("moved"); }
  void mouseDragged(const NSEvent&) override { got("dragged"); }
  void mouseEntered(const NSEvent& e) override {
    EXPECT_EQ(e.type, NSEventType::mouseEntered);
    got("entered");
  }
  void mouseExited(const NSEvent& e) override {
    EXPECT_EQ(e.type, NSEventType::mouseExited);
    got("exited");
  }
  void rightMouseDown(const NSEvent&) override { got("right down"); }
  void rightMouseUp(const NSEvent&) override { got("right up"); }
  void rightMouseDragged(const NSEvent&) override { got("right dragged"); }
  void scrollWheel(const NSEvent&) override { got("scroll"); }
  void keyDown(const NSEvent&) override { got("key down"); }
  void keyUp(const NSEvent&) override { got("key up"); }

  std::map<std::string, std::function<void()>> plans;

 private:
  void got(const std::string& what) {
    log_.push_back(name_ + " " + what);
    if (plans.count(what)) plans[what]();
  }

  std::string name_;
  Log& log_;
};

/// A window of 100 x 100: view a on the left half, b on the right, nothing in the lowest 10.
class NSWindowEvents : public testing::Test {
 protected:
  NSWindowEvents() {
    window->setContentView(content);
    content->addSubview(a);
    content->addSubview(b);
  }

  Log sent(NSEventType type, CGPoint location = {}) {
    log.clear();
    window->sendEvent({.type = type, .locationInWindow = location});
    return log;
  }

  static constexpr CGPoint kInA{25, 50};
  static constexpr CGPoint kInB{75, 50};
  static constexpr CGPoint kInContent{25, 5};
  static constexpr CGPoint kOutside{-1, 50};

  Log log;
  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{100, 100});
  std::shared_ptr<EventProbe> content = std::make_shared<EventProbe>("content", log, CGRect{});
  std::shared_ptr<EventProbe> a =
      std::make_shared<EventProbe>("a", log, CGRect::make(0, 10, 50, 90));
  std::shared_ptr<EventProbe> b =
      std::make_shared<EventProbe>("b", log, CGRect::make(50, 10, 50, 90));
};

// Content

TEST(NSWindow, HasAPlainContentViewOfItsSize) {
  const auto window = std::make_shared<NSWindow>(CGSize{30, 40});
  ASSERT_NE(window->contentView(), nullptr);
  EXPECT_EQ(window->contentView()->frame(), CGRect::make(0, 0, 30, 40));
  EXPECT_EQ(window->contentSize(), (CGSize{30, 40}));
}

TEST(NSWindow, SizesThatAreNoneAreTakenAsZero) {
  const auto window = std::make_shared<NSWindow>(CGSize{kNaN, -1});
  EXPECT_EQ(window->contentSize(), CGSize{});
  window->setContentSize({std::numeric_limits<double>::infinity(), 5});
  EXPECT_EQ(window->contentSize(), (CGSize{0, 5}));
  EXPECT_EQ(window->contentView()->frame().size, (CGSize{0, 5}));
}

TEST(NSWindow, ItsContentViewAlwaysFillsIt) {
  const auto window = std::make_shared<NSWindow>(CGSize{30, 40});
  const auto view = std::make_shared<NSView>(CGRect::make(5, 5, 5, 5));
  window->setContentView(view);
  EXPECT_EQ(view->frame(), CGRect::make(0, 0, 30, 40));
  window->setContentSize({50, 60});
  EXPECT_EQ(view->frame(), CGRect::make(0, 0, 50, 60));
}

TEST(NSWindow, WithoutAContentViewDrawsAndHandlesNothing) {
  const auto window = std::make_shared<NSWindow>(CGSize{30, 40});
  window->setContentView(nullptr);
  CGRecordingContext context;
  window->display(context);
  window->displayRect(CGRect::make(0, 0, 5, 5), context);
  EXPECT_TRUE(window->dirtyRects().empty());
  EXPECT_EQ(context.text(), "");
  EXPECT_FALSE(window->needsDisplay());
  EXPECT_EQ(window->dirtyRect(), CGRect{});
  EXPECT_FALSE(window->makeFirstResponder(std::make_shared<NSView>().get()));
  for (int type = 0; type <= static_cast<int>(NSEventType::keyUp); ++type)
    window->sendEvent({.type = static_cast<NSEventType>(type)});
}

TEST(NSWindow, AViewIsTheContentOfOneWindowOrASubview) {
  const auto first = std::make_shared<NSWindow>(CGSize{10, 10});
  const auto second = std::make_shared<NSWindow>(CGSize{20, 20});
  const auto host = std::make_shared<NSView>();
  const auto view = std::make_shared<NSView>();
  host->addSubview(view);
  first->setContentView(view);
  EXPECT_THAT(host->subviews(), IsEmpty());
  EXPECT_EQ(view->window(), first);
  second->setContentView(view);
  EXPECT_EQ(first->contentView(), nullptr);
  EXPECT_EQ(view->window(), second);
  host->addSubview(view);
  EXPECT_EQ(second->contentView(), nullptr);
  EXPECT_EQ(view->window(), nullptr);
  first->setContentView(host);
  host->removeFromSuperview();
  EXPECT_EQ(first->contentView(), nullptr);
}

TEST(NSWindow, DrawsItsContentView) {
  struct Painted : NSView {
    void draw(CGContext& context, CGRect dirty) override {
      context.fillAligned(dirty, CGColor::genericGray(0));
    }
  };
  const auto window = std::make_shared<NSWindow>(CGSize{30, 40});
  window->setContentView(std::make_shared<Painted>());
  CGRecordingContext context;
  window->display(context);
  EXPECT_EQ(context.text(),
            "save\n"
            "  clip M 0 0 L 30 0 L 30 40 L 0 40 Z\n"
            "  fill #000000 aligned: 0 0 30 40\n"
            "restore\n");
  context.clear();
  window->displayRect(CGRect::make(10, 30, 100, 100), context);
  EXPECT_EQ(context.text(),
            "save\n"
            "  clip M 10 30 L 30 30 L 30 40 L 10 40 Z\n"
            "  fill #000000 aligned: 10 30 20 10\n"
            "restore\n");
}

TEST(NSWindow, KnowsThatAViewAtAnyDepthNeedsDisplayAndWhere) {
  const auto window = std::make_shared<NSWindow>(CGSize{100, 100});
  const auto outer = std::make_shared<NSView>(CGRect::make(10, 10, 50, 50));
  const auto inner = std::make_shared<NSView>(CGRect::make(5, 5, 20, 20));
  window->contentView()->addSubview(outer);
  outer->addSubview(inner);
  CGNullContext context;
  EXPECT_TRUE(window->needsDisplay());
  window->display(context);
  EXPECT_FALSE(window->needsDisplay());
  EXPECT_EQ(window->dirtyRect(), CGRect{});
  inner->setNeedsDisplayInRect(CGRect::make(1, 2, 3, 4));
  EXPECT_TRUE(window->needsDisplay());
  EXPECT_EQ(window->dirtyRect(), CGRect::make(16, 17, 3, 4));
  window->displayRect(window->dirtyRect(), context);
  EXPECT_FALSE(window->needsDisplay());
}

TEST(NSWindow, TellsTheFewRectanglesThatAreDirtyInIt) {
  const auto window = std::make_shared<NSWindow>(CGSize{100, 100});
  const auto left = std::make_shared<NSView>(CGRect::make(10, 10, 20, 50));
  const auto right = std::make_shared<NSView>(CGRect::make(60, 10, 50, 50));
  window->contentView()->addSubview(left);
  window->contentView()->addSubview(right);
  CGNullContext context;
  window->display(context);
  left->setNeedsDisplayInRect(CGRect::make(1, 2, 3, 4));
  right->setBoundsOrigin({0, 5});
  window->displayRect(CGRect::make(60, 0, 40, 100), context);
  right->setNeedsDisplayInRect(CGRect::make(35, 6, 10, 4));
  right->setNeedsDisplayInRect(CGRect::make(45, 6, 5, 4));
  EXPECT_THAT(window->dirtyRects(),
              ElementsAre(CGRect::make(11, 12, 3, 4), CGRect::make(95, 11, 5, 4)));
  EXPECT_EQ(window->dirtyRect(), CGRect::make(11, 11, 89, 5));
  for (const CGRect& rect : window->dirtyRects()) window->displayRect(rect, context);
  EXPECT_FALSE(window->needsDisplay());
  right->setHidden(true);
  window->display(context);
  right->setNeedsDisplayInRect(CGRect::make(0, 6, 5, 4));
  EXPECT_TRUE(window->dirtyRects().empty());
}

TEST(NSWindow, FindsOutWhereViewsAreLaidOutBeforeItTellsWhatIsDirty) {
  const auto window = std::make_shared<NSWindow>(CGSize{100, 100});
  const auto view = std::make_shared<NSView>(CGRect::make(10, 10, 50, 50));
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  window->contentView()->addSubview(view);
  CGNullContext context;
  window->display(context);
  window->contentView()->addConstraint(NSLayoutConstraint::constraint(
      {.firstItem = *view, .firstAttribute = NSLayoutAttribute::left, .constant = 20}));
  EXPECT_TRUE(window->needsDisplay());
  EXPECT_EQ(window->dirtyRect(), CGRect::make(10, 10, 60, 50));
}

// Events

TEST_F(NSWindowEvents, HitTestFindsTheFrontmostViewThatContainsThePoint) {
  const auto cover = std::make_shared<NSView>(CGRect::make(40, 10, 20, 90));
  const auto hit = [&](double x, double y) { return content->hitTest({x, y}); };
  EXPECT_EQ(hit(kNaN, 50), nullptr);
  EXPECT_EQ(hit(1e308, 50), nullptr);
  EXPECT_EQ(hit(-0.1, 50), nullptr);
  EXPECT_EQ(hit(0, 0), content.get());
  EXPECT_EQ(hit(100, 100), b.get());
  EXPECT_EQ(hit(50, 50), b.get());
  EXPECT_EQ(hit(49, 50), a.get());
  content->addSubview(cover);
  EXPECT_EQ(hit(49, 50), cover.get());
  cover->setHidden(true);
  EXPECT_EQ(hit(49, 50), a.get());
  cover->setHidden(false);
  cover->setFrameSize({0, 90});
  EXPECT_EQ(hit(40, 50), a.get());
  content->setBoundsOrigin({10, 0});
  EXPECT_EQ(hit(45, 50), b.get());
}

TEST_F(NSWindowEvents, ASubviewOutsideItsSuperviewIsNotHit) {
  const auto outside = std::make_shared<NSView>(CGRect::make(60, 0, 10, 10));
  a->addSubview(outside);
  EXPECT_EQ(content->hitTest({65, 15}), b.get());
}

TEST_F(NSWindowEvents, GoToTheViewAtTheirLocation) {
  sent(NSEventType::mouseMoved, kInA);
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInA), ElementsAre("a moved"));
  EXPECT_THAT(sent(NSEventType::scrollWheel, kInA), ElementsAre("a scroll"));
  EXPECT_THAT(sent(NSEventType::leftMouseDown, kInA), ElementsAre("a down"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInA), ElementsAre("a up"));
  EXPECT_THAT(sent(NSEventType::rightMouseDown, kInA), ElementsAre("a right down"));
  EXPECT_THAT(sent(NSEventType::rightMouseUp, kInA), ElementsAre("a right up"));
}

TEST_F(NSWindowEvents, OutsideAllViewsAreLost) {
  EXPECT_THAT(sent(NSEventType::mouseMoved, kOutside), IsEmpty());
  EXPECT_THAT(sent(NSEventType::leftMouseDown, {kNaN, kNaN}), IsEmpty());
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInA), IsEmpty());
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kOutside), IsEmpty());
}

TEST_F(NSWindowEvents, ThatAViewDoesNotHandleGoToItsSuperview) {
  const auto plain = std::make_shared<NSView>(CGRect::make(0, 0, 50, 90));
  a->addSubview(plain);
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInA), ElementsAre("a entered", "a moved"));
  EXPECT_THAT(sent(NSEventType::scrollWheel, kInA), ElementsAre("a scroll"));
  EXPECT_THAT(sent(NSEventType::leftMouseDown, kInA), ElementsAre("a down"));
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInA), ElementsAre("a dragged"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInA), ElementsAre("a up"));
  EXPECT_THAT(sent(NSEventType::rightMouseDown, kInA), ElementsAre("a right down"));
  EXPECT_THAT(sent(NSEventType::rightMouseDragged, kInA), ElementsAre("a right dragged"));
  EXPECT_THAT(sent(NSEventType::rightMouseUp, kInA), ElementsAre("a right up"));
  EXPECT_THAT(sent(NSEventType::mouseExited, kInA), ElementsAre("a exited"));
  window->makeFirstResponder(plain.get());
  EXPECT_THAT(sent(NSEventType::keyDown), ElementsAre("a key down"));
  EXPECT_THAT(sent(NSEventType::keyUp), ElementsAre("a key up"));
}

TEST_F(NSWindowEvents, ThatNobodyHandlesAreLost) {
  window->setContentView(std::make_shared<NSView>());
  for (int type = 0; type <= static_cast<int>(NSEventType::keyUp); ++type)
    EXPECT_THAT(sent(static_cast<NSEventType>(type), kInA), IsEmpty());
}

TEST_F(NSWindowEvents, DragsGoToTheViewThatGotThePress) {
  EXPECT_THAT(sent(NSEventType::leftMouseDown, kInA), ElementsAre("a entered", "a down"));
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInB), ElementsAre("a dragged"));
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kOutside), ElementsAre("a dragged"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInB), ElementsAre("a up", "a exited", "b entered"));
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInB), IsEmpty());
}

TEST_F(NSWindowEvents, TheTwoButtonsArePressedIndependently) {
  sent(NSEventType::leftMouseDown, kInA);
  EXPECT_THAT(sent(NSEventType::rightMouseDown, kInB), ElementsAre("b right down"));
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInB), ElementsAre("a dragged"));
  EXPECT_THAT(sent(NSEventType::rightMouseDragged, kInA), ElementsAre("b right dragged"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInB), ElementsAre("a up"));
  EXPECT_THAT(sent(NSEventType::rightMouseUp, kInB),
              ElementsAre("b right up", "a exited", "b entered"));
}

TEST_F(NSWindowEvents, TellViewsThatThePointerEntersAndExits) {
  EXPECT_THAT(sent(NSEventType::mouseEntered, kInA), ElementsAre("a entered"));
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInB), ElementsAre("a exited", "b entered", "b moved"));
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInContent),
              ElementsAre("b exited", "content entered", "content moved"));
  EXPECT_THAT(sent(NSEventType::mouseExited, kInContent), ElementsAre("content exited"));
  EXPECT_THAT(sent(NSEventType::mouseExited, kInContent), IsEmpty());
}

TEST_F(NSWindowEvents, AViewMayRemoveItselfInAnyHandler) {
  const std::pair<const char*, NSEventType> cases[] = {
      {"moved", NSEventType::mouseMoved},          {"entered", NSEventType::mouseMoved},
      {"scroll", NSEventType::scrollWheel},        {"down", NSEventType::leftMouseDown},
      {"right down", NSEventType::rightMouseDown},
  };
  for (const auto& [handler, type] : cases) {
    a = std::make_shared<EventProbe>("a", log, CGRect::make(0, 10, 50, 90));
    content->addSubview(a);
    const std::weak_ptr<NSView> view = a;
    a->plans[handler] = [weak = std::weak_ptr<NSView>(a)] { weak.lock()->removeFromSuperview(); };
    a.reset();
    sent(type, kInA);
    EXPECT_TRUE(view.expired()) << handler;
    sent(NSEventType::leftMouseDragged, kInA);
    sent(NSEventType::leftMouseUp, kInA);
    sent(NSEventType::rightMouseUp, kInA);
    sent(NSEventType::mouseExited);
  }
}

TEST_F(NSWindowEvents, AViewThatNobodyElseHoldsMayRemoveItselfLater) {
  struct Row {
    const char* handler;
    NSEventType press, then;
  };
  for (const auto& [handler, press, then] : {
           Row{"dragged", NSEventType::leftMouseDown, NSEventType::leftMouseDragged},
           Row{"up", NSEventType::leftMouseDown, NSEventType::leftMouseUp},
           Row{"right dragged", NSEventType::rightMouseDown, NSEventType::rightMouseDragged},
           Row{"right up", NSEventType::rightMouseDown, NSEventType::rightMouseUp},
           Row{"exited", NSEventType::mouseMoved, NSEventType::mouseExited},
           Row{"key down", NSEventType::mouseMoved, NSEventType::keyDown},
           Row{"key up", NSEventType::mouseMoved, NSEventType::keyUp},
       }) {
    SCOPED_TRACE(handler);
    if (a) a->removeFromSuperview();
    a = std::make_shared<EventProbe>("a", log, CGRect::make(0, 10, 50, 90));
    content->addSubview(a);
    window->makeFirstResponder(a.get());
    const std::weak_ptr<NSView> view = a;
    a->plans[handler] = [view] { view.lock()->removeFromSuperview(); };
    a.reset();
    sent(press, kInA);
    EXPECT_FALSE(view.expired());
    sent(then, kInA);
    EXPECT_TRUE(view.expired());
    EXPECT_EQ(window->firstResponder(), nullptr);
    for (const auto type :
         {NSEventType::leftMouseDragged, NSEventType::leftMouseUp, NSEventType::rightMouseUp,
          NSEventType::keyDown, NSEventType::mouseExited})
      for (const std::string& heard : sent(type, kInA))
        EXPECT_THAT(heard, StartsWith("content")) << static_cast<int>(type);
  }
}

TEST_F(NSWindowEvents, AViewDestroyedWhileItIsHoveredPressedAndTheResponderIsForgotten) {
  sent(NSEventType::mouseMoved, kInA);
  sent(NSEventType::leftMouseDown, kInA);
  sent(NSEventType::rightMouseDown, kInA);
  window->makeFirstResponder(a.get());
  a->removeFromSuperview();
  a.reset();
  EXPECT_EQ(window->firstResponder(), nullptr);
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInA), IsEmpty());
  EXPECT_THAT(sent(NSEventType::rightMouseUp, kInA), ElementsAre("content entered"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInA), IsEmpty());
  EXPECT_THAT(sent(NSEventType::keyDown), ElementsAre("content key down"));
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInB),
              ElementsAre("content exited", "b entered", "b moved"));
}

TEST_F(NSWindowEvents, WhatAHandlerThrowsReachesTheSenderAndLaterEventsGoTheirWay) {
  a->plans["down"] = [] { throw std::runtime_error("down"); };
  EXPECT_THROW(sent(NSEventType::leftMouseDown, kInA), std::runtime_error);
  a->plans.clear();
  log.clear();
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInB), ElementsAre("a dragged"));
  a->plans["up"] = [] { throw std::runtime_error("up"); };
  EXPECT_THROW(sent(NSEventType::leftMouseUp, kInB), std::runtime_error);
  a->plans.clear();
  log.clear();
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInB), IsEmpty());
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInB), ElementsAre("a exited", "b entered", "b moved"));
}

TEST_F(NSWindowEvents, AViewRemovedOnEnteringLetsTheEventGoToTheOneBehind) {
  a->plans["entered"] = [this] { a->removeFromSuperview(); };
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInA), ElementsAre("a entered", "content moved"));
}

TEST_F(NSWindowEvents, ExitingMayRemoveTheViewAboutToBeEntered) {
  sent(NSEventType::mouseMoved, kInA);
  a->plans["exited"] = [this] { b->removeFromSuperview(); };
  EXPECT_THAT(sent(NSEventType::mouseMoved, kInB), ElementsAre("a exited", "content moved"));
}

TEST_F(NSWindowEvents, APressedViewThatLeftTheWindowGetsNoMore) {
  sent(NSEventType::leftMouseDown, kInA);
  a->removeFromSuperview();
  EXPECT_THAT(sent(NSEventType::leftMouseDragged, kInA), IsEmpty());
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInA), ElementsAre("content entered"));
}

TEST_F(NSWindowEvents, TheWindowMayGoDuringAnEvent) {
  for (const char* handler : {"entered", "moved", "down", "up"}) {
    window = std::make_shared<NSWindow>(CGSize{100, 100});
    window->setContentView(content);
    a->plans = {{handler, [this] { window.reset(); }}};
    for (const auto type :
         {NSEventType::mouseMoved, NSEventType::leftMouseDown, NSEventType::leftMouseUp})
      if (auto* shown = window.get()) shown->sendEvent({.type = type, .locationInWindow = kInA});
    EXPECT_EQ(window, nullptr) << handler;
    EXPECT_EQ(content->window(), nullptr) << handler;
  }
}

TEST_F(NSWindowEvents, TheContentViewMayBeReplacedDuringAnEvent) {
  a->plans["down"] = [this] { window->setContentView(nullptr); };
  EXPECT_THAT(sent(NSEventType::leftMouseDown, kInA), ElementsAre("a entered", "a down"));
  EXPECT_THAT(sent(NSEventType::leftMouseUp, kInA), IsEmpty());
}

TEST_F(NSWindowEvents, KeysGoToTheFirstResponderOrElseTheContentView) {
  EXPECT_EQ(window->firstResponder(), nullptr);
  EXPECT_THAT(sent(NSEventType::keyDown), ElementsAre("content key down"));
  EXPECT_TRUE(window->makeFirstResponder(b.get()));
  EXPECT_EQ(window->firstResponder(), b.get());
  EXPECT_THAT(sent(NSEventType::keyDown), ElementsAre("b key down"));
  EXPECT_THAT(sent(NSEventType::keyUp), ElementsAre("b key up"));
  EXPECT_FALSE(window->makeFirstResponder(std::make_shared<NSView>().get()));
  EXPECT_EQ(window->firstResponder(), b.get());
  b->removeFromSuperview();
  EXPECT_EQ(window->firstResponder(), nullptr);
  EXPECT_THAT(sent(NSEventType::keyUp), ElementsAre("content key up"));
  b.reset();
  EXPECT_EQ(window->firstResponder(), nullptr);
  EXPECT_TRUE(window->makeFirstResponder(nullptr));
}

}  // namespace
}  // namespace vexel
