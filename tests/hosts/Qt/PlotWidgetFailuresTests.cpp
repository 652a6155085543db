#include <CocoaLumberjack/DDLog.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "ShownWidget.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGColor kRed = CGColor::deviceRGB(1, 0, 0);
constexpr CGColor kBlue = CGColor::deviceRGB(0, 0, 1);

/// Fills itself, or throws what it is told to.
class Band : public NSView {
 public:
  using NSView::NSView;

  void draw(CGContext& context, CGRect) override {
    if (fails) fails();
    context.fillAligned(bounds(), color);
  }
  void layout() override {
    NSView::layout();
    if (failsToLayOut) failsToLayOut();
  }

  CGColor color = kRed;
  std::function<void()> fails, failsToLayOut;
};

void throwError() {
  throw std::runtime_error("no numbers");
}
void throwOther() {
  throw std::logic_error("no names");
}
void throwBadAlloc() {
  throw std::bad_alloc();
}

class Messages : public DDLogger {
 public:
  void log(const DDLogMessage& message) override {
    texts.push_back(message.message);
    flags.push_back(message.flag);
  }
  std::vector<std::string> texts;
  std::vector<DDLogFlag> flags;
};

/// Three bands, of which band 2 is the topmost.
class PlotWidgetFailures : public testing::Test {
 protected:
  PlotWidgetFailures() {
    DDLog::sharedInstance().removeAllLoggers();
    DDLog::sharedInstance().addLogger(messages);
    for (int i = 0; i < 3; ++i) {
      bands.push_back(std::make_shared<Band>(CGRect::make(0, 40 * i, 100, 40)));
      view->addSubview(bands.back());
    }
    showOn(widget, 1);
    for (const auto& band : bands) {
      band->color = kBlue;
      band->setNeedsDisplay(true);
    }
  }
  ~PlotWidgetFailures() override { DDLog::sharedInstance().removeAllLoggers(); }

  std::vector<QColor> colors() {
    const QImage image = onScreen(widget);
    return {image.pixelColor(50, 20), image.pixelColor(50, 60), image.pixelColor(50, 100)};
  }
  void moveMouse() { Mouse(widget.windowHandle()).move({mouseX_ += 1, 60}); }

  std::shared_ptr<Messages> messages = std::make_shared<Messages>();
  std::shared_ptr<NSView> view = std::make_shared<NSView>(CGRect::make(0, 0, 100, 120));
  std::vector<std::shared_ptr<Band>> bands;
  PlotWidget widget{view};

 private:
  qreal mouseX_ = 50;
};

const QColor kShownRed(255, 0, 0), kShownBlue(0, 0, 255);

TEST_F(PlotWidgetFailures, OfAViewLeaveTheOthersDrawnAndItMarked) {
  bands[1]->fails = throwError;
  settle();
  const auto shown = colors();
  EXPECT_EQ(shown[0], kShownBlue);
  EXPECT_NE(shown[1], kShownBlue);
  EXPECT_EQ(shown[2], kShownBlue);
  EXPECT_TRUE(bands[1]->needsDisplay());
  EXPECT_TRUE(widget.viewWindow().needsDisplay());
}

TEST_F(PlotWidgetFailures, AreLoggedOnceAsLongAsTheyAreTheSame) {
  bands[1]->fails = throwError;
  settle();
  for (int i = 0; i < 3; ++i) {
    moveMouse();
    settle();
  }
  EXPECT_THAT(messages->texts, ElementsAre("a view could not be drawn: no numbers"));
  EXPECT_THAT(messages->flags, ElementsAre(DDLogFlag::error));
  bands[1]->fails = throwOther;
  moveMouse();
  settle();
  bands[1]->fails = nullptr;
  moveMouse();
  settle();
  bands[1]->fails = throwOther;
  bands[1]->setNeedsDisplay(true);
  settle();
  EXPECT_THAT(messages->texts, ElementsAre("a view could not be drawn: no numbers",
                                           "a view could not be drawn: no names",
                                           "a view could not be drawn: no names"));
}

TEST_F(PlotWidgetFailures, DoNotKeepTheEventLoopBusy) {
  int attempts = 0;
  bands[1]->fails = [&] {
    ++attempts;
    throwError();
  };
  for (int i = 0; i < 20; ++i) settle();
  EXPECT_EQ(attempts, 1);
}

TEST_F(PlotWidgetFailures, OfSeveralViewsThatTakeLongerThanAFrameEndAsWell) {
  const auto failSlowly = [] {
    QTest::qSleep(20);
    throwError();
  };
  bands[0]->fails = failSlowly;
  bands[2]->fails = failSlowly;
  bands[1]->fails = [] { QTest::qSleep(20); };
  settle();
  EXPECT_EQ(colors()[1], kShownBlue);
  int attempts = 0;
  bands[0]->fails = [&] { ++attempts; };
  for (int i = 0; i < 20; ++i) settle();
  EXPECT_EQ(attempts, 0);
}

TEST_F(PlotWidgetFailures, AreTriedAgainWithTheNextEventOrAfterAWhile) {
  bands[1]->fails = throwError;
  settle();
  bands[1]->fails = nullptr;
  moveMouse();
  settle();
  EXPECT_EQ(colors()[1], kShownBlue);
  EXPECT_FALSE(widget.viewWindow().needsDisplay());

  bands[1]->color = kRed;
  bands[1]->fails = throwError;
  bands[1]->setNeedsDisplay(true);
  settle();
  bands[1]->fails = nullptr;
  EXPECT_TRUE(QTest::qWaitFor([&] { return !widget.viewWindow().needsDisplay(); }));
  EXPECT_EQ(colors()[1], kShownRed);
}

TEST_F(PlotWidgetFailures, ToBeLaidOutLeaveWhatIsShown) {
  bands[1]->failsToLayOut = throwError;
  bands[1]->setNeedsLayout(true);
  settle();
  for (const QColor& color : colors()) EXPECT_EQ(color, kShownRed);
  // The look has asked for a display, and the loop for what is to be drawn.
  EXPECT_THAT(messages->texts, ElementsAre("a view could not be drawn: no numbers"));
  bands[1]->failsToLayOut = nullptr;
  EXPECT_TRUE(QTest::qWaitFor([&] { return !widget.viewWindow().needsDisplay(); }));
  for (const QColor& color : colors()) EXPECT_EQ(color, kShownBlue);
}

TEST_F(PlotWidgetFailures, AtAnotherSizeShowTheFormerPicture) {
  bands[1]->failsToLayOut = throwError;
  widget.resize(200, 240);
  bands[1]->setNeedsLayout(true);
  settle();
  EXPECT_EQ(onScreen(widget).pixelColor(100, 120), kShownRed);
}

TEST_F(PlotWidgetFailures, OfCopiesReachTheCallerAndLeaveTheMarks) {
  settle();
  bands[1]->fails = throwError;
  const QPageLayout page(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
  EXPECT_THROW(widget.image(1), std::runtime_error);
  EXPECT_THROW(widget.mimeData(), std::runtime_error);
  EXPECT_THROW(widget.pdfPage(page), std::runtime_error);
  EXPECT_TRUE(bands[1]->needsDisplay());
  EXPECT_THAT(messages->texts, IsEmpty());
}

TEST_F(PlotWidgetFailures, MemoryThatEndsMakesNoCopy) {
  bands[1]->fails = throwBadAlloc;
  const QPageLayout page(QPageSize(QPageSize::A4), QPageLayout::Portrait, {});
  EXPECT_TRUE(widget.image(1).isNull());
  EXPECT_TRUE(widget.pdfPage(page).isEmpty());
  bands[1]->fails = nullptr;
  EXPECT_FALSE(widget.image(1).isNull());
  EXPECT_TRUE(widget.pdfPage(page).startsWith("%PDF"));
}

}  // namespace
}  // namespace vexel
