// Markers that are set, moved and removed by any sequence of events and calls, in a figure in a
// window that is resized, formatted and laid out anew between them.

#include <AppKit/NSWindow.h>
#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <VexelWithMarkers/PlotMarker.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <cmath>
#include <cstdint>
#include <functional>

#include "Drawing.h"
#include "FuzzStyles.h"

namespace {

using namespace vexel;

constexpr std::size_t kMostSteps = 40;
constexpr std::size_t kMostMarkers = 60;

/// Series of three records, the markers among them.
class Figure : public Adopter<VexelWithMarkers>, public PlotViewDelegate {
 public:
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  void setFrameSize(CGSize) override { ++sizesHeardOf; }

  std::size_t numberOfRecords(const CPTPlot&) override { return 3; }
  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    if (record == 2) return std::nan("");
    const bool isX = field == CPTScatterPlotFieldX;
    const double along = record == 0 ? -1e300 : 1e300;
    if (plot.identifier() == kVerticalMarker) return isX ? verticalMarkerX() : along;
    if (plot.identifier() == kPermanentVerticalMarker)
      return isX ? permanentVerticalMarkerX() : along;
    if (plot.identifier() == kHorizontalMarker) return isX ? along : horizontalMarkerY();
    if (plot.identifier() == kPermanentHorizontalMarker)
      return isX ? along : permanentHorizontalMarkerY();
    return static_cast<double>(record);
  }

  int sizesHeardOf = 0;
};

/// A view that hands the figure what the user does.
class FigureView : public PlotView {
 public:
  using PlotView::PlotView;
  void mouseDown(const NSEvent& event) override { handle(event); }
  void mouseMoved(const NSEvent& event) override { handle(event); }
  void mouseDragged(const NSEvent& event) override { handle(event); }
  void mouseExited(const NSEvent& event) override { handle(event); }

  std::function<void(const NSEvent&)> onEvent;

 private:
  void handle(const NSEvent& event) {
    if (onEvent) onEvent(event);
  }
};

class Session {
 public:
  explicit Session(FuzzInput& input) : input_(input) {
    window_->setContentView(view_);
    view_->setDelegate(&figure_);
    view_->onEvent = [this](const NSEvent& event) { follow(event); };
    figure_.initPlot(view_, static_cast<PlotTheme::Case>(input.choice(3)));
    stack();
  }

  void step() {
    switch (input_.choice(14)) {
      case 0:
        stack();
        break;
      case 1:
        setRanges();
        break;
      case 2:
        window_->setContentSize({side(input_), side(input_)});
        break;
      case 3:
        figure_.setVerticalMarker(input_.number(), newMarkerGraph());
        break;
      case 4:
        figure_.setPermanentVerticalMarker(input_.number(), newMarkerGraph());
        break;
      case 5:
        figure_.setHorizontalMarker(input_.single(), newMarkerGraph(), yRange_, yScale_);
        break;
      case 6:
        figure_.setPermanentHorizontalMarker(input_.single(), newMarkerGraph(), yRange_, yScale_);
        break;
      case 7:
        remove();
        break;
      case 8:
        figure_.update();
        break;
      case 9:
        drawEverywhere(*view_, input_);
        break;
      case 10:
        updateWindow();
        break;
      case 11:
        labels();
        break;
      default:
        window_->sendEvent(anyEvent());
    }
  }

  void end() {
    drawEverywhere(*view_, input_);
    figure_.removeViews();
    drawEverywhere(*view_, input_);
  }

 private:
  void stack() {
    figure_.setViews(static_cast<int>(input_.choice(4)), input_.points(), input_.points());
    for (const auto& band : figure_.hostingViews())
      figure_.graphs().push_back(figure_.format(band, {0, 0, 0, 0}, {20, 5, 5, 20}));
    setRanges();
  }

  void setRanges() {
    // Two numbers at least, or else it is a broken invariant to set a marker.
    figure_.auxiliaryValues() = {input_.number(), input_.number()};
    figure_.xUnitScale() = input_.flag() ? 1 : input_.number();
    figure_.yUnitScale() = input_.flag() ? 1 : input_.number();
    yRange_ = {input_.single(), input_.single()};
    yScale_ = input_.flag() ? 1 : input_.single();
    for (const auto& graph : figure_.graphs())
      setAnyRanges(dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()), input_);
  }

  std::shared_ptr<CPTXYGraph> graph() {
    const auto& graphs = figure_.graphs();
    const std::size_t index = input_.choice(graphs.size() + 1);
    return index < graphs.size() ? graphs[index] : nullptr;
  }

  /// Each marker that is set is one more series.
  std::shared_ptr<CPTXYGraph> newMarkerGraph() {
    auto result = graph();
    if (result && result->allPlots().size() >= kMostMarkers) return nullptr;
    return result;
  }

  void remove() {
    switch (input_.choice(4)) {
      case 0:
        figure_.removeVerticalMarker(graph());
        break;
      case 1:
        figure_.removePermanentVerticalMarker(graph());
        break;
      case 2:
        figure_.removeHorizontalMarker(graph());
        break;
      default:
        figure_.removePermanentHorizontalMarker(graph());
    }
  }

  NSEvent anyEvent() {
    NSEvent event;
    event.type = static_cast<NSEventType>(input_.choice(12));
    event.locationInWindow = {input_.points(), input_.points()};
    event.clickCount = input_.byte();
    event.scrollingDeltaX = input_.number();
    event.scrollingDeltaY = input_.number();
    return event;
  }

  void follow(const NSEvent& event) {
    figure_.mouseInPlotView(event);
    if (event.clickCount == 2) return stack();
    const auto index = figure_.getViewIndex(event);
    if (!index) return;
    require(*index >= 0 && *index < std::ssize(figure_.hostingViews()), "a band is one of them");
    const auto& graph = figure_.graphs().at(static_cast<std::size_t>(*index));
    switch (event.type) {
      case NSEventType::leftMouseDown:
        if (graph->allPlots().size() >= kMostMarkers) break;
        figure_.setPermanentVerticalMarker(event, graph);
        figure_.setVerticalMarker(event, graph);
        figure_.setHorizontalMarker(event, graph, yRange_, yScale_);
        break;
      case NSEventType::mouseExited:
        figure_.removeVerticalMarker(graph);
        figure_.removeHorizontalMarker(graph);
        break;
      default:
        figure_.updateVerticalMarker(event, graph);
        figure_.updateHorizontalMarker(event, graph, yRange_, yScale_);
    }
  }

  /// What a host does that keeps the pixels of the window.
  void updateWindow() {
    for (const CGRect& rect : window_->dirtyRects()) window_->displayRect(rect, *pixels_);
  }

  void labels() {
    const PlotMarker marker({.type = static_cast<PlotMarker::MarkerType>(input_.choice(5)),
                             .x = input_.number(),
                             .y = input_.single(),
                             .xRange = std::vector{input_.number(), input_.number()},
                             .yRange = std::vector{input_.single(), input_.single()},
                             .label = input_.text(),
                             .rotate = input_.flag(),
                             .color = anyNSColor(input_)});
    marker.cptLabel();
    require(marker.type != PlotMarker::MarkerType::box || marker.boxX().size() == 6,
            "a box has four corners, the first again and an end");
    if (const auto onto = graph()) {
      onto->axisSet()->axes().front()->setLabelingPolicy(CPTAxisLabelingPolicy::none);
      onto->axisSet()->axes().front()->setAxisLabels({marker.axisLabel()});
    }
  }

  FuzzInput& input_;
  std::shared_ptr<NSWindow> window_ = std::make_shared<NSWindow>(CGSize{160, 120});
  std::shared_ptr<FigureView> view_ = std::make_shared<FigureView>(CGRect{{}, {160, 120}});
  std::unique_ptr<CGBitmapContext> pixels_ = CGBitmapContext::create({160, 120}, 1);
  Figure figure_;
  std::vector<float> yRange_;
  float yScale_ = 1;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Session session(input);
  for (std::size_t i = 0; i < kMostSteps && !input.isAtEnd(); ++i) session.step();
  session.end();
  return 0;
}
