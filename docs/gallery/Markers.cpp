#include <VexelWithMarkers/PlotMarker.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <cmath>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

constexpr std::pair<double, double> kVolts = {-0.4, 1.2};

/// A pulse with a marked rise: a box around it, a vertical and a horizontal marker.
class Markers : public Adopter<VexelWithMarkers>, public SeriesSource {
 public:
  void setupPlot() override {
    Series pulse{.name = "Pulse", .x = {}, .y = {}};
    for (double time = 0; time <= 100; time += 0.1) {
      const double since = time - 20;
      pulse.x.push_back(time);
      pulse.y.push_back(since < 0 ? 0 : 1.1 * (std::exp(-since / 40) - std::exp(-since / 4)));
    }
    auxiliaryValues() = {0, 100};
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    formatXAxis(graph, horizontal("Time (µs)", 0, 100));
    formatYAxis(graph, vertical("Signal (V)", kVolts.first, kVolts.second));
    addLine(graph, std::move(pulse), kBlue, 2);
    addBox(graph);
    setPermanentVerticalMarker(30.2, graph);
    setPermanentHorizontalMarker(
        0.7665f, graph, {static_cast<float>(kVolts.first), static_cast<float>(kVolts.second)},
        1.0f);
    addAnnotation(
        "rise", {.graph = graph, .anchorPlotPoint = std::vector{19.2f, -0.24f}, .fontSize = 12.0f});
    addAnnotation("0.77 V",
                  {.graph = graph, .anchorPlotPoint = std::vector{88.0f, 0.8f}, .fontSize = 12.0f});
  }

  std::size_t numberOfRecords(const CPTPlot& plot) override {
    return isMarker(plot) ? 2 : SeriesSource::numberOfRecords(plot);
  }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange records) override {
    if (isMarker(plot)) return std::nullopt;
    return SeriesSource::numbers(plot, field, records);
  }
  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    const bool isX = field == CPTScatterPlotFieldX;
    if (plot.identifier() == kPermanentVerticalMarker)
      return isX ? permanentVerticalMarkerX() : record == 0 ? kVolts.first : kVolts.second;
    return isX ? 100.0 * static_cast<double>(record) : permanentHorizontalMarkerY();
  }

 private:
  static bool isMarker(const CPTPlot& plot) {
    return plot.identifier() == kPermanentVerticalMarker ||
           plot.identifier() == kPermanentHorizontalMarker;
  }

  void addBox(const std::shared_ptr<CPTXYGraph>& graph) {
    const auto box = PlotMarker::makePlotBox(
        {.xRange = std::vector{19.0, 31.0}, .yRange = std::vector{-0.1, 0.88}, .rotate = false});
    Series edges{.name = "Box", .x = {}, .y = {}};
    for (const auto& x : box.boxX())
      if (x) edges.x.push_back(x->doubleValue());
    for (const auto& y : box.boxY())
      if (y) edges.y.push_back(y->doubleValue());
    addLine(graph, std::move(edges), kRed);
  }
};

}  // namespace

Sheet markers() {
  return sheetOf<Markers>({600, 320});
}

}  // namespace gallery
