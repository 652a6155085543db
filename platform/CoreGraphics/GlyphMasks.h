#pragma once

#include <cairo.h>
#include <pango/pango.h>

#include <cstdint>

#include <CoreGraphics/CGAffineTransform.h>

#include "PixelTarget.h"

namespace vexel {

/// One glyph at one size and direction, at a place within a pixel.
struct GlyphShape {
  PangoFont* font;
  std::uint32_t glyph;
  /// From the coordinates of the text to pixels, without translation.
  CGAffineTransform linear;
  /// Quarters of a pixel, 0 to 3.
  int phaseX;
  int phaseY;

  friend bool operator==(const GlyphShape&, const GlyphShape&) = default;
};

/// Puts the outline of a glyph into a path of `context`, its origin at (0, 0).
void addGlyphPath(cairo_t* context, PangoFont* font, std::uint32_t glyph);

/// The mask of a glyph, kept by the calling thread among a bounded number; null when it is too
/// large to keep. Valid until the next call.
const CoverageMask* glyphMask(const GlyphShape& shape);

}  // namespace vexel
