#include <AppKit/NSWindow.h>
#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <cmath>

#include "Axes.h"

using namespace vexel;

/// A spectrum whose lines are marked.
struct Spectrum : Adopter<VexelWithMarkers> {
  std::vector<double> nanometres, counts;

  void setupPlot() override {
    for (double wavelength = 580; wavelength <= 600; wavelength += 0.01) {
      const auto line = [&](double centre) {
        return std::exp(-std::pow((wavelength - centre) / 0.12, 2));
      };
      nanometres.push_back(wavelength);
      counts.push_back(40 + 900 * line(588.995) + 450 * line(589.592) + 120 * line(587.562));
    }
    auxiliaryValues() = {580, 600};  // markers are kept between these
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {72, 20, 20, 48})};
    formatXAxis(graphs()[0], horizontal("Wavelength (nm)", 585, 593));
    formatYAxis(graphs()[0], vertical("Counts per second", 0, 1100));
    addPlot({.to = graphs()[0],
             .identifiedBy = "Spectrum",
             .color = NSColor::colorWithRed(0.12, 0.47, 0.71),
             .lineWidth = 1.5f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
    setPermanentVerticalMarker(587.562, graphs()[0]);
    addAnnotation(
        "He I",
        {.graph = graphs()[0], .anchorPlotPoint = std::vector{587.65f, 300.0f}, .fontSize = 12.0f});
    addAnnotation(
        "Air, 20 °C",
        {.graph = graphs()[0], .anchorPointNormal = std::vector{0.03, 0.88}, .fontSize = 12.0f});
  }

  std::size_t numberOfRecords(const CPTPlot& plot) override {
    return plot.identifier() == "Spectrum" ? nanometres.size() : 2;
  }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange) override {
    if (plot.identifier() != "Spectrum") return std::nullopt;
    return field == CPTScatterPlotFieldX ? nanometres : counts;
  }
  // A marker is a line of two records: its position, from the bottom to the top of the axis.
  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    if (field == CPTScatterPlotFieldY) return record == 0 ? 0 : 1100;
    return plot.identifier() == kVerticalMarker ? verticalMarkerX() : permanentVerticalMarkerX();
  }

  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

struct SpectrumView : PlotView {
  using PlotView::PlotView;
  Spectrum* spectrum = nullptr;

  void mouseEntered(const NSEvent& event) override {
    spectrum->setVerticalMarker(event, spectrum->graphs()[0]);
  }
  void mouseMoved(const NSEvent& event) override {
    spectrum->updateVerticalMarker(event, spectrum->graphs()[0]);
  }
  void mouseExited(const NSEvent&) override {
    spectrum->removeVerticalMarker(spectrum->graphs()[0]);
  }
};

int main() {
  const auto view = std::make_shared<SpectrumView>(CGRect::make(0, 0, 600, 320));
  const auto spectrum = makePlot<Spectrum>(view, PlotTheme::white);
  view->spectrum = spectrum.get();

  // What a window of Qt does, done by hand: the views get their places, the pointer moves over
  // them.
  const auto window = std::make_shared<NSWindow>(view->frame().size);
  window->setContentView(view);
  view->layoutSubtreeIfNeeded();
  window->sendEvent({.type = NSEventType::mouseMoved, .locationInWindow = {300, 150}});
  window->sendEvent({.type = NSEventType::mouseMoved, .locationInWindow = {326, 200}});
  exportFigure(*view, "markers.png", 1.5);
}
