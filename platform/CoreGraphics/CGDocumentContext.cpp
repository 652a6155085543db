#include <CoreGraphics/CGDocumentContext.h>

#include "CairoPdfContext.h"
#include "SvgContext.h"

namespace vexel {

std::unique_ptr<CGDocumentContext> CGDocumentContext::create(Format format, CGSize size) {
  for (const CGFloat side : {size.width, size.height})
    if (!(side > 0 && side <= kMaximumSide))
      throw CGContextError("The sides of a page must be above 0 and at most 14400 points");
  if (format == Format::svg) return std::make_unique<SvgContext>(size);
  return makePdfContext(size);
}

}  // namespace vexel
