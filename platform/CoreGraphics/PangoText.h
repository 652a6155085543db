#pragma once

#include <cairo.h>
#include <pango/pango.h>

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGText.h>

namespace vexel {

struct PangoRelease {
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

/// A glyph of a laid out text, its origin in points from the top-left corner, y down. The font is
/// the layout's.
struct PlacedGlyph {
  PangoFont* font;
  std::uint32_t index;
  CGPoint origin;
  CGColor color;
};

/// Text whose lines and glyphs have been placed. Positions are those of an unhinted font at one
/// unit per point, whatever surface the text is shown on.
class PangoText {
 public:
  explicit PangoText(const CGText& text);

  CGSize size() const { return size_; }
  std::span<const PlacedGlyph> glyphs() const { return glyphs_; }
  /// False when some character has no glyph in any font, and a box with its number is shown.
  bool hasOutlines() const { return hasOutlines_; }
  /// Shows the text in the present coordinates of `context`, which run downwards here, with its
  /// top-left corner at (0, 0).
  void show(cairo_t* context) const;

  /// The laid out form of `text`, kept by the calling thread while it is among those lately used.
  static std::shared_ptr<const PangoText> layout(const CGText& text);

 private:
  std::unique_ptr<PangoLayout, PangoRelease> layout_;
  CGSize size_;
  std::vector<PlacedGlyph> glyphs_;
  bool hasOutlines_ = true;
};

}  // namespace vexel
