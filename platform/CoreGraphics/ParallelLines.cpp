#include "ParallelLines.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vexel {

namespace {

using Type = CGPathElement::Type;

/// The boxes that the lines cover; none when one of them is neither horizontal nor vertical.
std::vector<CGRect> boxesOf(const CGPath& path, CGFloat width, CGFloat cap) {
  const auto& elements = path.elements();
  std::vector<CGRect> boxes;
  for (std::size_t i = 0; i + 1 < elements.size(); i += 2) {
    const CGPoint a = elements[i].point;
    const CGPoint b = elements[i + 1].point;
    const bool isLine = elements[i].type == Type::move && elements[i + 1].type == Type::line &&
                        std::isfinite(a.x + a.y + b.x + b.y);
    if (!isLine || (a.x == b.x) == (a.y == b.y)) return {};
    const CGFloat beside = width / 2;
    const CGRect line = CGRect::make(std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x),
                                     std::abs(b.y - a.y));
    boxes.push_back(a.x == b.x ? line.insetBy(-beside, -cap) : line.insetBy(-cap, -beside));
  }
  return elements.size() % 2 == 0 ? boxes : std::vector<CGRect>{};
}

/// Whether no two boxes meet the same pixel.
bool areApart(std::vector<CGRect> boxes) {
  const bool areRows = boxes.front().size.width > boxes.front().size.height;
  const auto begin = [=](const CGRect& box) {
    return std::floor(areRows ? box.minY() : box.minX());
  };
  const auto end = [=](const CGRect& box) { return std::ceil(areRows ? box.maxY() : box.maxX()); };
  std::ranges::sort(boxes, {}, begin);
  return std::ranges::adjacent_find(boxes, [&](const CGRect& a, const CGRect& b) {
           return end(a) > begin(b);
         }) == boxes.end();
}

}  // namespace

bool strokeParallelLines(PixelTarget& target, const CGPath& path, const CGStrokeStyle& style,
                         CGFloat width) {
  if (!style.dashPattern.empty() || style.cap == CGLineCap::round || !target.wholeClip())
    return false;
  const auto boxes = boxesOf(path, width, style.cap == CGLineCap::square ? width / 2 : 0);
  if (boxes.empty() || !areApart(boxes)) return false;
  target.cover(boxes, premultipliedPixel(style.color));
  return true;
}

}  // namespace vexel
