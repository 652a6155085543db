#include "BitmapText.h"

#include <cmath>

#include "GlyphMasks.h"
#include "PixelBlend.h"
#include "PixelTarget.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// Farther from the surface than any glyph is large.
constexpr CGFloat kFarAway = 1e6;

// Quarters of a pixel, or whole pixels given in quarters.
int quarters(CGFloat coordinate, bool whole) {
  return whole ? 4 * static_cast<int>(std::floor(coordinate + 0.5))
               : static_cast<int>(std::floor(coordinate * 4 + 0.5));
}

}  // namespace

void drawTextOnBitmap(CairoCanvas& canvas, const CGText& text, CGPoint origin) {
  const PlacedText placed = canvas.placedText(text, origin);
  if (!placed.layout) return;
  if (!placed.layout->hasOutlines()) return canvas.show(placed);

  const CGFloat scale = placed.layout->glyphScale();
  CGAffineTransform linear = CGAffineTransform::scale(scale, scale).followedBy(placed.toDevice);
  linear.tx = linear.ty = 0;
  const bool isHorizontal = keepsAxes(linear), isVertical = swapsAxes(linear);
  PixelTarget target(canvas);
  for (const PlacedGlyph& glyph : placed.layout->glyphs()) {
    const CGPoint p = placed.toDevice.apply(glyph.origin);
    if (!(std::abs(p.x) < kFarAway && std::abs(p.y) < kFarAway)) continue;
    const int x = quarters(p.x, isVertical), y = quarters(p.y, isHorizontal);
    // Shifts of negative numbers round down, as the phases want it.
    const CoverageMask* mask = canvas.clipIsRectangle()
                                   ? glyphMask({glyph.font, glyph.index, linear, x & 3, y & 3})
                                   : nullptr;
    if (mask && target.blend(*mask, premultipliedPixel(glyph.color), x >> 2, y >> 2)) continue;
    target.suspendFor([&] {
      CGAffineTransform toDevice = linear;
      toDevice.tx = x / 4.0;
      toDevice.ty = y / 4.0;
      canvas.fillGlyph(glyph, toDevice);
    });
  }
}

}  // namespace vexel
