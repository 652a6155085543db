#include <CorePlot/CPTGraphHostingView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::HasSubstr;

std::shared_ptr<CPTXYGraph> redGraph() {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 10, 10));
  graph->setFill(CPTFill(CPTColor::redColor()));
  return graph;
}

std::string displayed(NSView& view) {
  CGRecordingContext context;
  view.display(context);
  return context.text();
}

TEST(CPTGraphHostingView, WithoutAGraphNothingIsDrawn) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
  EXPECT_EQ(view->hostedGraph(), nullptr);
  EXPECT_TRUE(calls(displayed(*view), {"fill", "stroke", "text"}).empty());
}

TEST(CPTGraphHostingView, TheGraphTakesTheSizeOfTheViewAndFollowsIt) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(30, 40, 100, 50));
  const auto graph = redGraph();
  view->setHostedGraph(graph);
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 100, 50));
  EXPECT_EQ(graph->hostingView(), view.get());
  view->setFrame(CGRect::make(0, 0, 200, 80));
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 200, 80));
  EXPECT_EQ(graph->plotAreaFrame()->frame(), CGRect::make(20, 20, 160, 40));
  EXPECT_THAT(displayed(*view), HasSubstr("fill #ff0000 aligned: 0 0 200 80\n"));
}

TEST(CPTGraphHostingView, AGraphIsShownByOneViewAtATime) {
  const auto first = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
  const auto second = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 70, 60));
  const auto graph = redGraph();
  first->setHostedGraph(graph);
  second->setHostedGraph(graph);
  EXPECT_EQ(first->hostedGraph(), nullptr);
  EXPECT_EQ(second->hostedGraph(), graph);
  EXPECT_EQ(graph->hostingView(), second.get());
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 70, 60));
  first->setFrame(CGRect::make(0, 0, 500, 500));
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 70, 60));
}

TEST(CPTGraphHostingView, AnotherGraphTakesThePlaceOfTheFirst) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
  const auto first = redGraph(), second = redGraph();
  view->setHostedGraph(first);
  view->setHostedGraph(second);
  EXPECT_EQ(first->hostingView(), nullptr);
  EXPECT_EQ(second->hostingView(), view.get());
  view->setHostedGraph(nullptr);
  EXPECT_EQ(second->hostingView(), nullptr);
}

TEST(CPTGraphHostingView, TheGraphOutlivesItsView) {
  const auto graph = redGraph();
  {
    const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
    view->setHostedGraph(graph);
  }
  EXPECT_EQ(graph->hostingView(), nullptr);
  graph->setFill(std::nullopt);
  EXPECT_EQ(graph->frame(), CGRect::make(0, 0, 100, 50));
}

TEST(CPTGraphHostingView, TheViewKeepsItsGraph) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
  view->setHostedGraph(redGraph());
  ASSERT_NE(view->hostedGraph(), nullptr);
  EXPECT_THAT(displayed(*view), HasSubstr("#ff0000"));
}

TEST(CPTGraphHostingView, AChangeAnywhereInTheGraphMarksTheView) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 50));
  const auto graph = redGraph();
  ListSource source({{0, 1}, {0, 1}});
  const auto plot = addScatter(*graph, source);
  view->setHostedGraph(graph);
  const auto marks = [&](const auto& change) {
    displayed(*view);
    EXPECT_FALSE(view->needsDisplay());
    change();
    EXPECT_TRUE(view->subtreeNeedsDisplay());
    view->layoutSubtreeIfNeeded();
    return view->needsDisplay();
  };
  EXPECT_TRUE(marks([&] { plot->setDataNeedsReloading(); }));
  EXPECT_TRUE(marks([&] { spaceOf(*graph)->setXRange({0, 2}); }));
  EXPECT_TRUE(marks([&] { axesOf(*graph)->xAxis()->setTitle("x"); }));
  EXPECT_TRUE(marks([&] { graph->setFill(std::nullopt); }));
  EXPECT_TRUE(marks([&] { graph->plotAreaFrame()->setPadding(3); }));
  EXPECT_TRUE(marks([&] { graph->removePlot(*plot); }));
  EXPECT_TRUE(marks([&] { graph->plotAreaFrame()->plotArea()->setHidden(true); }));
  EXPECT_TRUE(marks([&] { view->setHostedGraph(redGraph()); }));
}

TEST(CPTGraphHostingView, AScrolledViewIsCoveredTheSame) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 40, 30));
  view->setHostedGraph(redGraph());
  const auto drawnPixels = [&] {
    const auto context = CGBitmapContext::create({40, 30}, 1);
    view->display(*context);
    return pixelsOf(*context);
  };
  const auto still = drawnPixels();
  view->setBoundsOrigin({7, -5});
  EXPECT_TRUE(drawnPixels() == still);
  EXPECT_EQ(still[0], 0xffff0000u);
}

TEST(CPTGraphHostingView, PartsOfAnUnchangedViewAreShownAsTheyWere) {
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect::make(0, 0, 100, 100));
  const auto graph = redGraph();
  view->setHostedGraph(graph);
  ListSource source({{0, 1}, {0, 1}});
  const auto plot = addScatter(*graph, source);
  const auto whole = CGBitmapContext::create({100, 100}, 1);
  view->display(*whole);
  view->display(*whole);
  const unsigned before = plot->displayCount();
  const auto inPieces = CGBitmapContext::create({100, 100}, 1);
  for (const double x : {0.0, 50.0})
    for (const double y : {0.0, 50.0}) view->displayRect(CGRect::make(x, y, 50, 50), *inPieces);
  EXPECT_TRUE(pixelsOf(*inPieces) == pixelsOf(*whole));
  EXPECT_EQ(plot->displayCount(), before);
}

}  // namespace
}  // namespace vexel
