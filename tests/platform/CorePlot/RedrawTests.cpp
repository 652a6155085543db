#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

std::vector<double> waves(double phase) {
  std::vector<double> y;
  for (int i = 0; i <= 60; ++i) y.push_back(0.5 + 0.4 * std::sin(0.2 * i + phase));
  return y;
}

std::vector<double> places() {
  std::vector<double> x;
  for (int i = 0; i <= 60; ++i) x.push_back(i / 60.0);
  return x;
}

/// A chart that is displayed on one bitmap again and again, as a window does.
class RedrawTest : public testing::Test {
 protected:
  RedrawTest() {
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    graph->setPadding(40);
    graph->plotAreaFrame()->setMasksToBorder(false);
    lower->setDataLineStyle(CPTLineStyle{.lineColor = CPTColor::redColor()});
    upper->setDataLineStyle(CPTLineStyle{.lineColor = CPTColor::blueColor()});
    CPTPlotSymbol symbol = CPTPlotSymbol::ellipsePlotSymbol();
    symbol.setFill(CPTFill(CPTColor::colorWithComponents(0, 1, 0, 0.5)));
    middle->setPlotSymbol(symbol);
    note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
    graph->plotAreaFrame()->plotArea()->addAnnotation(note);
  }

  std::vector<std::uint32_t> display() {
    context = CGBitmapContext::create(graph->bounds().size, scale);
    graph->displayChart(*context);
    return pixelsOf(*context);
  }

  /// The same chart drawn with nothing kept: on a surface of pixels that no picture fits.
  std::vector<std::uint32_t> drawnAfresh() {
    graph->setNeedsDisplay();
    for (const auto& plot : graph->allPlots()) plot->setNeedsDisplay();
    return display();
  }

  void expectSameAsAfresh(const std::string& after) {
    const auto kept = display();
    EXPECT_TRUE(kept == drawnAfresh()) << after;
    display();
    display();
  }

  double scale = 1;
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
  std::shared_ptr<CPTXYPlotSpace> space = spaceOf(*graph);
  ListSource lowerSource{{places(), waves(0)}};
  ListSource middleSource{{places(), waves(1)}};
  ListSource upperSource{{places(), waves(2)}};
  std::shared_ptr<CPTScatterPlot> lower = addScatter(*graph, lowerSource, "lower");
  std::shared_ptr<CPTScatterPlot> middle = addScatter(*graph, middleSource, "middle");
  std::shared_ptr<CPTScatterPlot> upper = addScatter(*graph, upperSource, "upper");
  std::shared_ptr<CPTPlotSpaceAnnotation> note =
      std::make_shared<CPTPlotSpaceAnnotation>(space.get(), std::vector<double>{0.5, 0.5});
  std::unique_ptr<CGBitmapContext> context;
};

TEST_F(RedrawTest, DataAreReadOnceForAllDisplays) {
  for (int i = 0; i < 5; ++i) display();
  space->setXRange({0, 0.5});
  display();
  graph->setFrame(CGRect::make(0, 0, 310, 210));
  display();
  EXPECT_EQ(lowerSource.askedForRecords, 1);
  EXPECT_EQ(lowerSource.askedForFields[0], 1);
  EXPECT_EQ(lowerSource.askedForFields[1], 1);
  EXPECT_EQ(lowerSource.askedForSymbols, 1);
  EXPECT_EQ(lowerSource.askedForLabels, 1);
}

TEST_F(RedrawTest, AnUnchangedChartIsShownFromTheKeptPicture) {
  display();
  display();
  const unsigned before = lower->displayCount();
  const auto first = display();
  EXPECT_EQ(lower->displayCount(), before);
  EXPECT_EQ(upper->displayCount(), before);
  EXPECT_EQ(graph->displayCount(), before);
  EXPECT_TRUE(first == drawnAfresh());
}

TEST_F(RedrawTest, AChangedPlotOnTopRedrawsItselfAlone) {
  display();
  upper->setDataNeedsReloading();
  display();
  const unsigned lowerBefore = lower->displayCount(), upperBefore = upper->displayCount();
  const unsigned graphBefore = graph->displayCount();
  for (int i = 0; i < 10; ++i) {
    upperSource.fields[1] = waves(i);
    upper->setDataNeedsReloading();
    display();
  }
  EXPECT_EQ(upper->displayCount(), upperBefore + 10);
  EXPECT_EQ(lower->displayCount(), lowerBefore);
  EXPECT_EQ(middle->displayCount(), lowerBefore);
  EXPECT_EQ(graph->displayCount(), graphBefore);
  EXPECT_EQ(lowerSource.askedForRecords, 1);
  EXPECT_EQ(middleSource.askedForRecords, 1);
  expectSameAsAfresh("moving the upper plot");
}

TEST_F(RedrawTest, AChangedPlotRedrawsWhatLiesAbove) {
  display();
  middle->setDataNeedsReloading();
  display();
  const unsigned lowerBefore = lower->displayCount(), upperBefore = upper->displayCount();
  middle->setDataNeedsReloading();
  display();
  EXPECT_EQ(lower->displayCount(), lowerBefore);
  EXPECT_EQ(upper->displayCount(), upperBefore + 1);
  EXPECT_EQ(upperSource.askedForRecords, 1);
}

TEST_F(RedrawTest, AMovedAnnotationRedrawsNoPlot) {
  display();
  note->setDisplacement({1, 1});
  display();
  const unsigned before = upper->displayCount();
  for (int i = 0; i < 5; ++i) {
    note->setAnchorPlotPoint({0.1 * i, 0.5});
    display();
  }
  EXPECT_EQ(upper->displayCount(), before);
  expectSameAsAfresh("moving the annotation");
}

TEST_F(RedrawTest, AfterEveryChangeTheKeptPictureEqualsAFreshDrawing) {
  const auto extra = std::make_shared<CPTScatterPlot>();
  extra->setDataSource(&lowerSource);
  extra->setDataLineStyle(CPTLineStyle{.lineWidth = 5});
  const auto axes = axesOf(*graph);
  const auto area = graph->plotAreaFrame()->plotArea();
  const auto frame = graph->plotAreaFrame();
  const auto label = std::make_shared<CPTAxisLabel>("by hand");
  const std::pair<std::string, std::function<void()>> changes[] = {
      {"theme", [&] { graph->applyTheme(CPTTheme::themeNamed(kCPTPlainBlackTheme)); }},
      {"x range",
       [&] {
         space->setXRange({0, 0.7});
       }},
      {"y range",
       [&] {
         space->setYRange({-0.5, 2});
       }},
      {"scale",
       [&] {
         space->setXRange({0.01, 0.99}), space->setXScaleType(CPTScaleType::log);
       }},
      {"graph fill", [&] { graph->setFill(CPTFill(CPTColor::grayColor())); }},
      {"graph corner", [&] { graph->setCornerRadius(9); }},
      {"frame border", [&] { frame->setBorderLineStyle(CPTLineStyle{.lineWidth = 3}); }},
      {"plot area fill", [&] { area->setFill(CPTFill(CPTColor::yellowColor())); }},
      {"graph title", [&] { graph->setTitle("title"); }},
      {"graph title style", [&] { graph->setTitleTextStyle({.fontSize = 8}); }},
      {"axis title", [&] { axes->xAxis()->setTitle("x"); }},
      {"grid", [&] { axes->yAxis()->setMajorGridLineStyle(CPTLineStyle{}); }},
      {"padding", [&] { frame->setPaddingLeft(15); }},
      {"frame fill", [&] { frame->setFill(CPTFill(CPTColor::cyanColor())); }},
      {"resize", [&] { graph->setFrame(CGRect::make(0, 0, 320, 210)); }},
      {"line style", [&] { lower->setDataLineStyle(CPTLineStyle{.lineWidth = 3}); }},
      {"symbol", [&] { middle->setPlotSymbol(CPTPlotSymbol::starPlotSymbol()); }},
      {"interpolation", [&] { lower->setInterpolation(CPTScatterPlotInterpolation::histogram); }},
      {"plot added", [&] { graph->addPlot(extra); }},
      {"plot to the top", [&] { graph->addPlot(lower); }},
      {"plot hidden", [&] { extra->setHidden(true); }},
      {"plot removed from below", [&] { graph->removePlot(*middle); }},
      {"another source", [&] { upper->setDataSource(&middleSource); }},
      {"axis added",
       [&] {
         auto all = axes->axes();
         all.push_back(std::make_shared<CPTXYAxis>());
         all.back()->setPlotSpace(space);
         all.back()->setTickDirection(CPTSign::positive);
         axes->setAxes(all);
       }},
      {"axis hidden", [&] { axes->yAxis()->setHidden(true); }},
      {"labels by hand",
       [&] {
         axes->xAxis()->setLabelingPolicy(CPTAxisLabelingPolicy::none);
         axes->xAxis()->setAxisLabels({label});
       }},
      {"label moved", [&] { label->setTickLocation(0.1); }},
      {"label text", [&] { label->contentLayer()->setText("another"); }},
      {"annotation text", [&] { note->contentLayer()->setText("longer text"); }},
      {"annotation removed", [&] { area->removeAnnotation(*note); }},
      {"axis set gone", [&] { graph->setAxisSet(nullptr); }},
      {"plot area hidden", [&] { area->setHidden(true); }},
      {"plot area shown", [&] { area->setHidden(false); }},
      {"plot area gone", [&] { frame->setPlotArea(nullptr); }},
      {"frame gone", [&] { graph->setPlotAreaFrame(nullptr); }},
  };
  for (const double backing : {1.0, 2.0}) {
    scale = backing;
    display();
    display();
  }
  auto before = display();
  for (const auto& [name, change] : changes) {
    change();
    const auto after = display();
    EXPECT_TRUE(after != before) << name << " shows nothing new";
    EXPECT_TRUE(after == drawnAfresh()) << name;
    display();
    before = display();
    EXPECT_TRUE(before == after) << name << " after some more displays";
  }
}

TEST_F(RedrawTest, RowsShownOneAfterTheOtherGiveTheWholePicture) {
  using Rows = std::vector<std::pair<double, double>>;
  // From the top, from the bottom, with gaps and overlaps, across pixels.
  const Rows orders[] = {
      {{140, 200}, {70, 140}, {0, 70}},
      {{0, 33.3}, {33.3, 66.6}, {66.6, 200}},
      {{90, 110}, {150, 200}, {100.3, 160.7}, {0, 95.1}},
      {{-50, 100}, {100, 900}},
      {{100, 100}, {0, 200}},
  };
  const std::function<void()> changes[] = {
      [&] { space->setXRange({0, 0.9}); },      [&] { upper->setDataNeedsReloading(); },
      [&] { upper->setDataNeedsReloading(); },  [&] { upper->setDataNeedsReloading(); },
      [&] { middle->setDataNeedsReloading(); }, [&] { note->setDisplacement({3, 2}); },
  };
  for (const double ratio : {1.0, 1.25, 1.5, 2.0})
    for (const Rows& order : orders) {
      scale = ratio;
      display();
      for (const auto& change : changes) {
        change();
        context = CGBitmapContext::create(graph->bounds().size, scale);
        for (const auto& [bottom, top] : order) {
          const CGSavedState state(*context);
          const CGRect rows = CGRect::make(0, bottom, 300, top - bottom);
          // As hosts do, since pixels at the ends are drawn again.
          context->clip(rows);
          context->fillAligned(graph->bounds(), CGColor::deviceRGB(1, 1, 1));
          graph->displayChart(*context, rows);
        }
        const auto inRows = pixelsOf(*context);
        EXPECT_TRUE(display() == inRows);
      }
      EXPECT_TRUE(display() == drawnAfresh());
    }
}

/// Notes which rows of pixels it is drawn in.
class RowCounter : public CPTScatterPlot {
 public:
  std::vector<std::pair<int, int>> rows;

 protected:
  void drawSeries(CGContext& target, const CPTXYPlotSpace& plotSpace) override {
    target.drawOnPixels(
        [&](const CGPixels& pixels) { rows.emplace_back(pixels.clip.top, pixels.clip.bottom); });
    CPTScatterPlot::drawSeries(target, plotSpace);
  }
};

TEST_F(RedrawTest, RowsOfPlotsAreDrawnWhenTheyAreFirstShown) {
  using testing::ElementsAre;
  using testing::Pair;
  const auto counter = std::make_shared<RowCounter>();
  counter->setDataSource(&lowerSource);
  graph->addPlot(counter);
  context = CGBitmapContext::create(graph->bounds().size, 1);
  const auto show = [&](double bottom, double top) {
    graph->displayChart(*context, CGRect::make(0, bottom, 300, top - bottom));
  };
  show(100, 200);
  EXPECT_THAT(counter->rows, ElementsAre(Pair(40, 100)));
  show(100, 200);
  EXPECT_THAT(counter->rows, testing::SizeIs(1));
  show(60, 130);
  EXPECT_THAT(counter->rows, ElementsAre(Pair(40, 100), Pair(100, 140)));
  show(0, 200);
  EXPECT_THAT(counter->rows, ElementsAre(Pair(40, 100), Pair(100, 140), Pair(140, 160)));
  show(0, 200);
  EXPECT_THAT(counter->rows, testing::SizeIs(3));
}

TEST_F(RedrawTest, APictureOfOneScaleIsNotShownAtAnother) {
  display();
  display();
  scale = 2;
  const auto doubled = display();
  EXPECT_TRUE(doubled == drawnAfresh());
}

TEST_F(RedrawTest, DrawingIntoAFileInBetweenDoesNoHarm) {
  display();
  display();
  upper->setDataLineStyle(CPTLineStyle{.lineWidth = 4});
  recorded(*graph);
  expectSameAsAfresh("drawing elsewhere");
}

TEST_F(RedrawTest, DrawingIntoAFileLosesNoPictureThatAWindowKeeps) {
  for (const bool isDocument : {false, true}) {
    display();
    display();
    const unsigned before = lower->displayCount();
    if (isDocument) {
      const auto file = CGDocumentContext::create(CGDocumentContext::Format::pdf, {300, 200});
      graph->displayChart(*file);
    } else {
      const auto file = CGBitmapContext::create({300, 200}, 2, CGBitmapContext::Use::file);
      graph->displayChart(*file);
    }
    EXPECT_EQ(lower->displayCount(), before + 1) << "the file shows nothing kept";
    const auto kept = display();
    EXPECT_EQ(lower->displayCount(), before + 1) << "the window does";
    EXPECT_TRUE(kept == drawnAfresh());
  }
}

TEST_F(RedrawTest, AFileShowsWhatTheWindowDoes) {
  const auto window = display();
  const auto file = CGBitmapContext::create({300, 200}, 1, CGBitmapContext::Use::file);
  graph->displayChart(*file);
  EXPECT_TRUE(pixelsOf(*file) == window);
}

TEST_F(RedrawTest, AChangeFirstShownInAFileIsShownInTheWindow) {
  display();
  display();
  lowerSource.fields[1] = waves(3);
  lower->setDataNeedsReloading();
  const auto file = CGBitmapContext::create({300, 200}, 2, CGBitmapContext::Use::file);
  graph->displayChart(*file);
  const auto shown = display();
  EXPECT_TRUE(shown == drawnAfresh());
}

TEST_F(RedrawTest, SeriesAboveAMarkerFollowTheSizeAndThePaddings) {
  lowerSource.fields = {{0.5, 0.5}, {0, 1}};
  lower->setDataNeedsReloading();
  const std::pair<std::string, std::function<void()>> changes[] = {
      {"size", [&] { graph->setFrame(CGRect::make(0, 0, 340, 230)); }},
      {"graph padding", [&] { graph->setPaddingTop(60); }},
      {"frame padding", [&] { graph->plotAreaFrame()->setPaddingLeft(25); }},
  };
  for (const auto& [name, change] : changes) {
    for (int i = 0; i < 3; ++i) display();
    change();
    expectSameAsAfresh(name);
  }
}

TEST_F(RedrawTest, AMarkBelowASeriesComesAndGoesWithoutATraceInAWindow) {
  const auto view = std::make_shared<CPTGraphHostingView>(graph->frame());
  view->setHostedGraph(graph);
  const auto window = std::make_shared<NSWindow>(graph->bounds().size);
  window->setContentView(view);
  context = CGBitmapContext::create(graph->bounds().size, 1);
  const auto show = [&] {
    for (const CGRect& rect : window->dirtyRects()) window->displayRect(rect, *context);
    return pixelsOf(*context);
  };
  for (const bool isHidden : {true, false, true}) {
    lower->setHidden(isHidden);
    show();
  }
  graph->removePlot(*lower);
  const auto kept = show();
  EXPECT_TRUE(kept == drawnAfresh());
}

TEST_F(RedrawTest, ANewPlotAtTheAddressOfARemovedOneIsDrawn) {
  display();
  display();
  for (int i = 0; i < 20; ++i) {
    graph->removePlotWithIdentifier("upper");
    upper.reset();
    upper = addScatter(*graph, i % 2 ? lowerSource : middleSource, "upper");
    expectSameAsAfresh("replacing a plot");
  }
}

// Delegates that change the chart while it is drawn

class Meddler : public CALayerDelegate {
 public:
  explicit Meddler(std::function<void()> onDraw) : onDraw_(std::move(onDraw)) {}
  void layerWillDraw(CPTLayer&) override {
    ++calls;
    const auto once = std::exchange(onDraw_, [] {});
    once();
  }
  int calls = 0;

 private:
  std::function<void()> onDraw_;
};

TEST_F(RedrawTest, DelegatesMayTakeAwayWhatIsBeingDrawn) {
  const auto axes = axesOf(*graph);
  const auto frame = graph->plotAreaFrame();
  const std::function<void()> meddlings[] = {
      [&] { graph->removePlotWithIdentifier("lower"); },
      [&] { graph->removePlotWithIdentifier("middle"); },
      [&] {
        while (!graph->allPlots().empty()) graph->removePlot(*graph->allPlots()[0]);
      },
      [&] { axes->setAxes({}); },
      [&] { frame->plotArea()->removeAllAnnotations(); },
      [&] { graph->setAxisSet(nullptr); },
      [&] { frame->setPlotArea(nullptr); },
      [&] { graph->setPlotAreaFrame(nullptr); },
  };
  std::vector<std::shared_ptr<CPTLayer>> drawnLayers{
      graph, frame, frame->plotArea(), axes, axes->xAxis(), lower, middle};
  lower.reset();
  middle.reset();
  for (const auto& meddling : meddlings)
    for (auto& layer : drawnLayers) {
      Meddler delegate(meddling);
      layer->setDelegate(&delegate);
      graph->setNeedsDisplay();
      display();
      display();
      layer->setDelegate(nullptr);
    }
  drawnLayers.clear();
  display();
}

TEST_F(RedrawTest, APlotRemovedByItsOwnDelegateThatNobodyElseHolds) {
  Meddler delegate([&] { graph->removePlotWithIdentifier("middle"); });
  middle->setDelegate(&delegate);
  middle.reset();
  display();
  EXPECT_EQ(delegate.calls, 1);
  EXPECT_EQ(graph->allPlots().size(), 2u);
  expectSameAsAfresh("removal while drawing");
}

TEST_F(RedrawTest, TheDelegateOfThePlotAreaHearsOfItsDrawing) {
  Meddler delegate([] {});
  graph->plotAreaFrame()->plotArea()->setDelegate(&delegate);
  display();
  EXPECT_EQ(delegate.calls, 1);
}

}  // namespace
}  // namespace vexel
