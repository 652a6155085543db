#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <VexelQt/PlotWidget.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <QApplication>
#include <cmath>

using namespace vexel;

// A damped oscillation, and a marker that follows the mouse.
struct Ringing : Adopter<VexelWithMarkers> {
  std::vector<double> time, voltage;

  void setupPlot() override {
    for (int i = 0; i <= 1000; ++i) {
      time.push_back(0.01 * i);
      voltage.push_back(std::exp(-0.4 * time.back()) * std::cos(6 * time.back()));
    }
    auxiliaryValues() = {0, 10};  // where the marker may go
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {70, 20, 20, 55})};
    formatXAxis(graphs()[0], {.title = "Time (ms)",
                              .titleOffset = 22.0f,
                              .xRange = std::vector{0.0, 10.0},
                              .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                              .gridLines = true,
                              .noLabels = false,
                              .tickMarks = true,
                              .timeAxis = false,
                              .upperAxis = false,
                              .onNewPlotSpace = false,
                              .separateLayers = false});
    formatYAxis(graphs()[0], {.title = "Voltage (mV)",
                              .titleOffset = 46.0f,
                              .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                              .yRange = std::vector{-1.0, 1.0},
                              .yScale = 1.0,
                              .gridLines = true,
                              .minorGridLines = false,
                              .noLabels = false,
                              .tickMarks = true,
                              .rightAxis = false});
    addPlot({.to = graphs()[0],
             .identifiedBy = "Ringing",
             .color = NSColor::blueColor(),
             .lineWidth = 2.0f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot& plot) override {
    return plot.identifier() == kVerticalMarker ? 2 : time.size();
  }
  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    const bool isX = field == CPTScatterPlotFieldX;
    if (plot.identifier() == kVerticalMarker) return isX ? verticalMarkerX() : record ? 1 : -1;
    return isX ? time[record] : voltage[record];
  }
};

struct RingingView : PlotView {
  using PlotView::PlotView;
  Ringing* figure = nullptr;

  void mouseEntered(const NSEvent& event) override {
    figure->setVerticalMarker(event, figure->graphs()[0]);
  }
  void mouseMoved(const NSEvent& event) override {
    figure->updateVerticalMarker(event, figure->graphs()[0]);
  }
  void mouseExited(const NSEvent&) override { figure->removeVerticalMarker(figure->graphs()[0]); }
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const auto view = std::make_shared<RingingView>(CGRect::make(0, 0, 640, 400));
  const auto figure = makePlot<Ringing>(view, PlotTheme::white);
  view->figure = figure.get();
  PlotWidget window(view);
  window.show();
  return application.exec();
}
