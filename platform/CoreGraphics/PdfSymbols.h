#pragma once

#include <span>
#include <string>

#include <CoreGraphics/CGSymbolStyle.h>

#include "CairoCanvas.h"
#include "PdfForms.h"

namespace vexel {

/// The operators that draw symbols of one shape (as symbolShape() gives it) at all centres that
/// the canvas shows; empty when there is none. Shapes and opacities are added to `forms`.
std::string pdfSymbols(const CGPath& shape, const CairoCanvas& canvas,
                       std::span<const CGSymbolStyle> styles,
                       std::span<const std::uint32_t> styleOfCenter,
                       std::span<const CGPoint> centers, PdfForms& forms);

}  // namespace vexel
