#include <cmath>

#include <Foundation/FatalError.h>
#include <Vexel/Vexel.h>

namespace vexel {

std::vector<double> Vexel::getCurrentShowRange(const std::shared_ptr<CPTXYGraph>& graph) {
  if (!graph) return {};
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  if (!space) fatalError("Vexel.getCurrentShowRange: the graph has no xy plot space");
  const CPTPlotRange range = space->xRange();
  return {range.locationDouble() / xUnitScale(), range.endDouble() / xUnitScale()};
}

std::vector<float> Vexel::getLinearPlotRange(float, const std::vector<float>& amplitudeRange,
                                             const std::vector<float>& f) {
  if (amplitudeRange.empty()) fatalError("Vexel.getLinearPlotRange: amplitudeRange is empty");
  if (f.size() < 2) fatalError("Vexel.getLinearPlotRange: f needs two numbers");
  if (amplitudeRange.size() < 2)
    fatalError("Vexel.getLinearPlotRange: amplitudeRange needs two numbers");

  const float a = amplitudeRange[0] < 0 ? amplitudeRange[0] : 0;
  const float b = amplitudeRange[1];
  const float lower = (f[1] * a - b * f[0]) / (f[1] - f[0]);
  const float upper = a / f[0] - ((1 - f[0]) / f[0]) * lower;
  return {lower, upper};
}

std::vector<float> Vexel::getLogPlotRange(float offset, float maximumAmplitude,
                                          const std::vector<float>& f) {
  if (f.size() < 2) fatalError("Vexel.getLogPlotRange: f needs two numbers");

  const float a = std::log(offset);
  const float b = std::log(maximumAmplitude);
  const float lower = (a * f[1] - b * f[0]) / (f[1] - f[0]);
  const float upper = ((f[0] - 1) / f[0]) * lower + a / f[0];
  // Deliberate: not divided by ln 10, which would round differently.
  return {std::log10(std::exp(lower)), std::log10(std::exp(upper))};
}

}  // namespace vexel
