#pragma once

#include "CairoCanvas.h"

namespace vexel {

/// CGContext::drawText on pixels. Glyphs stand within an eighth of a pixel of their places along
/// the line, and on whole pixels across it when the line is horizontal or vertical, so that all
/// labels are equally crisp. (Cairo would move them to whole pixels along the line, too.)
void drawTextOnBitmap(CairoCanvas& canvas, const CGText& text, CGPoint origin);

}  // namespace vexel
