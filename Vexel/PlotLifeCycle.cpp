#include <Vexel/Vexel.h>

namespace vexel {

void Vexel::initPlot(std::shared_ptr<NSView> plotView, PlotTheme theme) {
  auxiliaryText() = "";
  auxiliaryValues() = {};
  xUnitScale() = 1.0;
  yUnitScale() = 1.0;
  this->plotView() = std::move(plotView);
  this->theme() = theme;
  viewConstraints() = {};
  setupPlot();
}

void Vexel::show() {
  draw({});
}

void Vexel::update() {
  refresh({});
}

void Vexel::update(const std::vector<double>& presented) {
  draw(presented);
}

}  // namespace vexel
