#include <CorePlot/CPTPlotArea.h>

#include <algorithm>

namespace vexel {

void CPTPlotArea::addAnnotation(std::shared_ptr<CPTAnnotation> annotation) {
  if (!annotation || annotation->plotArea() == this) return;
  if (auto* former = annotation->plotArea()) former->removeAnnotation(*annotation);
  annotation->plotArea_ = this;
  addSublayer(annotation->contentLayer());
  annotations_.push_back(std::move(annotation));
  annotations_.back()->contentDidChange();
}

void CPTPlotArea::removeAnnotation(const CPTAnnotation& annotation) {
  const auto found = std::find_if(annotations_.begin(), annotations_.end(),
                                  [&](const auto& a) { return a.get() == &annotation; });
  if (found == annotations_.end()) return;
  const auto removed = *found;
  annotations_.erase(found);
  removed->plotArea_ = nullptr;
  if (removed->contentLayer()) removed->contentLayer()->removeFromSuperlayer();
  annotationsDidChange();
}

void CPTPlotArea::removeAllAnnotations() {
  while (!annotations_.empty()) removeAnnotation(*annotations_.back());
}

bool CPTPlotArea::annotationsNeedDisplay() const {
  return annotationsChanged_ ||
         std::any_of(annotations_.begin(), annotations_.end(),
                     [](const auto& annotation) { return annotation->needsDisplay(); });
}

void CPTPlotArea::setAnnotationsNeedDisplay() {
  for (const auto& annotation : annotations_) annotation->needsDisplay_ = true;
  annotationsDidChange();
}

void CPTPlotArea::annotationsDidChange() {
  annotationsChanged_ = true;
  contentDidChange();
}

void CPTPlotArea::drawAnnotations(CGContext& context, const std::optional<CGRect>& rect) {
  annotationsChanged_ = false;
  const auto present = annotations_;
  try {
    for (const auto& annotation : present)
      if (!rect || !annotation->reach().intersection(*rect).isEmpty()) annotation->draw(context);
  } catch (...) {
    setAnnotationsNeedDisplay();
    throw;
  }
}

}  // namespace vexel
