#include <Vexel/PlotView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>
#include <QThread>

#include "ShownWidget.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGColor kStripes = CGColor::deviceRGB(0, 0, 0);

/// Fills what it is asked to draw, and notes it.
class Colored : public NSView {
 public:
  Colored(CGRect frame, CGColor color) : NSView(frame), color_(color) {}

  void draw(CGContext& context, CGRect dirtyRect) override {
    drawn.push_back(dirtyRect);
    context.fillAligned(bounds(), color_);
    // Stripes that a picture would lose when it were stretched.
    for (CGFloat x = 3; x < bounds().size.width; x += 4)
      context.fillAligned(CGRect::make(x, 0, 1, bounds().size.height), kStripes);
  }
  void recolor(CGColor color, CGRect part) {
    color_ = color;
    setNeedsDisplayInRect(part);
  }

  std::vector<CGRect> drawn;

 private:
  CGColor color_;
};

constexpr CGColor kRed = CGColor::deviceRGB(1, 0, 0);
constexpr CGColor kGreen = CGColor::deviceRGB(0, 1, 0);
constexpr CGColor kBlue = CGColor::deviceRGB(0, 0, 1);

struct Recorder : virtual NSObject, PlotViewDelegate {
  void setFrameSize(CGSize size) override { sizes.push_back(size); }
  std::vector<CGSize> sizes;
};

/// Counts how often the widget that it is installed on is painted.
struct Repaints : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
  int count = 0;
};

class PlotWidgetDisplay : public testing::TestWithParam<double> {
 protected:
  PlotWidgetDisplay() {
    constexpr auto kSizes = NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable;
    left->setAutoresizingMask(kSizes | NSAutoresizingMask::maxXMargin);
    right->setAutoresizingMask(kSizes | NSAutoresizingMask::minXMargin);
    view->addSubview(left);
    view->addSubview(right);
  }

  /// The whole pixels of the widget, drawn in one go.
  QImage expected(const PlotWidget& widget) const {
    const double ratio = widget.devicePixelRatioF();
    const QImage image = widget.image(ratio).convertToFormat(QImage::Format_RGB32);
    const int width = static_cast<int>(widget.width() * ratio);
    const int height = static_cast<int>(widget.height() * ratio);
    return image.copy(0, image.height() - height, width, height);
  }

  void expectShown(PlotWidget& widget) const {
    const QImage screen = onScreen(widget);
    const QImage figure = expected(widget);
    // Half a pixel may be rounded up.
    EXPECT_LE(screen.width() - figure.width(), 1);
    EXPECT_LE(screen.height() - figure.height(), 1);
    EXPECT_EQ(differingPixels(screen.copy(figure.rect()), figure), 0);
  }

  std::shared_ptr<PlotView> view = std::make_shared<PlotView>(CGRect::make(0, 0, 200, 120));
  std::shared_ptr<Colored> left = std::make_shared<Colored>(CGRect::make(0, 0, 100, 120), kRed);
  std::shared_ptr<Colored> right =
      std::make_shared<Colored>(CGRect::make(100, 0, 100, 120), kGreen);
};

TEST_P(PlotWidgetDisplay, ShowsTheViewsAtTheRatioOfTheScreen) {
  PlotWidget widget(view);
  EXPECT_EQ(widget.sizeHint(), QSize(200, 120));
  showOn(widget, GetParam());
  ASSERT_EQ(onScreen(widget).size(), QSize(200, 120) * GetParam());
  expectShown(widget);
}

TEST_P(PlotWidgetDisplay, FollowsARatioThatChangesWhileItIsShown) {
  PlotWidget widget(view);
  for (const double ratio : {GetParam(), 1.0, 2.0, 1.25, 1.5, GetParam()}) {
    showOn(widget, ratio);
    left->recolor(ratio == 2 ? kBlue : kRed, CGRect::make(10, 10, 20, 20));
    left->setNeedsDisplay(true);
    settle();
    ASSERT_EQ(widget.devicePixelRatioF(), ratio);
    expectShown(widget);
  }
}

TEST_P(PlotWidgetDisplay, DrawsOnlyWhatIsMarkedSoonAfterIt) {
  PlotWidget widget(view);
  showOn(widget, GetParam());
  left->drawn.clear();
  right->drawn.clear();
  settle();
  EXPECT_THAT(left->drawn, IsEmpty());

  right->recolor(kBlue, CGRect::make(20, 30, 10.3, 7.7));
  settle();
  EXPECT_THAT(left->drawn, IsEmpty());
  ASSERT_EQ(right->drawn.size(), 1u);
  const CGRect drawn = right->drawn.front();
  EXPECT_LE(drawn.minX(), 20);
  EXPECT_GE(drawn.maxX(), 30.3);
  EXPECT_LE(drawn.size.width, 12.3);
  EXPECT_LE(drawn.size.height, 9.7);
  EXPECT_FALSE(widget.viewWindow().needsDisplay());

  const QImage screen = onScreen(widget);
  const auto pixel = [&](double x, double y) {
    return QColor(screen.pixel(QPointF(x * GetParam(), y * GetParam()).toPoint()));
  };
  EXPECT_EQ(pixel(125, 120 - 34), QColor(0, 0, 255));
  EXPECT_EQ(pixel(118, 120 - 34), QColor(0, 255, 0));
  EXPECT_EQ(pixel(133, 120 - 34), QColor(0, 255, 0));
}

TEST_P(PlotWidgetDisplay, PartsDrawnOneByOneGiveTheWholePicture) {
  PlotWidget widget(view);
  showOn(widget, GetParam());
  left->recolor(kBlue, {});
  for (int y = 0; y < 120; y += 7)
    for (int x = 0; x < 100; x += 13) {
      left->setNeedsDisplayInRect(CGRect::make(x, y, 13.1, 7.1));
      settle();
    }
  expectShown(widget);
}

TEST_P(PlotWidgetDisplay, StandsOnWholePixelsBesideOtherWidgets) {
  QWidget window;
  auto* const row = new QHBoxLayout(&window);
  row->setContentsMargins(3, 5, 3, 3);
  row->setSpacing(1);
  auto* const widget = new PlotWidget(view);
  row->addWidget(new QLabel("A"));
  row->addWidget(widget, 1);
  window.resize(333, 217);
  showOn(window, GetParam());

  const QImage all = onScreen(window);
  const QImage figure = expected(*widget);
  const QPointF corner = QPointF(widget->mapTo(&window, QPoint())) * GetParam();
  const QPoint first(static_cast<int>(std::round(corner.x())),
                     static_cast<int>(std::round(corner.y())));
  ASSERT_LE(first.x() + figure.width(), all.width());
  EXPECT_EQ(differingPixels(all.copy(QRect(first, figure.size())), figure), 0);
}

TEST_P(PlotWidgetDisplay, ManyWidgetsLiveInSplittersAndTabs) {
  QSplitter window;
  auto* const tabs = new QTabWidget;
  std::vector<PlotWidget*> widgets;
  for (int i = 0; i < 4; ++i) {
    auto* const widget =
        new PlotWidget(std::make_shared<Colored>(CGRect::make(0, 0, 90, 80), i % 2 ? kRed : kBlue));
    widgets.push_back(widget);
    if (i < 2)
      window.addWidget(widget);
    else
      tabs->addTab(widget, QString::number(i));
  }
  window.addWidget(tabs);
  window.resize(500, 200);
  showOn(window, GetParam());
  window.setSizes({50, 200, 250});
  tabs->setCurrentIndex(1);
  settle();
  for (const int i : {0, 1, 3}) {
    const QImage all = onScreen(window);
    const QPoint middle = widgets[i]->mapTo(&window, widgets[i]->rect().center() + QPoint(0, 20));
    EXPECT_EQ(QColor(all.pixel((QPointF(middle) * GetParam()).toPoint())),
              i % 2 ? QColor(255, 0, 0) : QColor(0, 0, 255));
    EXPECT_EQ(widgets[i]->contentView()->bounds().size.width, widgets[i]->width());
  }
  EXPECT_FALSE(widgets[2]->isVisible());
}

TEST_P(PlotWidgetDisplay, AStormOfSizesReachesTheDelegateAndEndsInTheLastOne) {
  Recorder recorder;
  PlotWidget widget(view);
  view->setDelegate(&recorder);
  showOn(widget, GetParam());
  recorder.sizes.clear();
  for (int i = 0; i < 300; ++i) widget.resize(1 + (i * 37) % 400, 1 + (i * 91) % 300);
  widget.resize(0, 0);
  widget.resize(1, 1);
  widget.resize(160, 96);
  settle();
  ASSERT_FALSE(recorder.sizes.empty());
  EXPECT_EQ(recorder.sizes.back(), (CGSize{160, 96}));
  EXPECT_EQ(left->frame().size.height, 96);
  expectShown(widget);
}

TEST_P(PlotWidgetDisplay, WhatNoViewDrawsShowsTheBackground) {
  PlotWidget widget;
  widget.resize(50, 40);
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(10, 200, 30));
  widget.setPalette(palette);
  showOn(widget, GetParam());
  EXPECT_EQ(QColor(onScreen(widget).pixel(20, 20)), QColor(10, 200, 30));
  palette.setColor(QPalette::Window, QColor(200, 20, 30));
  widget.setPalette(palette);
  settle();
  EXPECT_EQ(QColor(onScreen(widget).pixel(20, 20)), QColor(200, 20, 30));
  widget.setContentView(nullptr);
  settle();
  EXPECT_EQ(QColor(onScreen(widget).pixel(20, 20)), QColor(200, 20, 30));
  EXPECT_TRUE(widget.image(1).isNull());
  EXPECT_FALSE(widget.sizeHint().isValid());
}

TEST_P(PlotWidgetDisplay, AnotherContentViewIsShownAtTheSizeOfTheWidget) {
  PlotWidget widget(view);
  showOn(widget, GetParam());
  const auto other = std::make_shared<Colored>(CGRect::make(0, 0, 30, 20), kBlue);
  widget.setContentView(other);
  settle();
  EXPECT_EQ(view->window(), nullptr);
  EXPECT_EQ(other->frame(), CGRect::make(0, 0, 200, 120));
  EXPECT_EQ(widget.sizeHint(), QSize(30, 20));
  expectShown(widget);
}

TEST_P(PlotWidgetDisplay, AViewThatAnotherWidgetTakesIsNoLongerShownHere) {
  PlotWidget widget(view);
  PlotWidget other(std::make_shared<Colored>(CGRect::make(0, 0, 200, 120), kBlue));
  showOn(widget, GetParam());
  showOn(other, GetParam());
  Repaints repaints;
  widget.installEventFilter(&repaints);
  other.setContentView(view);
  settle();
  EXPECT_EQ(repaints.count, 1);
  EXPECT_EQ(widget.contentView(), nullptr);
  expectShown(other);
  view->removeFromSuperview();
  view.reset();
  settle();
  EXPECT_EQ(QColor(onScreen(other).pixel(20, 20)), other.palette().color(QPalette::Window));
}

INSTANTIATE_TEST_SUITE_P(AtEveryRatio, PlotWidgetDisplay, testing::ValuesIn(kRatios));

/// Takes more than a frame's time to draw.
class Slow : public Colored {
 public:
  using Colored::Colored;

  void draw(CGContext& context, CGRect dirtyRect) override {
    QThread::msleep(20);
    Colored::draw(context, dirtyRect);
  }
};

/// Three bands, of which band 2 is the topmost.
class SlowPlotWidget : public testing::TestWithParam<double> {
 protected:
  SlowPlotWidget() {
    constexpr auto kSizes = NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable;
    for (int i = 0; i < 3; ++i) {
      bands.push_back(std::make_shared<Slow>(CGRect::make(0, 40 * i, 100, 40), kRed));
      bands.back()->setAutoresizingMask(kSizes | NSAutoresizingMask::minYMargin |
                                        NSAutoresizingMask::maxYMargin);
      view->addSubview(bands.back());
    }
    showOn(widget, GetParam());
    finish();
    widget.installEventFilter(&repaints);
  }

  bool finish() {
    return QTest::qWaitFor([&] { return !widget.viewWindow().needsDisplay(); });
  }
  /// All of it has to be drawn again, but only one frame is.
  void beginAgain() {
    view->setNeedsDisplay(true);
    widget.repaint();
  }
  std::vector<std::size_t> timesDrawn() const {
    std::vector<std::size_t> result;
    for (const auto& band : bands) result.push_back(band->drawn.size());
    return result;
  }

  std::shared_ptr<PlotView> view = std::make_shared<PlotView>(CGRect::make(0, 0, 100, 120));
  std::vector<std::shared_ptr<Slow>> bands;
  PlotWidget widget{view};
  Repaints repaints;
};

TEST_P(SlowPlotWidget, IsShownPartByPartWithEventsInBetween) {
  for (const auto& band : bands) band->drawn.clear();
  std::vector<std::vector<std::size_t>> seen;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] { seen.push_back(timesDrawn()); });
  timer.start(0);
  view->setNeedsDisplay(true);
  widget.update();
  ASSERT_TRUE(finish());
  EXPECT_EQ(repaints.count, 3);
  EXPECT_THAT(timesDrawn(), ElementsAre(1, 1, 1));
  EXPECT_THAT(seen, testing::Contains(ElementsAre(0, 0, 1)));
  EXPECT_THAT(seen, testing::Contains(ElementsAre(0, 1, 1)));
}

TEST_P(SlowPlotWidget, EveryPartHasItsTurnWhenItNeverComesToRest) {
  for (const auto& band : bands) band->drawn.clear();
  for (int i = 0; i < 6; ++i) beginAgain();
  EXPECT_THAT(timesDrawn(), ElementsAre(2, 2, 2));
}

TEST_P(SlowPlotWidget, ShowsTheFormerPictureWhereItIsNotDrawnYet) {
  for (const auto& band : bands) band->recolor(kBlue, {});
  widget.resize(200, 240);
  widget.repaint();
  const auto colorAt = [&](int y) {
    const QImage image = onScreen(widget);
    return QColor(image.pixel(2, static_cast<int>(y * GetParam())));
  };
  // The look draws another part.
  EXPECT_EQ(colorAt(200), QColor(255, 0, 0));
  ASSERT_TRUE(finish());
  for (const int y : {40, 120, 200}) EXPECT_EQ(colorAt(y), QColor(0, 0, 255));
}

INSTANTIATE_TEST_SUITE_P(AtEveryRatio, SlowPlotWidget, testing::ValuesIn(kRatios));

/// Takes long for each point of height.
class SlowByHeight : public Colored {
 public:
  using Colored::Colored;

  void draw(CGContext& context, CGRect dirtyRect) override {
    if (isSlow) QThread::usleep(static_cast<unsigned long>(500 * dirtyRect.size.height));
    Colored::draw(context, dirtyRect);
  }

  bool isSlow = true;
};

class TallPlotWidget : public testing::TestWithParam<double> {
 protected:
  TallPlotWidget() { showOn(widget, GetParam()); }

  void drawAgain(CGColor color, const CGRect& part) {
    view->drawn.clear();
    view->recolor(color, part);
    for (int i = 0; i < 20 && widget.viewWindow().needsDisplay(); ++i) settle();
  }

  void expectWhole() {
    const QImage shown = onScreen(widget);
    EXPECT_EQ(
        differingPixels(shown, widget.image(GetParam()).convertToFormat(QImage::Format_RGB32)), 0);
  }

  std::shared_ptr<SlowByHeight> view =
      std::make_shared<SlowByHeight>(CGRect::make(0, 0, 100, 240), kRed);
  PlotWidget widget{view};
};

TEST_P(TallPlotWidget, IsDrawnInPiecesWhenItTakesLong) {
  for (const CGColor color : {kBlue, kGreen}) {
    drawAgain(color, view->bounds());
    ASSERT_EQ(view->drawn.size(), 3u);
    CGFloat height = 0;
    for (const CGRect& piece : view->drawn) height += piece.size.height;
    EXPECT_NEAR(height, 240, 1e-6);
    for (const CGRect& piece : view->drawn) EXPECT_NEAR(piece.size.height, 80, 1);
    expectWhole();
  }
}

TEST_P(TallPlotWidget, IsDrawnAtOnceWhenItHasLongTakenLittleTime) {
  view->isSlow = false;
  for (int i = 0; i < 100; ++i) drawAgain(i % 2 ? kBlue : kRed, view->bounds());
  EXPECT_EQ(view->drawn.size(), 1u);
}

TEST_P(TallPlotWidget, IsNotCutWhereLittleIsMarked) {
  for (const CGRect& part : {CGRect::make(10, 0, 20, 240), CGRect::make(0, 100, 100, 10)}) {
    drawAgain(kBlue, part);
    EXPECT_EQ(view->drawn.size(), 1u);
  }
}

INSTANTIATE_TEST_SUITE_P(AtEveryRatio, TallPlotWidget, testing::ValuesIn(kRatios));

TEST(PlotWidgetLifetime, WidgetsMayBeDestroyedInAnyOrder) {
  std::vector<int> order = {0, 1, 2, 3};
  do {
    // Two of them show one view after the other, and one is the parent of another.
    const auto shared = std::make_shared<Colored>(CGRect::make(0, 0, 60, 40), kRed);
    std::vector<QPointer<PlotWidget>> widgets;
    widgets.emplace_back(new PlotWidget(shared));
    widgets.emplace_back(new PlotWidget(shared));
    widgets.emplace_back(new PlotWidget(std::make_shared<PlotView>(CGRect::make(0, 0, 9, 9))));
    widgets.emplace_back(new PlotWidget(widgets[2].data()));
    for (const auto& widget : widgets) showOn(*widget, 1);
    for (const int next : order) {
      delete widgets[next].data();
      shared->setNeedsDisplay(true);
      QCoreApplication::processEvents();
    }
    for (const auto& widget : widgets) EXPECT_EQ(widget, nullptr);
    EXPECT_EQ(shared->window(), nullptr);
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(PlotWidgetLifetime, ViewsMayGoBeforeTheirWidget) {
  auto view = std::make_shared<Colored>(CGRect::make(0, 0, 60, 40), kRed);
  PlotWidget widget(view);
  showOn(widget, 1);
  QTest::mouseMove(widget.windowHandle(), {30, 20});
  view->removeFromSuperview();
  view.reset();
  settle();
  EXPECT_EQ(widget.contentView(), nullptr);
  Mouse(widget.windowHandle()).click({30, 20}, Qt::LeftButton);
  widget.resize(80, 80);
  settle();
}

TEST(PlotWidgetLifetime, SizesBeyondAllBitmapsShowNothing) {
  const auto view = std::make_shared<Colored>(CGRect::make(0, 0, 60, 40), kRed);
  PlotWidget widget(view);
  widget.resize(40000, 30);
  EXPECT_TRUE(widget.image(1).isNull() || widget.contentView()->bounds().size.width < 32768);
  EXPECT_TRUE(widget.image(1e6).isNull());
  EXPECT_TRUE(widget.image(0).isNull());
  EXPECT_TRUE(widget.image(-1).isNull());
}

}  // namespace
}  // namespace vexel
