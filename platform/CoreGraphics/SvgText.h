#pragma once

#include <string>

#include "PlacedText.h"

namespace vexel {

/// The font of elements that name none.
extern const char* const kSvgDefaultFamily;

/// Appends a <text> element for each line of `text`, laid out as `placed`. Lines are anchored at
/// their middle: where a viewer has another font, what is wrong goes to both sides.
void appendSvgText(std::string& svg, const CGText& text, const PlacedText& placed);

}  // namespace vexel
