#pragma once

#include <memory>
#include <optional>

#include <CorePlot/CPTTextLayer.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTPlotArea;

/// Content that lies on a plot area. Its centre is at the anchor, moved by the displacement.
class VEXEL_API CPTAnnotation : public virtual NSObject {
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
  /// A rectangle around all that draw() draws, in the plot area's coordinates; empty when that is
  /// nothing.
  CGRect reach() const;
  /// Whether the annotation or its content changed since it was last drawn.
  bool needsDisplay() const {
    return needsDisplay_ || (contentLayer_ && contentLayer_->needsDisplay());
  }
  /// Draws the content, in the plot area's coordinates.
  void draw(CGContext& context);

 protected:
  /// Marks the annotation and tells the plot area.
  void contentDidChange();

 private:
  /// Where the centre of the content is; absent when it cannot be seen.
  std::optional<CGPoint> center() const;
  CGFloat usableRotation() const;

  friend class CPTPlotArea;

  std::shared_ptr<CPTTextLayer> contentLayer_;
  CGPoint displacement_;
  CGFloat rotation_ = 0;
  bool needsDisplay_ = true;
  NSWeak<CPTPlotArea> plotArea_;
};

}  // namespace vexel
