#include <Vexel/Vexel.h>

namespace vexel {

void Vexel::resetState() {
  auxiliaryText() = "";
  auxiliaryValues() = {};
  xUnitScale() = 1.0;
  yUnitScale() = 1.0;
}

void Vexel::initPlot(std::shared_ptr<NSView> plotView, PlotTheme theme) {
  resetState();
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
