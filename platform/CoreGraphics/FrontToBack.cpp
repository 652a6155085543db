#include "FrontToBack.h"

#include <algorithm>
#include <cstddef>

#include "PixelBlend.h"

namespace vexel {

FrontToBack::FrontToBack(const PixelRect& box)
    : box_(box), cellsInRow_((box.width() + kCell - 1) / kCell) {
  const int cellRows = (box.height() + kCell - 1) / kCell;
  pixels_.resize(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()));
  for (int row = 0; row < cellRows; ++row)
    for (int column = 0; column < cellsInRow_; ++column)
      open_.push_back(static_cast<std::uint8_t>(std::min(kCell, box.width() - column * kCell) *
                                                std::min(kCell, box.height() - row * kCell)));
}

bool FrontToBack::isFull(const PixelRect& part) const {
  for (int row = part.top / kCell; row * kCell < part.bottom; ++row)
    for (int column = part.left / kCell; column * kCell < part.right; ++column)
      if (open_[static_cast<std::size_t>(row * cellsInRow_ + column)] > 0) return false;
  return true;
}

void FrontToBack::layUnder(const PixelStamp& stamp, int x, int y, const PixelRect& within) {
  const StampShape& shape = stamp.shape;
  const int left = shape.left + x;
  const int top = shape.top + y;
  const PixelRect part = {std::max(left, within.left) - box_.left,
                          std::max(top, within.top) - box_.top,
                          std::min(left + shape.width, within.right) - box_.left,
                          std::min(top + shape.height, within.bottom) - box_.top};
  if (part.isEmpty() || isFull(part)) return;
  for (int v = part.top; v < part.bottom; ++v) {
    const int stampRow = v + box_.top - top;
    const StampShape::Span& ink = shape.ink[static_cast<std::size_t>(stampRow)];
    const int from = std::max(part.left, ink.from + left - box_.left);
    const int to = std::min(part.right, ink.to + left - box_.left);
    std::uint32_t* const row = pixels_.data() + std::ptrdiff_t{v} * box_.width();
    std::uint8_t* const open = open_.data() + std::ptrdiff_t{v / kCell} * cellsInRow_;
    const std::ptrdiff_t stampStart = std::ptrdiff_t{stampRow} * shape.width + box_.left - left;
    for (int u = from; u < to; ++u) {
      if (row[u] >> 24 == 255) continue;
      const std::ptrdiff_t place = stampStart + u;
      row[u] = pixelOver(
          row[u], stamp.pixels[place] + scaledPixel(stamp.color, stamp.weights[place] & 255u));
      if (row[u] >> 24 == 255) --open[u / kCell];
    }
  }
}

void FrontToBack::drawOn(PixelTarget& target) const {
  target.blend(box_, pixels_.data());
}

}  // namespace vexel
