#pragma once

#include <memory>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGRect.h>

#include "PangoText.h"

namespace vexel {

/// The layout of a text and the way from its coordinates (y down, its top-left corner at the
/// origin) to the device; no layout when nothing of it can be seen.
struct PlacedText {
  std::shared_ptr<const PangoText> layout;
  CGAffineTransform toDevice;
};

/// A text whose box has its bottom-left corner at `origin`, taken through a transform that has an
/// inverse to a device that shows `page`.
PlacedText placedText(const CGText& text, CGPoint origin, const CGAffineTransform& transform,
                      const CGRect& page);

}  // namespace vexel
