#include "PageArea.h"

#include <algorithm>
#include <utility>

#include "DevicePen.h"
#include "PenReach.h"

namespace vexel {

namespace {

// What lies farther outside the page than this, beside the reach of the pen, is cut away.
constexpr CGFloat kMargin = 4096;

}  // namespace

CGRect safeBox(const CGRect& page, CGFloat pen) {
  const CGFloat margin = std::min(kMargin + pen, kSafeReach);
  return page.insetBy(-margin, -margin);
}

CGPath visibleFill(CGPath devicePath, const CGRect& page) {
  const CGRect box = safeBox(page, 0);
  if (liesInside(devicePath, box)) return devicePath;
  return clippedPolygons(flattenedInside(devicePath, box), box);
}

std::vector<ClippedPiece> visibleStroke(CGPath devicePath, const CGStrokeStyle& style,
                                        CGFloat scale, const CGRect& page) {
  const CGRect box = safeBox(page, penReach(style) * scale);
  std::vector<ClippedPiece> pieces;
  if (liesInside(devicePath, box)) {
    pieces.push_back({std::move(devicePath)});
  } else if (usableDashes(style).empty()) {
    pieces.push_back({clippedLines(flattenedInside(devicePath, box), box)});
  } else {
    pieces = clippedPieces(flattenedInside(devicePath, box), box);
    for (ClippedPiece& piece : pieces) piece.lengthBefore /= scale;
  }
  return pieces;
}

bool isRectangle(const CGPath& path) {
  const auto e = path.elements();
  if (e.size() != 5 || e[0].type != CGPathElement::Type::move ||
      e[4].type != CGPathElement::Type::close)
    return false;
  for (int i = 1; i < 4; ++i)
    if (e[i].type != CGPathElement::Type::line) return false;
  const CGPoint a = e[0].point, b = e[1].point, c = e[2].point, d = e[3].point;
  return (a.y == b.y && b.x == c.x && c.y == d.y && d.x == a.x) ||
         (a.x == b.x && b.y == c.y && c.x == d.x && d.y == a.y);
}

}  // namespace vexel
