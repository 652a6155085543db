#pragma once

#include <span>

#include <CoreGraphics/CGContext.h>

#include "CairoCanvas.h"
#include "SymbolStamps.h"

namespace vexel {

/// CGContext::drawSymbols on pixels: by stamps, and by Cairo where there are none or the clip
/// cuts through pixels.
void drawSymbolsOnBitmap(CairoCanvas& canvas, const SymbolLook& look,
                         std::span<const CGPoint> centers);

/// CGContext::drawStyledSymbols in the same way. False, and nothing is drawn, when the clip is not
/// a rectangle.
bool drawStyledSymbolsOnBitmap(CairoCanvas& canvas, const CGPath& symbol,
                               std::span<const CGSymbolStyle> styles,
                               std::span<const std::uint32_t> styleOfCenter,
                               std::span<const CGPoint> centers);

}  // namespace vexel
