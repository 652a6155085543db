#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

using namespace vexel;

struct Pulse : Adopter<vexel::Vexel> {
  std::vector<double> time = {0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1};
  std::vector<double> charge = {0, 0.6, 0.9, 0.95, 0.85, 0.7, 0.55, 0.4, 0.3, 0.2, 0.15};

  void setupPlot() override {
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {70, 20, 20, 55});
    graph->axisSet()->axes()[0]->setTitle("Time (ms)");
    graph->axisSet()->axes()[1]->setTitle("Charge (pC)");
    addPlot({.to = graph,
             .identifiedBy = "Pulse",
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
  std::size_t numberOfRecords(const CPTPlot&) override { return time.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    return field == CPTScatterPlotFieldX ? time : charge;
  }
};

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 640, 400));
  const auto pulse = makePlot<Pulse>(view, PlotTheme::white);
  for (const char* file : {"pulse.png", "pulse.pdf", "pulse.svg"}) exportFigure(*view, file);
}
