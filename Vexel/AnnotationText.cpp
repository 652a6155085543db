#include "AnnotationText.h"

#include <cmath>

#include <Foundation/FatalError.h>

namespace vexel {

namespace {

constexpr CGFloat kPadding = 2;

std::shared_ptr<CPTTextLayer> finished(std::shared_ptr<CPTTextLayer> layer) {
  layer->setFill(std::nullopt);
  layer->setPadding(kPadding);
  return layer;
}

double valueAtFraction(double fraction, const CPTPlotRange& range, CPTScaleType scale) {
  const double location = range.locationDouble(), length = range.lengthDouble();
  if (scale != CPTScaleTypeLog) return location + fraction * length;
  return std::pow(10.0,
                  std::log10(location) + fraction * std::log10((location + length) / location));
}

}  // namespace

std::shared_ptr<CPTTextLayer> annotationText(const std::string& text, CPTTextStyle style) {
  style.textAlignment = CPTTextAlignment::center;
  return finished(std::make_shared<CPTTextLayer>(text, std::move(style)));
}

std::shared_ptr<CPTTextLayer> annotationText(const NSAttributedString& text) {
  return finished(std::make_shared<CPTTextLayer>(text));
}

std::shared_ptr<CPTXYPlotSpace> defaultXYPlotSpace(const CPTXYGraph& graph) {
  return std::dynamic_pointer_cast<CPTXYPlotSpace>(graph.defaultPlotSpace());
}

std::optional<std::vector<double>> pointAtFractions(const std::vector<double>& fractions,
                                                    const CPTXYGraph& graph) {
  const auto space = defaultXYPlotSpace(graph);
  if (!space) return std::nullopt;
  if (fractions.size() < 2) fatalError("annotation: a normalised point needs two numbers");
  return std::vector{valueAtFraction(fractions[0], space->xRange(), space->xScaleType()),
                     valueAtFraction(fractions[1], space->yRange(), space->yScaleType())};
}

}  // namespace vexel
