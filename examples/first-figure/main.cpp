#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cmath>

using namespace vexel;

class Pulse : public Adopter<vexel::Vexel> {
  std::vector<double> time, charge;

  void setupPlot() override {
    for (int i = 0; i <= 400; ++i) {
      time.push_back(0.1 * i);
      charge.push_back(80 * (std::exp(-time.back() / 15) - std::exp(-time.back() / 3)));
    }
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {70, 20, 20, 55});
    const auto edge = CPTConstraints::constraintWithLowerOffset(0);
    formatXAxis(graph, {.title = "Time [us]", .xRange = std::vector{0.0, 40.0},
                        .axisConstraints = edge, .gridLines = true, .noLabels = false,
                        .tickMarks = true, .timeAxis = false, .upperAxis = false,
                        .onNewPlotSpace = false, .separateLayers = false});
    formatYAxis(graph, {.title = "Charge [fC]", .axisConstraints = edge,
                        .yRange = std::vector{0.0, 50.0}, .yScale = 1.0, .gridLines = true,
                        .minorGridLines = false, .noLabels = false, .tickMarks = true,
                        .rightAxis = false});
    addPlot({.to = graph, .identifiedBy = "Pulse", .color = NSColor::blueColor(),
             .lineWidth = 2.0f, .circle = false, .circleSize = 0.0f, .label = false,
             .labelOffset = 0.0f, .labelRotation = 0.0f});
  }
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot&) override { return time.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? time : charge;
  }
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 640, 400));
  const auto plot = makePlot<Pulse>(view, PlotTheme::white);
  for (const char* file : {"pulse.png", "pulse.pdf", "pulse.svg"}) exportFigure(*view, file);
}
