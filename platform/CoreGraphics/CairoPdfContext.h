#pragma once

#include <memory>

#include <CoreGraphics/CGDocumentContext.h>

namespace vexel {

/// A PDF file of one page, drawn with Cairo. Throws CGContextError.
std::unique_ptr<CGDocumentContext> makePdfContext(CGSize size);

}  // namespace vexel
