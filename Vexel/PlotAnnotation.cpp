#include <Vexel/PlotAnnotation.h>

#include <Foundation/FatalError.h>

#include "AnnotationText.h"

namespace vexel {

namespace {

std::shared_ptr<CPTPlotArea> plotAreaOf(const CPTXYGraph& graph) {
  return graph.plotAreaFrame() ? graph.plotAreaFrame()->plotArea() : nullptr;
}

}  // namespace

PlotAnnotation::PlotAnnotation(const Arguments& arguments)
    : location_(*arguments.location),
      color_(*arguments.color),
      fontSize_(*arguments.fontSize),
      label_(arguments.label),
      attributedLabel_(arguments.attributedLabel),
      alignment_(*arguments.alignment),
      coordinates_(*arguments.coordinates) {}

void PlotAnnotation::annotate(const std::shared_ptr<CPTXYGraph>& on) {
  if (!on) return;
  const auto point = anchor(*on);
  if (!point) return;
  const auto text = textLayer();
  if (!text) return;
  const auto space = defaultXYPlotSpace(*on);
  if (!space) return;

  const auto placed = std::make_shared<CPTPlotSpaceAnnotation>(space.get(), *point);
  placed->setContentLayer(text);
  placed->setDisplacement(displacement(text->frame().size));
  if (const auto area = plotAreaOf(*on)) area->addAnnotation(placed);
  annotation_ = placed;
  graph_ = on.get();
}

void PlotAnnotation::remove(const std::shared_ptr<CPTXYGraph>& from) {
  if (!annotation_) return;
  // Deliberate: the label is added once more instead of being taken off, and so stays.
  if (const auto area = from ? plotAreaOf(*from) : nullptr) area->addAnnotation(annotation_);
  annotation_ = nullptr;
}

void PlotAnnotation::update(const std::string& label) {
  if (annotation_ && annotation_->contentLayer()) annotation_->contentLayer()->setText(label);
}

void PlotAnnotation::update(const NSAttributedString& label) {
  if (annotation_ && annotation_->contentLayer())
    annotation_->contentLayer()->setAttributedText(label);
}

void PlotAnnotation::updateLocation() {
  if (!graph_) return;
  const auto point = anchor(*graph_);
  if (point && annotation_) annotation_->setAnchorPlotPoint(*point);
}

std::optional<std::vector<double>> PlotAnnotation::anchor(const CPTXYGraph& graph) const {
  if (coordinates_ == Coordinates::normal) return pointAtFractions(location_, graph);
  if (location_.size() < 2) fatalError("PlotAnnotation: a location needs two numbers");
  return location_;
}

std::shared_ptr<CPTTextLayer> PlotAnnotation::textLayer() const {
  if (label_) {
    CPTMutableTextStyle style;
    style.color = CPTColor(CPTCreateCGColorFromNSColor(color_));
    style.fontSize = fontSize_;
    return annotationText(*label_, style);
  }
  return attributedLabel_ ? annotationText(*attributedLabel_) : nullptr;
}

CGPoint PlotAnnotation::displacement(CGSize text) const {
  const CGPoint half{0.5 * text.width, 0.5 * text.height};
  switch (alignment_) {
    case Alignment::top:
      return {half.x, -half.y};
    case Alignment::bottom:
    case Alignment::left:
      return half;
    case Alignment::right:
      return {-half.x, half.y};
  }
  fatalError("PlotAnnotation: unexpected alignment");
}

}  // namespace vexel
