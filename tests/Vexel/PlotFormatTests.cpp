#include <CorePlot/CPTXYAxis.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fmt/format.h>

#include "Vexel/AfterTheme.h"
#include "Vexel/LastWords.h"
#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::IsEmpty;

const std::vector<CGFloat> kNone = {0, 0, 0, 0};

std::string paddings(const CPTLayer& layer) {
  return fmt::format("left {} right {} top {} bottom {}", layer.paddingLeft(), layer.paddingRight(),
                     layer.paddingTop(), layer.paddingBottom());
}

class PlotFormat : public testing::Test {
 protected:
  PlotFormat() { plot.initPlot(nullptr, PlotTheme::white); }

  std::shared_ptr<CPTGraphHostingView> view =
      std::make_shared<CPTGraphHostingView>(CGRect::make(7, 9, 300, 200));
  TestPlot plot;
};

TEST_F(PlotFormat, OfNoViewGivesNoGraph) {
  EXPECT_EQ(plot.format(nullptr, kNone, kNone), nullptr);
  EXPECT_EQ(plot.format(nullptr, {}, {}), nullptr);
}

TEST_F(PlotFormat, HostsAGraphOverTheBoundsOfTheView) {
  const auto graph = plot.format(view, kNone, kNone);
  ASSERT_NE(graph, nullptr);
  EXPECT_EQ(view->hostedGraph(), graph);
  EXPECT_EQ(graph->hostingView(), view.get());
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 300, 200));
  EXPECT_EQ(graph->allPlotSpaces().size(), 1u);
  EXPECT_THAT(graph->allPlots(), IsEmpty());
}

TEST_F(PlotFormat, MakesTheGraphInTheBoundsBeforeTheThemeAndHostsItAfterwards) {
  view->setBoundsOrigin({3, 4});
  int themes = 0;
  const AfterTheme afterTheme([&](CPTGraph& graph) {
    ++themes;
    EXPECT_EQ(graph.frame(), CGRect::make(3, 4, 300, 200));
    EXPECT_EQ(graph.hostingView(), nullptr);
    EXPECT_EQ(paddings(graph), "left 20 right 20 top 20 bottom 20");
  });
  plot.format(view, kNone, kNone);
  EXPECT_EQ(themes, 1);
}

TEST_F(PlotFormat, LeavesAddingTheGraphToTheAdopter) {
  plot.format(view, kNone, kNone);
  EXPECT_THAT(plot.graphs(), IsEmpty());
}

TEST_F(PlotFormat, ReadsTheTwoPaddingsInDifferentOrders) {
  const auto graph = plot.format(view, {1, 2, 3, 4}, {1, 2, 3, 4});
  EXPECT_EQ(paddings(*graph), "left 1 right 2 top 3 bottom 4");
  EXPECT_EQ(paddings(*graph->plotAreaFrame()), "left 1 right 3 top 2 bottom 4");
}

TEST_F(PlotFormat, ReadsNoMoreThanFourPaddings) {
  const auto graph = plot.format(view, {1, 2, 3, 4, 5}, {5, 6, 7, 8, 9, 10});
  EXPECT_EQ(paddings(*graph), "left 1 right 2 top 3 bottom 4");
  EXPECT_EQ(paddings(*graph->plotAreaFrame()), "left 5 right 7 top 6 bottom 8");
}

TEST_F(PlotFormat, AppliesTheThemeOfTheAdopter) {
  const struct {
    PlotTheme theme;
    CPTColor background;
    CPTColor foreground;
  } rows[] = {
      {PlotTheme::black, CPTColor::blackColor(), CPTColor::whiteColor()},
      {PlotTheme::white, CPTColor::whiteColor(), CPTColor::blackColor()},
      {PlotTheme::print, CPTColor::whiteColor(), CPTColor::blackColor()},
  };
  for (const auto& [theme, background, foreground] : rows) {
    plot.theme() = theme;
    const auto graph = plot.format(view, kNone, kNone);
    EXPECT_EQ(graph->fill(), CPTFill(background));
    EXPECT_EQ(graph->plotAreaFrame()->plotArea()->fill(), CPTFill(background));
    for (const auto& axis : graph->axisSet()->axes())
      EXPECT_EQ(axis->axisLineStyle()->lineColor, foreground);
  }
}

TEST_F(PlotFormat, TakesTheBorderOfTheThemeFromThePlotAreaFrame) {
  const AfterTheme afterTheme([](CPTGraph& graph) {
    EXPECT_NE(graph.plotAreaFrame()->borderLineStyle(), std::nullopt);
    graph.plotAreaFrame()->setCornerRadius(5);
    graph.plotAreaFrame()->setMasksToBorder(true);
  });
  const auto frame = plot.format(view, kNone, kNone)->plotAreaFrame();
  EXPECT_EQ(frame->borderLineStyle(), std::nullopt);
  EXPECT_EQ(frame->cornerRadius(), 0);
  EXPECT_FALSE(frame->masksToBorder());
}

TEST_F(PlotFormat, ReplacesTheGraphThatWasHosted) {
  const auto former = plot.format(view, kNone, kNone);
  const auto graph = plot.format(view, kNone, kNone);
  EXPECT_NE(graph, former);
  EXPECT_EQ(view->hostedGraph(), graph);
  EXPECT_EQ(former->hostingView(), nullptr);
}

TEST_F(PlotFormat, FormatsAViewThatIsNoBand) {
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
  EXPECT_NE(plot.format(view, kNone, kNone), nullptr);
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
}

TEST_F(PlotFormat, LetsTheGraphFollowTheView) {
  const auto graph = plot.format(view, {10, 20, 30, 40}, {1, 2, 3, 4});
  view->setFrameSize({500, 400});
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 500, 400));
  EXPECT_EQ(graph->plotAreaFrame()->frame(), CGRect::make(10, 40, 470, 330));
  EXPECT_EQ(graph->plotAreaFrame()->plotArea()->frame(), CGRect::make(1, 4, 466, 324));
}

TEST_F(PlotFormat, DoesNotMakeThePlotAreaTellAnAdopterThatIsNoLayerDelegate) {
  const AfterTheme afterTheme([](CPTGraph& graph) {
    static CALayerDelegate former;
    graph.plotAreaFrame()->plotArea()->setDelegate(&former);
  });
  EXPECT_EQ(plot.format(view, kNone, kNone)->plotAreaFrame()->plotArea()->delegate(), nullptr);
}

TEST_F(PlotFormat, MakesThePlotAreaTellAnAdopterThatIsALayerDelegate) {
  class Delegate : public TestPlot, public CALayerDelegate {};
  Delegate delegate;
  delegate.initPlot(nullptr, PlotTheme::white);
  const auto area = delegate.format(view, kNone, kNone)->plotAreaFrame()->plotArea();
  EXPECT_EQ(area->delegate(), static_cast<CALayerDelegate*>(&delegate));
}

TEST_F(PlotFormat, WithoutPlotAreaStillFormatsTheFrame) {
  const AfterTheme afterTheme([](CPTGraph& graph) { graph.plotAreaFrame()->setPlotArea(nullptr); });
  const auto graph = plot.format(view, {1, 2, 3, 4}, {5, 6, 7, 8});
  ASSERT_NE(graph, nullptr);
  EXPECT_EQ(view->hostedGraph(), graph);
  EXPECT_EQ(paddings(*graph), "left 1 right 2 top 3 bottom 4");
  EXPECT_EQ(paddings(*graph->plotAreaFrame()), "left 5 right 7 top 6 bottom 8");
}

TEST_F(PlotFormat, WithoutPlotAreaFrameHostsTheGraphButGivesNone) {
  const AfterTheme afterTheme([](CPTGraph& graph) { graph.setPlotAreaFrame(nullptr); });
  EXPECT_EQ(plot.format(view, {1, 2, 3, 4}, {}), nullptr);
  ASSERT_NE(view->hostedGraph(), nullptr);
  EXPECT_EQ(paddings(*view->hostedGraph()), "left 1 right 2 top 3 bottom 4");
}

using PlotFormatDeathTest = PlotFormat;

TEST_F(PlotFormatDeathTest, AMissingPaddingStopsTheProcessAfterThoseBeforeItWereSet) {
  const struct {
    std::vector<CGFloat> graphPadding;
    std::vector<CGFloat> framePadding;
    const char* graph;
    const char* frame;
  } rows[] = {
      {{}, {5, 6, 7, 8}, "left 20 right 20 top 20 bottom 20", "left 0 right 0 top 0 bottom 0"},
      {{1}, {5, 6, 7, 8}, "left 1 right 20 top 20 bottom 20", "left 0 right 0 top 0 bottom 0"},
      {{1, 2}, {5, 6, 7, 8}, "left 1 right 2 top 20 bottom 20", "left 0 right 0 top 0 bottom 0"},
      {{1, 2, 3}, {5, 6, 7, 8}, "left 1 right 2 top 3 bottom 20", "left 0 right 0 top 0 bottom 0"},
      {{1, 2, 3, 4}, {}, "left 1 right 2 top 3 bottom 4", "left 0 right 0 top 0 bottom 0"},
      {{1, 2, 3, 4}, {5}, "left 1 right 2 top 3 bottom 4", "left 5 right 0 top 0 bottom 0"},
      {{1, 2, 3, 4}, {5, 6}, "left 1 right 2 top 3 bottom 4", "left 5 right 0 top 6 bottom 0"},
      {{1, 2, 3, 4}, {5, 6, 7}, "left 1 right 2 top 3 bottom 4", "left 5 right 7 top 6 bottom 0"},
  };
  for (const auto& row : rows)
    EXPECT_DEATH(runWithLastWords(
                     [&] {
                       const auto& graph = view->hostedGraph();
                       return paddings(*graph) + "; " + paddings(*graph->plotAreaFrame());
                     },
                     [&] { plot.format(view, row.graphPadding, row.framePadding); }),
                 std::string("Fatal error: .*format.*") + row.graph + "; " + row.frame);
}

TEST_F(PlotFormatDeathTest, AMissingFramePaddingStopsTheProcessAfterTheBorderIsGone) {
  EXPECT_DEATH(runWithLastWords(
                   [&] {
                     const auto frame = view->hostedGraph()->plotAreaFrame();
                     return std::string(
                         frame->borderLineStyle() || frame->masksToBorder() ? "border" : "plain");
                   },
                   [&] {
                     plot.format(view, {1, 2, 3, 4}, {});
                   }),
               "Fatal error: .*plain");
}

TEST_F(PlotFormatDeathTest, AThemeOutsideItsCasesStopsTheProcess) {
  plot.theme() = PlotTheme(static_cast<PlotTheme::Case>(3));
  EXPECT_DEATH(plot.format(view, kNone, kNone), "Fatal error");
  EXPECT_EQ(plot.format(nullptr, kNone, kNone), nullptr);
}

}  // namespace
}  // namespace vexel
