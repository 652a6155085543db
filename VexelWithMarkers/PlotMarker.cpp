#include <VexelWithMarkers/PlotMarker.h>

#include <Foundation/FatalError.h>

#include "QuarterTurn.h"

namespace vexel {

namespace {

constexpr CGFloat kAxisLabelOffset = 3;

std::optional<CPTColor> cptColor(const std::optional<NSColor>& color) {
  if (!color) return std::nullopt;
  return CPTColor(CPTCreateCGColorFromNSColor(*color));
}

template <class Number>
std::vector<NSNumber> numbers(const std::vector<Number>& values) {
  return {values.begin(), values.end()};
}

void requireTwo(const std::vector<NSNumber>& range) {
  if (range.size() < 2) fatalError("PlotMarker: a range needs two numbers");
}

}  // namespace

PlotMarker::PlotMarker(const Arguments& arguments)
    : type(*arguments.type),
      x(*arguments.x),
      y(*arguments.y),
      xRange(numbers(*arguments.xRange)),
      yRange(numbers(*arguments.yRange)),
      label(arguments.label),
      attributedLabel(arguments.attributedLabel),
      color(arguments.color),
      rotate(*arguments.rotate) {}

PlotMarker::PlotMarker(const BoxArguments& arguments)
    : type(MarkerType::box),
      x(0),
      y(0),
      xRange(numbers(*arguments.xRange)),
      yRange(numbers(*arguments.yRange)),
      label(arguments.label),
      attributedLabel(arguments.attributedLabel),
      color(arguments.color),
      rotate(*arguments.rotate) {}

std::shared_ptr<CPTTextLayer> PlotMarker::cptLabel() const {
  if (attributedLabel) return std::make_shared<CPTTextLayer>(*attributedLabel);
  if (!label) return nullptr;
  auto layer = std::make_shared<CPTTextLayer>(*label);
  auto style = layer->textStyle();
  if (style) style->color = cptColor(color);
  layer->setTextStyle(style);
  return layer;
}

std::shared_ptr<CPTAxisLabel> PlotMarker::axisLabelAt(const NSNumber& location) const {
  if (!label) return nullptr;
  CPTMutableTextStyle style;
  style.color = cptColor(color);
  auto result = std::make_shared<CPTAxisLabel>(*label, style);
  result->setTickLocation(location.doubleValue());
  result->setOffset(kAxisLabelOffset);
  if (rotate) result->setRotation(kQuarterTurn);
  return result;
}

PlotMarker::Numbers PlotMarker::lineX() const {
  if (type == MarkerType::verticalLine) return {x, x, std::nullopt};
  if (type != MarkerType::horizontalLine) return Numbers(3);
  requireTwo(xRange);
  return {xRange[0], xRange[1], std::nullopt};
}

PlotMarker::Numbers PlotMarker::boxX() const {
  if (type != MarkerType::box) return Numbers(6);
  requireTwo(xRange);
  return {xRange[0], xRange[1], xRange[1], xRange[0], xRange[0], std::nullopt};
}

PlotMarker::Numbers PlotMarker::boxY() const {
  if (type != MarkerType::box) return Numbers(6);
  requireTwo(yRange);
  return {yRange[0], yRange[0], yRange[1], yRange[1], yRange[0], std::nullopt};
}

}  // namespace vexel
