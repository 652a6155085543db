#include "ExplorerView.h"

#include <AppKit/NSFunctionKeys.h>
#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGNullContext.h>
#include <Foundation/NSNotificationCenter.h>
#include <Vexel/FigureExport.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <thread>

#include "../impact-explorer/TemporaryFolder.h"

namespace explorer {
namespace {

using namespace vexel;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

constexpr double kStart = 2459000.5;
constexpr double kDays = 100;

/// A window of 600 x 400 with a figure of 99 days and room for another on either side; A rises by 1
/// and B falls by 1 per day. The time runs from x = 78 to x = 480.
class ExplorerViewTest : public testing::Test {
 protected:
  static constexpr double kLeft = 78;
  static constexpr double kRight = 480;

  ExplorerViewTest() {
    std::string content = "JD,A,B\n";
    for (int i = 1; i <= 99; ++i)
      content += std::to_string(2459000 + i) + ".5," + std::to_string(i) + ".5," +
                 std::to_string(200 - i) + "\n";
    exploration = std::make_shared<const Exploration>(
        folder.write("table.csv", content), std::nullopt, [](std::uint64_t) { return true; });
    window->setContentView(view);
    view->onChange = [this] { ++changes; };
  }

  void explore() {
    view->explore(exploration, {"A", "B", {"A", "B"}});
    CGNullContext context;
    window->display(context);
  }
  static double xAt(double day) { return kLeft + (kRight - kLeft) * day / kDays; }

  void send(NSEventType type, double x, double y = 100, NSEvent event = {}) {
    event.type = type;
    event.locationInWindow = {x, y};
    if (type == NSEventType::leftMouseDown || type == NSEventType::leftMouseUp)
      event.clickCount = std::max(event.clickCount, 1);
    window->sendEvent(event);
  }
  void click(double x) {
    send(NSEventType::leftMouseDown, x);
    send(NSEventType::leftMouseUp, x);
  }
  void wheel(double x, double deltaX, double deltaY, double when) {
    send(NSEventType::scrollWheel, x, 100,
         {.scrollingDeltaX = deltaX, .scrollingDeltaY = deltaY, .timestamp = when});
  }
  void key(const std::string& characters) {
    send(NSEventType::keyDown, 0, 0, {.characters = characters});
  }
  TimeSpan shown() const {
    const auto [start, end] = view->navigation().shown();
    return {start - kStart, end - kStart};
  }

  TemporaryFolder folder;
  std::shared_ptr<const Exploration> exploration;
  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{600, 400});
  std::shared_ptr<ExplorerView> view =
      std::make_shared<ExplorerView>(CGRect{}, PlotTheme::white, std::nullopt);
  int changes = 0;
};

TEST_F(ExplorerViewTest, WithoutATableAnswersNothing) {
  for (int type = 0; type <= static_cast<int>(NSEventType::keyUp); ++type)
    send(static_cast<NSEventType>(type), 200);
  for (const char* characters : {"\x1b", "\b", "+", "-", "\uF700", "\uF702", "\uF729", "a", ""})
    key(characters);
  view->showAll();
  view->goBack();
  view->goForward();
  EXPECT_EQ(view->underMarker(), std::nullopt);
  EXPECT_EQ(view->shownText(), "");
  EXPECT_THAT(view->subviews(), IsEmpty());
}

TEST_F(ExplorerViewTest, StandsInTwoPartsWithTheSameTimeAbove) {
  explore();
  ASSERT_THAT(view->subviews(), SizeIs(2));
  window->setContentSize({700, 500});
  EXPECT_EQ(view->subviews()[0]->frame(), CGRect::make(0, 290, 700, 210));
  EXPECT_EQ(view->subviews()[1]->frame(), CGRect::make(0, 0, 700, 290));
  view->choose({"A", "B", {}});
  EXPECT_EQ(view->subviews()[0]->frame(), CGRect::make(0, 0, 700, 500));
}

TEST_F(ExplorerViewTest, TheMarkerReadsOutTimeAndValuesInEveryPart) {
  explore();
  for (const double y : {60.0, 150.0, 300.0}) {
    send(NSEventType::mouseMoved, xAt(40) + 1, y);
    const auto under = view->underMarker();
    ASSERT_TRUE(under);
    EXPECT_EQ(under->time, "2020-07-10 05:58");
    EXPECT_THAT(under->values, ElementsAre(Pair("A", "40.5"), Pair("B", "160")));
  }
}

TEST_F(ExplorerViewTest, TheMarkerStaysUnderThePointerWhenTheTimeMoves) {
  explore();
  send(NSEventType::mouseMoved, xAt(80));
  EXPECT_THAT(view->underMarker()->values.front(), Pair("A", "80.5"));
  key(charactersOfFunctionKey(NSUpArrowFunctionKey));
  view->panBackward();
  EXPECT_THAT(view->underMarker()->values.front(), Pair("A", "66.5"));
  view->showAll();
  EXPECT_THAT(view->underMarker()->values.front(), Pair("A", "80.5"));
}

TEST_F(ExplorerViewTest, TheMarkerHidesBesideTheTimeAndWhenThePointerLeaves) {
  explore();
  for (const double x : {kLeft - 5, kRight + 5, 0.0, 599.0}) {
    send(NSEventType::mouseMoved, 200);
    EXPECT_TRUE(view->underMarker());
    send(NSEventType::mouseMoved, x);
    EXPECT_FALSE(view->underMarker()) << x;
  }
  send(NSEventType::mouseMoved, 200);
  send(NSEventType::mouseExited, 200);
  EXPECT_FALSE(view->underMarker());
}

TEST_F(ExplorerViewTest, ClicksPinMarkersAndEscapeRemovesThem) {
  explore();
  click(xAt(25));
  click(xAt(75));
  click(kRight + 50);
  EXPECT_THAT(view->pins(),
              ElementsAre(DoubleNear(kStart + 25, 0.1), DoubleNear(kStart + 75, 0.1)));
  key("\x1b");
  EXPECT_THAT(view->pins(), IsEmpty());
}

TEST_F(ExplorerViewTest, TheWheelZoomsAboutThePointerAndPansSideways) {
  explore();
  wheel(xAt(20), 0, 138.6294, 10);
  EXPECT_NEAR(shown().start, 10, 0.01);
  EXPECT_NEAR(shown().end, 60, 0.01);
  wheel(xAt(20), -(kRight - kLeft) / 5, 0, 10.1);
  EXPECT_NEAR(shown().start, 20, 0.01);
  EXPECT_NEAR(shown().end, 70, 0.01);
  wheel(kRight + 30, 0, 1000, 10.2);
  EXPECT_NEAR(shown().start, 20, 0.01);
  wheel(xAt(20), 0, -1e9, 10.3);
  EXPECT_EQ(shown(), (TimeSpan{0, 100}));
  wheel(xAt(20), std::numeric_limits<double>::quiet_NaN(), 1e9, 20);
  EXPECT_LT(shown().start, shown().end);
}

TEST_F(ExplorerViewTest, DraggingPansWithinTheLimitsAndPinsNothing) {
  explore();
  wheel(xAt(50), 0, 138.6294, 10);
  ASSERT_NEAR(shown().start, 25, 0.01);
  send(NSEventType::leftMouseDown, xAt(50));
  send(NSEventType::leftMouseDragged, xAt(70));
  EXPECT_NEAR(shown().start, 15, 0.01);
  send(NSEventType::leftMouseDragged, xAt(-5000));
  EXPECT_NEAR(shown().end, 100, 0.01);
  send(NSEventType::leftMouseDragged, xAt(40));
  EXPECT_NEAR(shown().start, 30, 0.01);
  send(NSEventType::leftMouseUp, xAt(40));
  EXPECT_THAT(view->pins(), IsEmpty());
  view->goBack();
  EXPECT_NEAR(shown().start, 25, 0.01);
  view->goForward();
  EXPECT_NEAR(shown().start, 30, 0.01);
}

TEST_F(ExplorerViewTest, TheRightButtonOrShiftChoosesTheTime) {
  explore();
  click(xAt(10));
  send(NSEventType::rightMouseDown, xAt(80));
  send(NSEventType::rightMouseDragged, xAt(50));
  send(NSEventType::rightMouseDragged, xAt(40));
  send(NSEventType::rightMouseUp, xAt(40));
  EXPECT_NEAR(shown().start, 40, 0.1);
  EXPECT_NEAR(shown().end, 80, 0.1);
  EXPECT_THAT(view->pins(), SizeIs(1));

  const NSEvent withShift{.modifierFlags = NSEventModifierFlags::shift};
  send(NSEventType::leftMouseDown, xAt(25), 100, withShift);
  send(NSEventType::leftMouseDragged, xAt(75), 100, withShift);
  send(NSEventType::leftMouseUp, xAt(75), 100, withShift);
  EXPECT_NEAR(shown().start, 50, 0.1);
  EXPECT_NEAR(shown().end, 70, 0.1);
}

TEST_F(ExplorerViewTest, ADoubleClickShowsAllAndPinsNothing) {
  explore();
  wheel(xAt(50), 0, 500, 10);
  click(xAt(50));
  const NSEvent second{.clickCount = 2};
  send(NSEventType::leftMouseDown, xAt(50), 100, second);
  send(NSEventType::leftMouseUp, xAt(50), 100, second);
  EXPECT_EQ(shown(), (TimeSpan{0, 100}));
  EXPECT_THAT(view->pins(), IsEmpty());
}

TEST_F(ExplorerViewTest, KeysDoWhatTheMouseDoes) {
  explore();
  key("+");
  EXPECT_NEAR(shown().start, 15, 0.01);
  EXPECT_NEAR(shown().end, 85, 0.01);
  key(charactersOfFunctionKey(NSLeftArrowFunctionKey));
  EXPECT_NEAR(shown().start, 1, 0.01);
  key(charactersOfFunctionKey(NSRightArrowFunctionKey));
  EXPECT_NEAR(shown().start, 15, 0.01);
  key(charactersOfFunctionKey(NSUpArrowFunctionKey));
  EXPECT_NEAR(shown().end - shown().start, 49, 0.01);
  key(charactersOfFunctionKey(NSDownArrowFunctionKey));
  key("-");
  EXPECT_EQ(shown(), (TimeSpan{0, 100}));
  key("\b");
  EXPECT_NEAR(shown().end - shown().start, 70, 0.01);
  key(charactersOfFunctionKey(NSHomeFunctionKey));
  EXPECT_EQ(shown(), (TimeSpan{0, 100}));
}

TEST_F(ExplorerViewTest, EveryViewFollowsThemeAndTable) {
  const auto other = std::make_shared<ExplorerView>(CGRect::make(0, 0, 300, 200), PlotTheme::print,
                                                    PlotCT::gmtHot);
  explore();
  other->explore(exploration, {"B", "A", {"A"}});
  wheel(xAt(50), 0, 500, 10);
  click(xAt(50));
  const TimeSpan before = shown();
  auto& center = NSNotificationCenter::defaultCenter();
  center.post({.name = PlotTheme::didChange(), .userInfo = PlotTheme(PlotTheme::black)});
  center.post({.name = PlotCT::colourTableDidChange(),
               .userInfo = std::optional<PlotCT>(PlotCT::gmtPolar)});
  for (const auto& one : {view, other}) {
    EXPECT_EQ(one->theme(), PlotTheme::black);
    EXPECT_EQ(one->colorTable(), PlotCT(PlotCT::gmtPolar));
  }
  EXPECT_EQ(shown(), before);
  EXPECT_THAT(view->pins(), SizeIs(1));
  // Others may attach what they like.
  center.post({.name = PlotTheme::didChange(), .userInfo = 5});
  center.post({.name = PlotTheme::didChange()});
  EXPECT_EQ(view->theme(), PlotTheme::black);
  center.post({.name = PlotCT::colourTableDidChange(), .userInfo = std::optional<PlotCT>()});
  EXPECT_EQ(view->colorTable(), std::nullopt);
}

TEST_F(ExplorerViewTest, AnotherTableStartsAnewAndAnotherChoiceDoesNot) {
  explore();
  wheel(xAt(50), 0, 500, 10);
  click(xAt(50));
  const TimeSpan before = shown();
  view->choose({"B", "B", {"B"}});
  EXPECT_EQ(shown(), before);
  EXPECT_THAT(view->pins(), SizeIs(1));
  explore();
  EXPECT_EQ(shown(), (TimeSpan{0, 100}));
  EXPECT_FALSE(view->navigation().canGoBack());
  EXPECT_THAT(view->pins(), IsEmpty());
}

std::string drawn(ExplorerView& view) {
  return figureData(view, "figure.png", 1);
}

TEST_F(ExplorerViewTest, AnotherViewAlsoOfAnotherThreadShowsTheSame) {
  const auto expectSame = [&] {
    send(NSEventType::mouseExited, 0);
    const auto shown = view->shown();
    EXPECT_TRUE(drawn(*std::make_shared<ExplorerView>(shown)) == drawn(*view));
    std::string elsewhere;
    std::thread([&] { elsewhere = drawn(*std::make_shared<ExplorerView>(shown)); }).join();
    EXPECT_TRUE(elsewhere == drawn(*view));
    return elsewhere;
  };
  std::set<std::string> pictures{expectSame()};
  explore();
  pictures.insert(expectSame());
  wheel(xAt(50), 0, 500, 10);
  wheel(xAt(50), 30, 0, 10.1);
  pictures.insert(expectSame());
  for (const double day : {20, 70}) {
    click(xAt(day));
    pictures.insert(expectSame());
  }
  NSNotificationCenter::defaultCenter().post(
      {.name = PlotTheme::didChange(), .userInfo = PlotTheme(PlotTheme::black)});
  pictures.insert(expectSame());
  NSNotificationCenter::defaultCenter().post(
      {.name = PlotCT::colourTableDidChange(),
       .userInfo = std::optional<PlotCT>(PlotCT(PlotCT::gmtPolar))});
  pictures.insert(expectSame());
  view->choose({"B", "A", {}});
  pictures.insert(expectSame());
  window->setContentSize({500, 300});
  pictures.insert(expectSame());
  EXPECT_THAT(pictures, SizeIs(9));
}

TEST_F(ExplorerViewTest, AnotherViewShowsNoMarkerUnderThePointer) {
  explore();
  const std::string before = drawn(*view);
  send(NSEventType::mouseMoved, 200);
  EXPECT_FALSE(drawn(*view) == before);
  EXPECT_TRUE(drawn(*std::make_shared<ExplorerView>(view->shown())) == before);
}

TEST_F(ExplorerViewTest, TellsEveryChange) {
  explore();
  EXPECT_EQ(changes, 1);
  send(NSEventType::mouseMoved, 200);
  EXPECT_EQ(changes, 2);
  view->showAll();
  EXPECT_EQ(changes, 2);
  view->zoomIn();
  EXPECT_EQ(changes, 3);
}

}  // namespace
}  // namespace explorer
