#include <CorePlot/CPTImage.h>

#include <cmath>

namespace vexel {

namespace {

// Smaller tiles would only show as their mean colour, in points.
constexpr CGFloat kSmallestTile = 1;
constexpr CGFloat kMostTiles = 10000;

}  // namespace

void CPTImage::draw(CGContext& context, const CGRect& rect) const {
  if (!image || rect.isEmpty()) return;
  const CGFloat pixelsPerPoint = scale > 0 && std::isfinite(scale) ? scale : 1;
  const CGSize tile{static_cast<CGFloat>(image->width()) / pixelsPerPoint,
                    static_cast<CGFloat>(image->height()) / pixelsPerPoint};
  const CGFloat columns = std::ceil(rect.size.width / tile.width);
  const CGFloat rows = std::ceil(rect.size.height / tile.height);
  const bool canBeTiled =
      tile.width >= kSmallestTile && tile.height >= kSmallestTile && columns * rows <= kMostTiles;
  if (!tiled || !canBeTiled) {
    context.drawImage(*image, rect);
    return;
  }
  const CGSavedState state(context);
  context.clip(rect);
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column)
      context.drawImage(
          *image, {{rect.minX() + column * tile.width, rect.minY() + row * tile.height}, tile});
}

}  // namespace vexel
