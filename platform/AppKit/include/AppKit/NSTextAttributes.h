#pragma once

#include <string>

#include <AppKit/NSColor.h>
#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// How a piece of text looks.
struct VEXEL_API NSTextAttributes {
  /// Of the family; "Helvetica" is drawn with the family of the same metrics that the system has.
  std::string fontName = "Helvetica";
  /// In points. Text of a size that is not above 0 and finite takes no room.
  CGFloat fontSize = 12;
  /// Black and regular unless set.
  NSColor color = NSColor::blackColor();
  bool bold = false;
  bool italic = false;
  /// Superscript 1, subscript -1, on the line 0.
  int superscript = 0;

  friend bool operator==(const NSTextAttributes&, const NSTextAttributes&) = default;
};

}  // namespace vexel
