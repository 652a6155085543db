#include <AppKit/NSFunctionKeys.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCursor>
#include <QWheelEvent>
#include <functional>

#include "ShownWidget.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What a view was told, and by which method.
struct Told {
  std::string view;
  NSEvent event;
};

class Probe : public NSView {
 public:
  Probe(std::string name, std::vector<Told>& told, CGRect frame = {})
      : NSView(frame), name_(std::move(name)), told_(told) {}

  void mouseDown(const NSEvent& e) override { note(e, NSEventType::leftMouseDown); }
  void mouseUp(const NSEvent& e) override { note(e, NSEventType::leftMouseUp); }
  void mouseMoved(const NSEvent& e) override { note(e, NSEventType::mouseMoved); }
  void mouseDragged(const NSEvent& e) override { note(e, NSEventType::leftMouseDragged); }
  void mouseEntered(const NSEvent& e) override { note(e, NSEventType::mouseEntered); }
  void mouseExited(const NSEvent& e) override { note(e, NSEventType::mouseExited); }
  void rightMouseDown(const NSEvent& e) override { note(e, NSEventType::rightMouseDown); }
  void rightMouseUp(const NSEvent& e) override { note(e, NSEventType::rightMouseUp); }
  void rightMouseDragged(const NSEvent& e) override { note(e, NSEventType::rightMouseDragged); }
  void scrollWheel(const NSEvent& e) override { note(e, NSEventType::scrollWheel); }
  void keyDown(const NSEvent& e) override { note(e, NSEventType::keyDown); }
  void keyUp(const NSEvent& e) override { note(e, NSEventType::keyUp); }

  std::function<void()> onPress;

 private:
  void note(const NSEvent& event, NSEventType expected) {
    EXPECT_EQ(event.type, expected);
    told_.push_back({name_, event});
    if (expected == NSEventType::leftMouseDown && onPress) onPress();
  }

  std::string name_;
  std::vector<Told>& told_;
};

/// A window of 401 x 303 points with three bands on top of each other.
class PlotWidgetEvents : public testing::TestWithParam<double> {
 protected:
  static constexpr int kWidth = 401;
  static constexpr int kHeight = 303;

  PlotWidgetEvents() {
    // Away from all windows, so that no cursor sends events of its own.
    QCursor::setPos(screenOfRatio(1), 1900, 1900);
    for (int band = 0; band < 3; ++band) {
      auto view = std::make_shared<Probe>("band " + std::to_string(band), told,
                                          CGRect::make(0, 101 * band, kWidth, 101));
      view->setAutoresizingMask(NSAutoresizingMask::widthSizable);
      content->addSubview(view);
    }
    showOn(*widget, GetParam());
    EXPECT_EQ(widget->devicePixelRatioF(), GetParam());
    EXPECT_EQ(widget->size(), QSize(kWidth, kHeight));
    told.clear();
  }

  QWindow* window() { return widget->windowHandle(); }
  Mouse mouse() { return Mouse(window()); }

  std::vector<NSEventType> types() const {
    std::vector<NSEventType> result;
    for (const Told& one : told) result.push_back(one.event.type);
    return result;
  }

  std::vector<Told> told;
  std::shared_ptr<Probe> content =
      std::make_shared<Probe>("content", told, CGRect::make(0, 0, kWidth, kHeight));
  std::unique_ptr<PlotWidget> widget = std::make_unique<PlotWidget>(content);
};

struct Place {
  QPoint inWidget;
  std::string view;
  CGPoint inWindow;
};

// The corners, and the middle and both sides of every band, counted from the top here and from the
// bottom there.
const Place kPlaces[] = {
    {{0, 0}, "band 2", {0, 303}},       {{400, 0}, "band 2", {400, 303}},
    {{0, 302}, "band 0", {0, 1}},       {{400, 302}, "band 0", {400, 1}},
    {{200, 50}, "band 2", {200, 253}},  {{200, 151}, "band 1", {200, 152}},
    {{200, 252}, "band 0", {200, 51}},  {{200, 100}, "band 2", {200, 203}},
    {{200, 102}, "band 1", {200, 201}}, {{1, 203}, "band 0", {1, 100}},
    {{399, 200}, "band 1", {399, 103}},
};

TEST_P(PlotWidgetEvents, PressesAndReleasesComeToTheViewUnderThePointer) {
  for (const auto& [button, down, up] :
       {std::tuple{Qt::LeftButton, NSEventType::leftMouseDown, NSEventType::leftMouseUp},
        std::tuple{Qt::RightButton, NSEventType::rightMouseDown, NSEventType::rightMouseUp}})
    for (const Place& place : kPlaces) {
      mouse().move(place.inWidget);
      told.clear();
      mouse().click(place.inWidget, button);
      ASSERT_THAT(types(), ElementsAre(down, up)) << place.inWidget.x();
      for (const Told& one : told) {
        EXPECT_EQ(one.view, place.view);
        EXPECT_EQ(one.event.locationInWindow, place.inWindow);
        EXPECT_EQ(one.event.clickCount, 1);
        EXPECT_EQ(one.event.modifierFlags, NSEventModifierFlags::none);
      }
    }
}

TEST_P(PlotWidgetEvents, MovesComeWithTheirPlaceAndEnterAndLeaveViews) {
  std::string former;
  for (const Place& place : kPlaces) {
    told.clear();
    mouse().move(place.inWidget);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().event.type, NSEventType::mouseMoved);
    EXPECT_EQ(told.back().view, place.view);
    EXPECT_EQ(told.back().event.locationInWindow, place.inWindow);
    if (place.view != former) {
      ASSERT_GE(told.size(), 2u);
      EXPECT_EQ(told[told.size() - 2].event.type, NSEventType::mouseEntered);
      EXPECT_EQ(told[told.size() - 2].view, place.view);
    }
    if (place.view != former && !former.empty()) {
      EXPECT_EQ(told.front().event.type, NSEventType::mouseExited);
      EXPECT_EQ(told.front().view, former);
    }
    former = place.view;
  }
}

TEST_P(PlotWidgetEvents, ComingAndGoingIsToldOnce) {
  mouse().move({200, 50});
  told.clear();
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(widget.get(), &leave);
  ASSERT_THAT(types(), ElementsAre(NSEventType::mouseExited));
  EXPECT_EQ(told[0].view, "band 2");
  EXPECT_EQ(told[0].event.locationInWindow, (CGPoint{200, 253}));
  told.clear();
  QEnterEvent enter({200, 252}, {200, 252}, {200, 252});
  QApplication::sendEvent(widget.get(), &enter);
  ASSERT_THAT(types(), ElementsAre(NSEventType::mouseEntered));
  EXPECT_EQ(told[0].view, "band 0");
  EXPECT_EQ(told[0].event.locationInWindow, (CGPoint{200, 51}));
}

TEST_P(PlotWidgetEvents, DragsStayWithTheViewThatWasPressedAlsoOutsideTheWidget) {
  for (const auto& [button, type] : {std::pair{Qt::LeftButton, NSEventType::leftMouseDragged},
                                     std::pair{Qt::RightButton, NSEventType::rightMouseDragged}}) {
    mouse().press({10, 10}, button);
    for (const Place& place : {Place{{20, 290}, "", {20, 13}}, Place{{-30, 400}, "", {-30, -97}},
                               Place{{500, -5}, "", {500, 308}}}) {
      told.clear();
      QMouseEvent move(QEvent::MouseMove, place.inWidget, place.inWidget, Qt::NoButton, button,
                       Qt::ShiftModifier);
      QApplication::sendEvent(widget.get(), &move);
      ASSERT_THAT(types(), ElementsAre(type));
      EXPECT_EQ(told[0].view, "band 2");
      EXPECT_EQ(told[0].event.locationInWindow, place.inWindow);
      EXPECT_EQ(told[0].event.modifierFlags, NSEventModifierFlags::shift);
    }
    mouse().release({10, 10}, button);
  }
}

TEST_P(PlotWidgetEvents, ADoubleClickCountsTwo) {
  mouse().move({200, 50});
  told.clear();
  QTest::mouseDClick(window(), Qt::LeftButton, Qt::NoModifier, {200, 50});
  std::vector<int> counts;
  for (const Told& one : told) counts.push_back(one.event.clickCount);
  EXPECT_THAT(types(), ElementsAre(NSEventType::leftMouseDown, NSEventType::leftMouseUp,
                                   NSEventType::leftMouseDown, NSEventType::leftMouseUp));
  EXPECT_THAT(counts, ElementsAre(1, 1, 2, 2));
}

TEST_P(PlotWidgetEvents, OtherButtonsAreNotTold) {
  mouse().move({200, 50});
  told.clear();
  for (const auto button : {Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton})
    mouse().click({200, 50}, button);
  EXPECT_THAT(told, IsEmpty());
}

TEST_P(PlotWidgetEvents, TheWheelComesInPointsOfItsNotchesOrOfATouchpad) {
  struct Case {
    QPoint pixels, angle;
    CGPoint expected;
  };
  const Case cases[] = {
      {{}, {0, 120}, {0, PlotWidget::kPointsPerNotch}},
      {{}, {0, -240}, {0, -2 * PlotWidget::kPointsPerNotch}},
      {{}, {60, 0}, {PlotWidget::kPointsPerNotch / 2, 0}},
      {{3, -7}, {15, -35}, {3, -7}},
      {{}, {}, {0, 0}},
  };
  for (const Place& place : kPlaces)
    for (const auto& [pixels, angle, expected] : cases) {
      mouse().move(place.inWidget);
      told.clear();
      QWheelEvent wheel(place.inWidget, widget->mapToGlobal(place.inWidget), pixels, angle,
                        Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(widget.get(), &wheel);
      ASSERT_THAT(types(), ElementsAre(NSEventType::scrollWheel));
      const auto& [view, event] = told.front();
      EXPECT_EQ(view, place.view);
      EXPECT_EQ(event.locationInWindow, place.inWindow);
      EXPECT_EQ((CGPoint{event.scrollingDeltaX, event.scrollingDeltaY}), expected);
      EXPECT_EQ(event.modifierFlags, NSEventModifierFlags::control);
    }
}

TEST_P(PlotWidgetEvents, KeysComeToTheFirstResponderWithTheirText) {
  struct Case {
    Qt::Key key;
    QString text;
    std::string expected;
  };
  const Case cases[] = {
      {Qt::Key_A, "a", "a"},
      {Qt::Key_Odiaeresis, "\u00f6", "\xC3\xB6"},
      {Qt::Key_Escape, "\x1b", "\x1b"},
      {Qt::Key_Left, "", charactersOfFunctionKey(NSLeftArrowFunctionKey)},
      {Qt::Key_Right, "", "\uF703"},
      {Qt::Key_Up, "", "\uF700"},
      {Qt::Key_Down, "", "\uF701"},
      {Qt::Key_Home, "", "\uF729"},
      {Qt::Key_End, "", "\uF72B"},
      {Qt::Key_PageUp, "", "\uF72C"},
      {Qt::Key_PageDown, "", "\uF72D"},
      {Qt::Key_Insert, "", "\uF727"},
      {Qt::Key_Delete, "\x7f", "\uF728"},
      {Qt::Key_F1, "", "\uF704"},
      {Qt::Key_F12, "", "\uF70F"},
      {Qt::Key_CapsLock, "", ""},
  };
  for (const bool hasResponder : {false, true}) {
    const auto responder = hasResponder ? content->subviews()[1] : content;
    widget->viewWindow().makeFirstResponder(responder.get());
    for (const auto& [key, text, expected] : cases) {
      told.clear();
      for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::AltModifier | Qt::MetaModifier, 38, 0, 0, text);
        QApplication::sendEvent(widget.get(), &event);
      }
      ASSERT_THAT(types(), ElementsAre(NSEventType::keyDown, NSEventType::keyUp));
      for (const auto& [view, event] : told) {
        EXPECT_EQ(view, hasResponder ? "band 1" : "content");
        EXPECT_EQ(event.characters, expected);
        EXPECT_EQ(event.keyCode, 38);
        EXPECT_EQ(event.modifierFlags,
                  NSEventModifierFlags::option | NSEventModifierFlags::command);
      }
    }
  }
}

TEST_P(PlotWidgetEvents, LocationsStayRightWhenTheRatioChangesOnTheWay) {
  for (const double ratio : {2.0, 1.25, 1.0, 1.5, GetParam()}) {
    showOn(*widget, ratio);
    ASSERT_EQ(widget->devicePixelRatioF(), ratio);
    // The window has kept its size in pixels.
    widget->resize(kWidth, kHeight);
    settle();
    for (const Place& place : kPlaces) {
      told.clear();
      mouse().move(place.inWidget);
      ASSERT_FALSE(told.empty());
      EXPECT_EQ(told.back().view, place.view);
      EXPECT_EQ(told.back().event.locationInWindow, place.inWindow);
    }
  }
}

TEST_P(PlotWidgetEvents, AnEventMayRemoveItsViewOrDestroyItsWidget) {
  const auto pressed = std::dynamic_pointer_cast<Probe>(content->subviews()[2]);
  pressed->onPress = [&] { pressed->removeFromSuperview(); };
  mouse().click({200, 50}, Qt::LeftButton);
  EXPECT_EQ(content->subviews().size(), 2u);

  const auto other = std::dynamic_pointer_cast<Probe>(content->subviews()[0]);
  other->onPress = [&] { widget.reset(); };
  mouse().press({200, 252}, Qt::LeftButton);
  EXPECT_EQ(widget, nullptr);
  EXPECT_EQ(content->window(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(AtEveryRatio, PlotWidgetEvents, testing::ValuesIn(kRatios));

}  // namespace
}  // namespace vexel
