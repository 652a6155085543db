#pragma once

#include <memory>

#include <CoreGraphics/CGContext.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// An image that fills an area: stretched over it, or, tiled, repeated from its bottom-left
/// corner. `scale` is the number of image pixels per point; one that is not above 0 and finite
/// counts as 1. Instead of tiles too small to be told apart, or more than
/// 10,000 of them, the image is stretched. A value.
struct VEXEL_API CPTImage {
  /// Null: nothing is drawn.
  std::shared_ptr<const CGImage> image;
  /// As said above.
  CGFloat scale = 1;
  /// Whether the image is repeated rather than stretched.
  bool tiled = false;

  /// Fills the rectangle, in the coordinates of the context; draws nothing outside it.
  void draw(CGContext& context, const CGRect& rect) const;

  friend bool operator==(const CPTImage&, const CPTImage&) = default;
};

}  // namespace vexel
