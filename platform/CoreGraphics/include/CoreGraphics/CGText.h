#pragma once

#include <string>
#include <vector>

#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGSize.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Where the shorter lines of a text stand.
enum class CGTextAlignment { left = 0, center = 1, right = 2 };

/// A font: family name and size in points. "Helvetica" is drawn with the metric-compatible
/// family that the system has, and any other as the nearest one. Characters that no font has are
/// drawn as boxes. Without any fonts that is all of them, and an error is logged, once in each
/// thread that draws.
struct VEXEL_API CGFont {
  /// The name, and the size in points.
  std::string family = "Helvetica";
  CGFloat size = 12;
  /// The variant; regular unless set.
  bool bold = false;
  bool italic = false;

  friend bool operator==(const CGFont&, const CGFont&) = default;
};

/// A piece of text in one style. UTF-8; bytes that are not are drawn as U+FFFD.
struct VEXEL_API CGTextRun {
  /// The characters and how they look.
  std::string text;
  CGFont font = {};
  /// Black unless set.
  CGColor color = CGColor::genericGray(0);
  /// Superscript 1, subscript -1, on the line 0: set at 0.7 of the font size, raised by 0.4 or
  /// lowered by 0.2 of it.
  int superscript = 0;

  friend bool operator==(const CGTextRun&, const CGTextRun&) = default;
};

/// Styled text of one or more lines ("\n" ends a line). Lines are aligned among themselves.
struct VEXEL_API CGText {
  /// The pieces in their order, and how lines of different widths stand.
  std::vector<CGTextRun> runs;
  CGTextAlignment alignment = CGTextAlignment::left;

  friend bool operator==(const CGText&, const CGText&) = default;
};

/// Answers how large text is when it is drawn. The same on every surface: glyph positions are
/// not rounded to pixels.
class VEXEL_API CGTextMeasure {
 public:
  virtual ~CGTextMeasure() = default;
  /// Width of the widest line and height of all lines (ascent to descent), in points; (0, 0) for
  /// no text. Font sizes below 0.001 or not finite count as 0 and give (0, 0), above 4096 as 4096.
  virtual CGSize measure(const CGText& text) = 0;
};

/// The measure that drawing uses, of the calling thread. No font is loaded before the first call.
VEXEL_API CGTextMeasure& sharedTextMeasure();

}  // namespace vexel
