#pragma once

#include <string>

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "CairoCanvas.h"
#include "PdfForms.h"

namespace vexel {

/// The operators that draw a path under the transform of a canvas; empty when nothing can be seen.
/// Opacities are added to `forms`. The pen of the stroke must stay round.
std::string pdfStroke(const CGPath& path, const CGStrokeStyle& style, const CairoCanvas& canvas,
                      PdfForms& forms);
std::string pdfFill(const CGPath& path, const CGColor& color, const CairoCanvas& canvas,
                    PdfForms& forms);

}  // namespace vexel
