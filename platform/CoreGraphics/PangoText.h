#pragma once

#include <cairo.h>
#include <pango/pango.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGText.h>

namespace vexel {

struct PangoRelease {
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

/// A glyph of a laid out text, its origin in points from the top-left corner, y down. The font is
/// the layout's, of another size than the text.
struct PlacedGlyph {
  PangoFont* font;
  std::uint32_t index;
  CGPoint origin;
  CGColor color;
};

/// Characters of one look in a line: UTF-8, and the place of their run in the text.
struct TextPiece {
  std::string_view characters;
  std::size_t run;
};

/// A line of a laid out text, in points from the top-left corner, y down.
struct TextLine {
  /// Half way between the ends of the line.
  CGFloat middle;
  CGFloat baseline;
  bool isRightToLeft;
  /// In the order in which they are read.
  std::vector<TextPiece> pieces;
};

/// The size that the characters of a run have: 0 when there is nothing to draw.
CGFloat drawnFontSize(const CGTextRun& run);
/// How far a run is raised above its line; negative when lowered.
CGFloat baselineRise(const CGTextRun& run);

/// Text whose lines and glyphs have been placed. Positions are those of an unhinted font at one
/// unit per point, whatever surface the text is shown on.
class PangoText {
 public:
  explicit PangoText(const CGText& text);

  CGSize size() const { return size_; }
  std::span<const PlacedGlyph> glyphs() const { return glyphs_; }
  /// The size of glyphs in the text, of those in the layout's fonts.
  CGFloat glyphScale() const { return scale_; }
  /// False when some character has no glyph in any font, and a box with its number is shown.
  bool hasOutlines() const { return hasOutlines_; }
  /// The lines from top to bottom. Their characters live as long as this.
  std::vector<TextLine> lines() const;
  /// Shows the text in the present coordinates of `context`, which run downwards here, with its
  /// top-left corner at (0, 0).
  void show(cairo_t* context) const;

  /// The laid out form of `text`, kept by the calling thread while it is among those lately used.
  static std::shared_ptr<const PangoText> layout(const CGText& text);

 private:
  std::unique_ptr<PangoLayout, PangoRelease> layout_;
  /// The first byte of each run, and the end of the last one.
  std::vector<std::size_t> runStarts_;
  CGSize size_;
  CGFloat scale_ = 1;
  std::vector<PlacedGlyph> glyphs_;
  bool hasOutlines_ = true;
};

}  // namespace vexel
