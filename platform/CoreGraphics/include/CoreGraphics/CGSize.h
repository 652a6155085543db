#pragma once

#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A width and a height in points.
struct VEXEL_API CGSize {
  /// In points.
  CGFloat width = 0;
  CGFloat height = 0;

  friend bool operator==(const CGSize&, const CGSize&) = default;
};

}  // namespace vexel
