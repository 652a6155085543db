#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cmath>

using namespace vexel;

struct Pendulum : Adopter<Vexel> {
  std::vector<double> seconds;
  std::vector<float> degrees;

  Pendulum() {
    for (int i = 0; i <= 2000; ++i) {
      const double t = 0.01 * i;
      seconds.push_back(t);
      degrees.push_back(static_cast<float>(30 * std::exp(-0.1 * t) * std::cos(3 * t)));
    }
  }

  void setupPlot() override {
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {62, 16, 20, 48});
    formatXAxis(graph, {.title = "Time (s)",
                        .titleOffset = 22.0f,
                        .xRange = std::vector{0.0, 20.0},
                        .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                        .gridLines = true,
                        .noLabels = false,
                        .tickMarks = true,
                        .timeAxis = false,
                        .upperAxis = false,
                        .onNewPlotSpace = false,
                        .separateLayers = false});
    formatYAxis(graph, {.title = "Angle (°)",
                        .titleOffset = 38.0f,
                        .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
                        .yRange = std::vector{-30.0, 30.0},
                        .yScale = 1.0,
                        .gridLines = true,
                        .minorGridLines = false,
                        .noLabels = false,
                        .tickMarks = true,
                        .rightAxis = false});
    addPlot({.to = graph,
             .identifiedBy = "Angle",
             .color = NSColor::blueColor(),
             .lineWidth = 1.5f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return seconds.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    if (field == CPTScatterPlotFieldX) return seconds;
    return degrees;
  }

  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 600, 300));
  const auto pendulum = makePlot<Pendulum>(view, PlotTheme::white);
  exportFigure(*view, "pendulum.png", 1.5);
  exportFigure(*view, "pendulum.pdf");
}
