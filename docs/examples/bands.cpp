#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cmath>

#include "Axes.h"

using namespace vexel;

/// What the controller of a vacuum chamber writes every minute.
struct Sample {
  double hour;
  float celsius;
  float millibar;
};

std::vector<Sample> bakeOut() {
  std::vector<Sample> samples;
  for (int minute = 0; minute <= 48 * 60; ++minute) {
    const double hour = minute / 60.0;
    const double heated = hour < 6 ? hour / 6 : hour < 30 ? 1 : std::exp((30 - hour) / 5);
    const double ripple = 0.5 * std::sin(2.1 * hour) * (hour > 6 && hour < 30);
    const double clean = 1e-3 / (1 + std::pow(hour, 2.5)) + 2e-9;
    samples.push_back({hour, static_cast<float>(20 + 130 * heated + ripple),
                       static_cast<float>(clean * std::pow(10, 1.5 * heated))});
  }
  return samples;
}

struct BakeOut : Adopter<Vexel> {
  std::vector<Sample> samples = bakeOut();

  void setupPlot() override {
    setViews(2, 0, 34);
    // From the bottom up: the lowest band has the labels of the common axis.
    const auto pressure = format(hostingViews()[0], {0, 0, 0, 0}, {72, 8, 20, 48});
    const auto temperature = format(hostingViews()[1], {0, 0, 0, 0}, {72, 14, 20, 8});
    graphs() = {pressure, temperature};

    formatXAxis(pressure, horizontal("Time (h)", 0, 48));
    XAxisArguments bare = horizontal("", 0, 48);
    bare.noLabels = true;
    formatXAxis(temperature, bare);
    formatYAxis(pressure, vertical("Pressure (mbar)", 1e-9, 1e-2));
    formatYAxis(temperature, vertical("Temperature (°C)", 0, 200));
    const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(pressure->defaultPlotSpace());
    space->setYScaleType(CPTScaleTypeLog);

    addLine(pressure, "Pressure", NSColor::colorWithRed(0.12, 0.47, 0.71));
    addLine(temperature, "Temperature", NSColor::colorWithRed(0.80, 0.20, 0.24));
  }

  void addLine(const std::shared_ptr<CPTXYGraph>& graph, const std::string& name, NSColor color) {
    addPlot({.to = graph,
             .identifiedBy = name,
             .color = color,
             .lineWidth = 1.5f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return samples.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange) override {
    const auto column = [&](CPTNumericData::Type type, const void* first) {
      return CPTNumericData::strided(type, first, samples.size(), sizeof(Sample));
    };
    if (field == CPTScatterPlotFieldX)
      return column(CPTNumericData::Type::float64, &samples[0].hour);
    if (plot.identifier() == "Pressure")
      return column(CPTNumericData::Type::float32, &samples[0].millibar);
    return column(CPTNumericData::Type::float32, &samples[0].celsius);
  }

  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 600, 420));
  const auto figure = makePlot<BakeOut>(view, PlotTheme::white);
  exportFigure(*view, "bands.png", 1.5);
}
