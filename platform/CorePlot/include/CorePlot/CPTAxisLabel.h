#pragma once

#include <memory>
#include <string>

#include <CorePlot/CPTTextLayer.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTAxis;

/// The text at a place of an axis. Changes are seen at the axis's next display, which they ask for.
class VEXEL_API CPTAxisLabel : public virtual NSObject {
 public:
  /// In points.
  static constexpr CGFloat kDefaultOffset = 2;

  /// A label at 0 with plain text, or with a layer that it shares.
  explicit CPTAxisLabel(std::string text, CPTTextStyle style = {})
      : contentLayer_(std::make_shared<CPTTextLayer>(std::move(text), std::move(style))) {}
  explicit CPTAxisLabel(std::shared_ptr<CPTTextLayer> contentLayer)
      : contentLayer_(std::move(contentLayer)) {}

  /// Null: nothing is drawn.
  const std::shared_ptr<CPTTextLayer>& contentLayer() const { return contentLayer_; }

  /// In plot-space units of the axis's coordinate; default 0.
  double tickLocation() const { return tickLocation_; }
  void setTickLocation(double location) { change(tickLocation_, location); }

  /// Distance from the axis line or the end of the tick, in points; default 2, as an axis
  /// has it for its own labels.
  CGFloat offset() const { return offset_; }
  void setOffset(CGFloat points) { change(offset_, points); }

  /// In radians, counter-clockwise; default 0.
  CGFloat rotation() const { return rotation_; }
  void setRotation(CGFloat radians) { change(rotation_, radians); }

 private:
  friend class CPTAxis;

  void change(double& property, double value);

  NSWeak<CPTAxis> axis_;
  std::shared_ptr<CPTTextLayer> contentLayer_;
  double tickLocation_ = 0;
  CGFloat offset_ = kDefaultOffset;
  CGFloat rotation_ = 0;
};

}  // namespace vexel
