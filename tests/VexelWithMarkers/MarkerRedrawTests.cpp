#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <CorePlot/CPTXYAxisSet.h>
#include <gtest/gtest.h>

#include "VexelWithMarkers/MarkerPlot.h"

namespace vexel {
namespace {

/// Two bands of two series each in a window that is shown on a bitmap.
class MarkerRedraw : public testing::Test {
 protected:
  MarkerRedraw() {
    window->contentView()->addSubview(host);
    plot.initPlot(host, PlotTheme::white);
    plot.auxiliaryValues() = {0, 10};
    plot.setViews(2, 0, 0);
    for (const auto& view : plot.hostingViews()) {
      const auto graph = plot.format(view, {5, 5, 5, 5}, {30, 5, 5, 30});
      auto& space = dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace());
      space.setXRange({0, 10});
      space.setYRange({0, 10});
      plot.graphs().push_back(graph);
      for (const char* name : {"Charge", "Speed"})
        plot.addPlot(PlotArguments{.to = graph,
                                   .identifiedBy = name,
                                   .lineWidth = 2,
                                   .circle = false,
                                   .circleSize = 5,
                                   .label = false,
                                   .labelOffset = 0,
                                   .labelRotation = 0});
    }
    display();
  }

  std::shared_ptr<CPTXYGraph> graph() { return plot.graphs()[0]; }

  /// Shows what changed since the last call, as who hosts a window does.
  void display() {
    const CGRect dirty = window->dirtyRect();
    if (!dirty.isEmpty()) window->displayRect(dirty, *bitmap);
  }

  NSEvent at(double x) {
    auto& space = dynamic_cast<CPTXYPlotSpace&>(*graph()->defaultPlotSpace());
    const auto& area = graph()->plotAreaFrame()->plotArea();
    const CGPoint place = *space.plotAreaViewPoint(x, 5, area->frame().size);
    return {.locationInWindow = plot.hostingViews()[0]->convertPointToView(
                area->convertPointToRoot(place), nullptr)};
  }

  /// How often each part but the markers has been drawn.
  std::vector<unsigned> drawings() {
    std::vector<unsigned> counts;
    for (const auto& g : plot.graphs()) {
      counts.push_back(g->displayCount());
      counts.push_back(g->plotAreaFrame()->displayCount());
      counts.push_back(g->plotAreaFrame()->plotArea()->displayCount());
      for (const auto& axis : g->axisSet()->axes()) counts.push_back(axis->displayCount());
      for (const auto& series : g->allPlots())
        if (series->identifier() == "Charge" || series->identifier() == "Speed")
          counts.push_back(series->displayCount());
    }
    return counts;
  }

  void expectSameAsAfresh() {
    const auto kept = pixels(*bitmap);
    const auto afresh = CGBitmapContext::create(window->contentSize(), 1);
    for (const auto& g : plot.graphs()) g->setNeedsDisplay();
    window->display(*afresh);
    EXPECT_TRUE(kept == pixels(*afresh));
  }

  static std::vector<std::uint32_t> pixels(CGBitmapContext& context) {
    return {context.pixels().begin(), context.pixels().end()};
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{400, 300});
  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(10, 10, 380, 280));
  std::unique_ptr<CGBitmapContext> bitmap = CGBitmapContext::create({400, 300}, 1);
  MarkerPlot plot;
};

TEST_F(MarkerRedraw, AMarkerThatIsAddedAndMovedRedrawsAndAsksNoOtherSeries) {
  plot.asked.clear();
  const auto before = drawings();
  plot.setVerticalMarker(at(1), graph());
  display();
  for (int i = 0; i < 50; ++i) {
    plot.updateVerticalMarker(at(0.2 * i), graph());
    display();
  }
  EXPECT_EQ(drawings(), before);
  EXPECT_EQ(plot.asked, (std::map<std::string, int>{{"Vertical Marker", 51}}));
  EXPECT_EQ(graph()->plotWithIdentifier("Vertical Marker")->displayCount(), 51u);
  expectSameAsAfresh();
}

TEST_F(MarkerRedraw, AMarkerThatIsRemovedRedrawsNoOtherSeries) {
  plot.setVerticalMarker(at(1), graph());
  display();
  const auto before = drawings();
  for (int i = 0; i < 5; ++i) {
    plot.removeVerticalMarker(graph());
    display();
    plot.setVerticalMarker(at(i), graph());
    display();
  }
  EXPECT_EQ(drawings(), before);
  expectSameAsAfresh();
}

TEST_F(MarkerRedraw, MarkersThatAreMovedInTurnRedrawNoOtherSeries) {
  plot.setVerticalMarker(at(1), graph());
  plot.setHorizontalMarker(at(1), graph(), {0, 10}, 1);
  plot.setPermanentVerticalMarker(at(3), graph());
  display();
  const auto before = drawings();
  plot.asked.clear();
  for (int i = 0; i < 20; ++i) {
    plot.updateVerticalMarker(at(0.5 * i), graph());
    if (i % 2) display();
    plot.updateHorizontalMarker(at(0.5 * i), graph(), {0, 10}, 1);
    display();
  }
  EXPECT_EQ(drawings(), before);
  EXPECT_EQ(plot.asked.count("Charge"), 0u);
  EXPECT_EQ(plot.asked.count("Permanent Vertical Marker"), 0u);
  expectSameAsAfresh();
}

TEST_F(MarkerRedraw, AMarkerShownFromTheStartRedrawsTheOthersOnceAtMost) {
  plot.setVerticalMarker(at(1), graph());
  graph()->setNeedsDisplay();
  display();
  const auto atFirst = drawings();
  plot.updateVerticalMarker(at(2), graph());
  display();
  const auto afterOneMove = drawings();
  for (std::size_t i = 0; i < atFirst.size(); ++i) EXPECT_LE(afterOneMove[i], atFirst[i] + 1);
  for (int i = 0; i < 20; ++i) {
    plot.updateVerticalMarker(at(0.5 * i), graph());
    display();
  }
  EXPECT_EQ(drawings(), afterOneMove);
  expectSameAsAfresh();
}

TEST_F(MarkerRedraw, AnAnnotationThatMovesRedrawsNoSeries) {
  plot.setVerticalMarker(at(1), graph());
  const auto note = std::make_shared<CPTPlotSpaceAnnotation>(graph()->defaultPlotSpace().get(),
                                                             std::vector<double>{1, 1});
  note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
  graph()->plotAreaFrame()->plotArea()->addAnnotation(note);
  display();
  const auto before = drawings();
  for (int i = 0; i < 5; ++i) {
    note->setAnchorPlotPoint({1.0 * i, 2});
    display();
  }
  EXPECT_EQ(drawings(), before);
  expectSameAsAfresh();
}

}  // namespace
}  // namespace vexel
