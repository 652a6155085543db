#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <limits>
#include <random>

#include "VexelWithMarkers/MarkerPlot.h"

namespace vexel {
namespace {

constexpr std::size_t kMostSeries = 12;
const std::vector<float> kYRange = {1, 9};

/// Bytes that the program has on the heap; 0 under the sanitizers, which look for leaks themselves.
std::size_t bytesInUse() {
  return mallinfo2().uordblks;
}

/// A band in a window, whose markers the mouse moves.
class Figure {
 public:
  Figure() {
    window->contentView()->addSubview(host);
    plot.initPlot(host, PlotTheme::white);
    plot.auxiliaryValues() = {2, 8};
    plot.setViews(1, 0, 0);
    graph = plot.format(plot.hostingViews()[0], {5, 5, 5, 5}, {20, 5, 5, 20});
    auto& space = dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace());
    space.setXRange({0, 10});
    space.setYRange({0.1, 9.9});
    space.setYScaleType(CPTScaleTypeLog);
    addSeries("Charge");
    display();
  }

  void addSeries(const std::string& identifier) {
    plot.addPlot(PlotArguments{.to = graph,
                               .identifiedBy = identifier,
                               .lineWidth = 1,
                               .circle = false,
                               .circleSize = 5,
                               .label = false,
                               .labelOffset = 0,
                               .labelRotation = 0});
  }

  /// Repaints what has changed, as who hosts a window does.
  void display() {
    for (const CGRect& rect : window->dirtyRects()) window->displayRect(rect, *bitmap);
  }

  std::vector<std::uint32_t> pixels() { return {bitmap->pixels().begin(), bitmap->pixels().end()}; }

  std::vector<std::string> identifiers() const {
    std::vector<std::string> all;
    for (const auto& series : graph->allPlots()) all.push_back(series->identifier());
    return all;
  }

  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{220, 160});
  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(7, 3, 210, 150));
  std::unique_ptr<CGBitmapContext> bitmap = CGBitmapContext::create({220, 160}, 1);
  MarkerPlot plot;
  std::shared_ptr<CPTXYGraph> graph;
};

class RandomMarkers {
 public:
  explicit RandomMarkers(Figure& drawn) : figure(drawn) {}

  /// Does something and notes in `expected` what series there should be.
  void step() {
    const NSEvent event{.locationInWindow = {coordinate(), coordinate()}};
    const auto& graph = figure.graph;
    MarkerPlot& plot = figure.plot;
    const double value = coordinate() / 10;
    const auto y = static_cast<float>(value);
    switch (expected.size() < kMostSeries ? pick(13) : 5 + pick(8)) {
      case 0:
        plot.setVerticalMarker(event, graph);
        return added(MarkerPlot::kVerticalMarker);
      case 1:
        plot.setVerticalMarker(value, graph);
        return added(MarkerPlot::kVerticalMarker);
      case 2:
        plot.setHorizontalMarker(event, graph, kYRange, 1);
        return added(MarkerPlot::kHorizontalMarker);
      case 3:
        plot.setPermanentVerticalMarker(event, graph);
        return added(MarkerPlot::kPermanentVerticalMarker);
      case 4:
        plot.setPermanentHorizontalMarker(y, graph, kYRange, 1);
        return added(MarkerPlot::kPermanentHorizontalMarker);
      case 5:
        plot.removeVerticalMarker(graph);
        return removed(MarkerPlot::kVerticalMarker);
      case 6:
        plot.removeHorizontalMarker(graph);
        return removed(MarkerPlot::kHorizontalMarker);
      case 7:
        plot.removePermanentVerticalMarker(graph);
        return removed(MarkerPlot::kPermanentVerticalMarker);
      case 8:
        plot.removePermanentHorizontalMarker(graph);
        return removed(MarkerPlot::kPermanentHorizontalMarker);
      case 9:
      case 10:
        return plot.updateHorizontalMarker(event, graph, kYRange, 1);
      default:
        if (graph->plotWithIdentifier(MarkerPlot::kVerticalMarker))
          plot.updateVerticalMarker(event, graph);
        return figure.window->sendEvent(event);
    }
  }

  void removeAll() {
    for (const std::string& name : std::vector(expected)) {
      figure.graph->removePlotWithIdentifier(name);
      removed(name);
    }
  }

  std::vector<std::string> expected;

 private:
  int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  /// Mostly in the window, sometimes far outside or no number.
  double coordinate() {
    static constexpr double kHostile[] = {-1e308,
                                          1e308,
                                          -1e9,
                                          0,
                                          std::numeric_limits<double>::quiet_NaN(),
                                          std::numeric_limits<double>::infinity()};
    const int kind = pick(40);
    return kind < 6 ? kHostile[kind] : pick(2200) / 10.0;
  }

  void added(const std::string& name) { expected.push_back(name); }
  void removed(const std::string& name) {
    const auto first = std::find(expected.begin(), expected.end(), name);
    if (first != expected.end()) expected.erase(first);
  }

  Figure& figure;
  std::mt19937 random_{20240117};
};

void expectLikeANewFigure(Figure& figure, const std::vector<std::string>& markers) {
  Figure fresh;
  fresh.plot.verticalMarkerX() = figure.plot.verticalMarkerX();
  fresh.plot.horizontalMarkerY() = figure.plot.horizontalMarkerY();
  fresh.plot.permanentVerticalMarkerX() = figure.plot.permanentVerticalMarkerX();
  fresh.plot.permanentHorizontalMarkerY() = figure.plot.permanentHorizontalMarkerY();
  for (const std::string& name : markers) fresh.addSeries(name);
  fresh.bitmap = CGBitmapContext::create({220, 160}, 1);
  fresh.graph->setNeedsDisplay();
  fresh.display();
  // A marker set twice has a series that nobody told of later moves.
  figure.graph->reloadData();
  figure.display();
  ASSERT_TRUE(figure.pixels() == fresh.pixels());
}

TEST(MarkerEndurance, AHundredThousandOperationsLeaveMemoryFlatAndTheFigureCorrect) {
  Figure figure;
  RandomMarkers markers(figure);
  std::size_t atRest = 0;
  for (int i = 1; i <= 100'000; ++i) {
    markers.step();
    if (i % 50 == 0) figure.display();
    if (i % 1000 == 0) {
      auto all = markers.expected;
      all.insert(all.begin(), "Charge");
      ASSERT_EQ(figure.identifiers(), all);
      ASSERT_NO_FATAL_FAILURE(expectLikeANewFigure(figure, markers.expected));
    }
    if (i == 20'000 || i == 100'000) {
      markers.removeAll();
      figure.display();
      figure.display();
      if (i == 20'000) atRest = bytesInUse();
    }
  }
  EXPECT_LE(bytesInUse(), atRest + 64 * 1024);
}

}  // namespace
}  // namespace vexel
