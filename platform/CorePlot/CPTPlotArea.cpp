#include <CorePlot/CPTPlotArea.h>

#include <algorithm>

namespace vexel {

void CPTPlotArea::addAnnotation(std::shared_ptr<CPTAnnotation> annotation) {
  if (!annotation || annotation->plotArea() == this) return;
  if (auto* former = annotation->plotArea()) former->removeAnnotation(*annotation);
  annotation->plotArea_ = this;
  addSublayer(annotation->contentLayer());
  annotations_.push_back(std::move(annotation));
  setAnnotationsNeedDisplay();
}

void CPTPlotArea::removeAnnotation(const CPTAnnotation& annotation) {
  const auto found = std::find_if(annotations_.begin(), annotations_.end(),
                                  [&](const auto& a) { return a.get() == &annotation; });
  if (found == annotations_.end()) return;
  const auto removed = *found;
  annotations_.erase(found);
  removed->plotArea_ = nullptr;
  if (removed->contentLayer()) removed->contentLayer()->removeFromSuperlayer();
  setAnnotationsNeedDisplay();
}

void CPTPlotArea::removeAllAnnotations() {
  while (!annotations_.empty()) removeAnnotation(*annotations_.back());
}

bool CPTPlotArea::annotationsNeedDisplay() const {
  return annotationsNeedDisplay_ ||
         std::any_of(annotations_.begin(), annotations_.end(), [](const auto& annotation) {
           return annotation->contentLayer() && annotation->contentLayer()->needsDisplay();
         });
}

void CPTPlotArea::setAnnotationsNeedDisplay() {
  annotationsNeedDisplay_ = true;
  contentDidChange();
}

void CPTPlotArea::drawAnnotations(CGContext& context) {
  annotationsNeedDisplay_ = false;
  const auto present = annotations_;
  for (const auto& annotation : present) annotation->draw(context);
}

}  // namespace vexel
