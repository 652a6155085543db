#include "PlacedText.h"

#include <CoreGraphics/CGPath.h>

#include "PageArea.h"
#include "TransformFacts.h"

namespace vexel {

PlacedText placedText(const CGText& text, CGPoint origin, const CGAffineTransform& transform,
                      const CGRect& page) {
  std::shared_ptr<const PangoText> layout = PangoText::layout(text);
  // The layout runs downwards from its top.
  const CGAffineTransform toDevice =
      CGAffineTransform{1, 0, 0, -1, origin.x, origin.y + layout->size().height}.followedBy(
          transform);
  CGMutablePath box;
  box.addRect({origin, layout->size()});
  const CGRect deviceBox = box.transformed(transform).boundingBox();
  const CGFloat height = layout->size().height * meanScale(toDevice);
  constexpr CGFloat kTooSmall = 0.01;
  const bool isVisible = hasInverse(toDevice) && height > kTooSmall && height < kSafeReach &&
                         !deviceBox.intersection(safeBox(page, 0)).isEmpty();
  return isVisible ? PlacedText{std::move(layout), toDevice} : PlacedText{};
}

}  // namespace vexel
