#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <CorePlot/CPTAnnotation.h>
#include <CorePlot/CPTBorderedLayer.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The rectangle that the plot spaces map onto: its fill lies below grid and plots, its
/// annotations above everything.
class VEXEL_API CPTPlotArea : public CPTBorderedLayer {
 public:
  /// From back to front.
  const std::vector<std::shared_ptr<CPTAnnotation>>& annotations() const { return annotations_; }
  /// Null does nothing, and so does an annotation that is there already.
  void addAnnotation(std::shared_ptr<CPTAnnotation> annotation);
  /// One that is not here does nothing.
  void removeAnnotation(const CPTAnnotation& annotation);
  void removeAllAnnotations();

  /// Whether an annotation was added, removed, moved or changed since the last display.
  bool annotationsNeedDisplay() const;
  /// Marks all annotations: their places may be others.
  void setAnnotationsNeedDisplay();
  /// Draws those that touch `rect`, in own coordinates, or all when it is absent.
  void drawAnnotations(CGContext& context, const std::optional<CGRect>& rect);

 private:
  friend class CPTAnnotation;

  void annotationsDidChange();

  std::vector<std::shared_ptr<CPTAnnotation>> annotations_;
  bool annotationsChanged_ = true;
};

}  // namespace vexel
