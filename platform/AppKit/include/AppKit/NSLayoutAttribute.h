#pragma once

namespace vexel {

/// What of a view a layout constraint speaks about, in points. Measured from the left and *down*
/// from the top edge of the view that holds the constraints (the host): the host's own left and
/// top are 0, its right is its width and its bottom its height.
enum class NSLayoutAttribute {
  notAnAttribute,
  left,
  right,
  top,
  bottom,
  width,
  height,
  centerX,
  centerY,
};

}  // namespace vexel
