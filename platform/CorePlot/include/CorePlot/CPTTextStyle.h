#pragma once

#include <optional>
#include <string>

#include <CoreGraphics/CGText.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

using CPTTextAlignment = CGTextAlignment;

/// How text is drawn. A value. The font size is in points.
struct VEXEL_API CPTTextStyle {
  std::string fontName = "Helvetica";
  CGFloat fontSize = 12;
  /// Absent: black.
  std::optional<CPTColor> color = CPTColor::blackColor();
  CPTTextAlignment textAlignment = CPTTextAlignment::left;

  /// `text` in this style.
  CGText cgText(const std::string& text) const;

  friend bool operator==(const CPTTextStyle&, const CPTTextStyle&) = default;
};

/// The name under which code that changes a style knows it.
using CPTMutableTextStyle = CPTTextStyle;

}  // namespace vexel
