#pragma once

#include <optional>

#include <CorePlot/CPTFill.h>
#include <CorePlot/CPTLayer.h>
#include <CorePlot/CPTLineStyle.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A layer with a fill and a border.
class VEXEL_API CPTBorderedLayer : public CPTLayer {
 public:
  using CPTLayer::CPTLayer;

  /// Absent (the default): no fill.
  const std::optional<CPTFill>& fill() const { return fill_; }
  void setFill(std::optional<CPTFill> fill);

  /// Absent (the default): no border. The border lies inside the bounds.
  const std::optional<CPTLineStyle>& borderLineStyle() const { return borderLineStyle_; }
  void setBorderLineStyle(std::optional<CPTLineStyle> style);

  /// Radius of fill and border at the corners, in points; default 0.
  CGFloat cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(CGFloat points);

  /// Whether what lies in the layer is cut off at its border; default true.
  bool masksToBorder() const { return masksToBorder_; }
  void setMasksToBorder(bool masks);

  /// Narrows the clip of a context in the layer's coordinates to what masksToBorder() leaves.
  void clipToBorder(CGContext& context) const;
  /// Draws the border alone, in the layer's coordinates.
  virtual void drawBorder(CGContext& context) const;

 protected:
  void draw(CGContext& context) override;
  /// Draws the fill alone, in the layer's coordinates.
  void drawFill(CGContext& context) const;
  /// Strokes the border with the middle of its line `inset` points inside the bounds.
  void strokeBorder(CGContext& context, CGFloat inset) const;

 private:
  std::optional<CPTFill> fill_;
  std::optional<CPTLineStyle> borderLineStyle_;
  CGFloat cornerRadius_ = 0;
  bool masksToBorder_ = true;
};

}  // namespace vexel
