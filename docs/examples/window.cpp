#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <VexelQt/PlotWidget.h>

#include <QApplication>
#include <QTimer>
#include <cmath>

#include "Axes.h"

using namespace vexel;

/// A walk that goes on for ever.
struct Walk : Adopter<Vexel> {
  std::vector<double> steps, places;

  void walk(int count) {
    for (int i = 0; i < count; ++i) {
      const double step = static_cast<double>(steps.size());
      steps.push_back(step);
      places.push_back(30 * std::sin(step / 900) + 8 * std::sin(step / 37) + std::sin(step * step));
    }
  }

  void setupPlot() override {
    walk(10000);
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48})};
    formatYAxis(graphs()[0], vertical("Place (m)", -50, 50));
    addPlot({.to = graphs()[0],
             .identifiedBy = "Walk",
             .color = NSColor::colorWithRed(0.12, 0.47, 0.71),
             .lineWidth = 1.0f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
    draw({0, 20000});
  }

  void draw(const std::vector<double>& presented) override {
    formatXAxis(graphs()[0], horizontal("Step", presented[0], presented[1]));
  }
  void refresh(const std::vector<double>&) override {
    for (const auto& plot : graphs()[0]->allPlots())
      plot->insertData(plot->recordCount(), steps.size() - plot->recordCount());
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return steps.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? steps : places;
  }
};

/// Zooms with the wheel about the pointer.
struct WalkView : PlotView {
  using PlotView::PlotView;
  Walk* walk = nullptr;

  void scrollWheel(const NSEvent& event) override {
    const auto& graph = walk->graphs()[0];
    const auto pointer = graph->defaultPlotSpace()->plotPointForEvent(event);
    if (!pointer) return;
    const double x = pointer->front();
    const double zoom = std::pow(1.01, -event.scrollingDeltaY);
    const std::vector<double> shown = walk->getCurrentShowRange(graph);
    walk->update({x - zoom * (x - shown[0]), x + zoom * (shown[1] - x)});
  }
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const auto view = std::make_shared<WalkView>(CGRect::make(0, 0, 640, 320));
  const auto walk = makePlot<Walk>(view, PlotTheme::black);
  view->walk = walk.get();

  PlotWidget window(view);
  window.show();
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    walk->walk(10);
    walk->update();
  });
  timer.start(50);
  return application.exec();
}
