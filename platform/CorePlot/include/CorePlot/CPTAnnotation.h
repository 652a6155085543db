#pragma once

#include <memory>
#include <optional>

#include <CorePlot/CPTTextLayer.h>

namespace vexel {

class CPTPlotArea;

/// Content that lies on a plot area. Its centre is at the anchor, moved by the displacement.
class CPTAnnotation : public virtual NSObject {
 public:
  /// Null (the default): nothing is drawn.
  const std::shared_ptr<CPTTextLayer>& contentLayer() const { return contentLayer_; }
  void setContentLayer(std::shared_ptr<CPTTextLayer> layer);

  /// In points, to the right and up; default (0, 0).
  CGPoint displacement() const { return displacement_; }
  void setDisplacement(CGPoint points);

  /// In radians, counter-clockwise about the centre of the content; default 0. One that is not
  /// finite counts as 0.
  CGFloat rotation() const { return rotation_; }
  void setRotation(CGFloat radians);

  /// The plot area the annotation was added to; null when there is none.
  CPTPlotArea* plotArea() const { return plotArea_.get(); }

  /// The anchor in the plot area's coordinates; absent when it has no place there.
  virtual std::optional<CGPoint> anchor() const = 0;
  void draw(CGContext& context) const;

 protected:
  void contentDidChange();

 private:
  friend class CPTPlotArea;

  std::shared_ptr<CPTTextLayer> contentLayer_;
  CGPoint displacement_;
  CGFloat rotation_ = 0;
  NSWeak<CPTPlotArea> plotArea_;
};

}  // namespace vexel
