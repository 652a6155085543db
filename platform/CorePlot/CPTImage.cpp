#include <CorePlot/CPTImage.h>

#include <cmath>

namespace vexel {

namespace {

// Tiles smaller than a point are stretched instead: they would only show as their mean colour.
constexpr CGFloat kSmallestTile = 1;

}  // namespace

void CPTImage::draw(CGContext& context, const CGRect& rect) const {
  if (!image || rect.isEmpty()) return;
  const CGSize tile{static_cast<CGFloat>(image->width()) / scale,
                    static_cast<CGFloat>(image->height()) / scale};
  if (!tiled || !(tile.width >= kSmallestTile && tile.height >= kSmallestTile)) {
    context.drawImage(*image, rect);
    return;
  }
  const CGSavedState state(context);
  context.clip(rect);
  const auto columns = static_cast<int>(std::ceil(rect.size.width / tile.width));
  const auto rows = static_cast<int>(std::ceil(rect.size.height / tile.height));
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column)
      context.drawImage(
          *image, {{rect.minX() + column * tile.width, rect.minY() + row * tile.height}, tile});
}

}  // namespace vexel
