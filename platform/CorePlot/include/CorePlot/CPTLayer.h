#pragma once

#include <memory>
#include <vector>

#include <CoreGraphics/CGContext.h>
#include <CorePlot/CALayerDelegate.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A part of a chart: a rectangle in the coordinates of its superlayer that draws itself. A layer
/// owns its sublayers; it knows its superlayer weakly. Made with std::make_shared where it becomes
/// a sublayer.
class VEXEL_API CPTLayer : public virtual NSObject {
 public:
  /// A layer without superlayer that needs display.
  explicit CPTLayer(CGRect frame = {});
  ~CPTLayer() override;
  CPTLayer(const CPTLayer&) = delete;
  CPTLayer& operator=(const CPTLayer&) = delete;

  /// In points, in the superlayer's coordinates. Setting it lays out the sublayers. A width or
  /// height that is negative or not finite is taken as 0, and so is an origin's coordinate that is
  /// not finite.
  CGRect frame() const { return frame_; }
  void setFrame(CGRect frame);
  /// The layer's own coordinates: origin (0, 0), size of the frame.
  CGRect bounds() const { return {{}, frame_.size}; }

  /// Distance kept between the layer's edges and what lies in it, in points; default 0. One that
  /// is not finite is taken as 0.
  CGFloat paddingLeft() const { return paddingLeft_; }
  CGFloat paddingRight() const { return paddingRight_; }
  CGFloat paddingTop() const { return paddingTop_; }
  CGFloat paddingBottom() const { return paddingBottom_; }
  void setPaddingLeft(CGFloat points) { changePadding(paddingLeft_, points); }
  void setPaddingRight(CGFloat points) { changePadding(paddingRight_, points); }
  void setPaddingTop(CGFloat points) { changePadding(paddingTop_, points); }
  void setPaddingBottom(CGFloat points) { changePadding(paddingBottom_, points); }
  /// The same on all four sides.
  void setPadding(CGFloat points);
  /// The bounds without the paddings; of no size where the paddings leave none.
  CGRect paddedBounds() const;

  /// Whether the layer is not drawn; default false.
  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);

  /// Ends the animations of the layer. The chart engine animates nothing; a type of layer that
  /// does replaces this.
  virtual void removeAllAnimations() {}

  /// Null or gone: absent.
  CALayerDelegate* delegate() const { return delegate_.get(); }
  void setDelegate(CALayerDelegate* delegate) { delegate_ = delegate; }

  /// Null when there is none, or it is gone.
  CPTLayer* superlayer() const { return superlayer_.get(); }
  /// From back to front.
  const std::vector<std::shared_ptr<CPTLayer>>& sublayers() const { return sublayers_; }
  /// Takes the layer from where it was. Null does nothing; this layer itself or one that contains
  /// it is a fatal error.
  void addSublayer(std::shared_ptr<CPTLayer> layer);
  /// Does nothing without one. Destroys the layer when nobody else owns it.
  void removeFromSuperlayer();

  /// Whether the layer's own content changed since it was last drawn. New layers need display.
  virtual bool needsDisplay() const { return needsDisplay_; }
  void setNeedsDisplay();
  /// How often the layer has drawn its content so far.
  unsigned displayCount() const { return displayCount_; }

  /// Draws the layer's own content in its own coordinates, unless it is hidden. What a layer
  /// draws is up to its type; sublayers are drawn by their own calls. When the delegate or the
  /// drawing throws, the layer needs display again. The caller keeps the layer alive.
  void display(CGContext& context);

  /// Moves a point from this layer's coordinates to those of the outermost layer.
  CGPoint convertPointToRoot(CGPoint point) const;

 protected:
  /// Called by display(), in the layer's coordinates.
  virtual void draw(CGContext& context) { (void)context; }
  /// Places the sublayers after a change of size or padding.
  virtual void layoutSublayers() {}
  /// Told of every change that makes this layer or one below it need display.
  virtual void contentDidChange();

 private:
  void changePadding(CGFloat& padding, CGFloat points);
  bool isInside(const CPTLayer& layer) const;

  CGRect frame_;
  CGFloat paddingLeft_ = 0;
  CGFloat paddingRight_ = 0;
  CGFloat paddingTop_ = 0;
  CGFloat paddingBottom_ = 0;
  bool hidden_ = false;
  bool needsDisplay_ = true;
  unsigned displayCount_ = 0;
  NSWeak<CALayerDelegate> delegate_;
  NSWeak<CPTLayer> superlayer_;
  std::vector<std::shared_ptr<CPTLayer>> sublayers_;
};

}  // namespace vexel
