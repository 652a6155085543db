#pragma once

#include <optional>
#include <string>

#include <CoreGraphics/CGText.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Where the shorter lines of a text stand.
using CPTTextAlignment = CGTextAlignment;

/// How text is drawn. A value. The font size is in points.
struct VEXEL_API CPTTextStyle {
  /// The family.
  std::string fontName = "Helvetica";
  /// In points; text of a size that is not above 0 and finite takes no room.
  CGFloat fontSize = 12;
  /// Absent: black.
  std::optional<CPTColor> color = CPTColor::blackColor();
  /// Of shorter lines.
  CPTTextAlignment textAlignment = CPTTextAlignment::left;

  /// `text` in this style.
  CGText cgText(const std::string& text) const;

  friend bool operator==(const CPTTextStyle&, const CPTTextStyle&) = default;
};

/// The name under which code that changes a style knows it.
using CPTMutableTextStyle = CPTTextStyle;

}  // namespace vexel
