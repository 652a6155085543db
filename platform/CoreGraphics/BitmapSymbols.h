#pragma once

#include <span>

#include "CairoCanvas.h"
#include "SymbolStamps.h"

namespace vexel {

/// CGContext::drawSymbols on pixels: by stamps, and by Cairo where there are none or the clip
/// cuts through pixels.
void drawSymbolsOnBitmap(CairoCanvas& canvas, const SymbolLook& look,
                         std::span<const CGPoint> centers);

}  // namespace vexel
