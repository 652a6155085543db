#include <CorePlot/CPTFill.h>

namespace vexel {

void CPTFill::fill(CGContext& context, const CGRect& rect) const {
  if (rect.isEmpty()) return;
  if (const auto* plain = color())
    context.fillAligned(rect, plain->cgColor());
  else
    image()->draw(context, rect);
}

void CPTFill::fill(CGContext& context, const CGPath& path) const {
  if (const auto* plain = color()) {
    context.fill(path, plain->cgColor());
    return;
  }
  const CGSavedState state(context);
  context.clip(path);
  image()->draw(context, path.boundingBox());
}

}  // namespace vexel
