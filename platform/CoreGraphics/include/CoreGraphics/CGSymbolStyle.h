#pragma once

#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGStrokeStyle.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// What a symbol is filled and then stroked with; either may be absent (null). It refers to both.
struct VEXEL_API CGSymbolStyle {
  /// Null: no fill, or no outline.
  const CGColor* fillColor = nullptr;
  const CGStrokeStyle* strokeStyle = nullptr;
};

}  // namespace vexel
