#include "DirtyRects.h"

#include <algorithm>

namespace vexel {

namespace {

// Enough for what two markers with labels leave and enter.
constexpr std::size_t kMostRects = 8;

CGFloat area(const CGRect& rect) {
  return rect.size.width * rect.size.height;
}

/// How much larger the rectangle around both is than both together; infinite sizes lose nothing.
CGFloat loss(const CGRect& a, const CGRect& b) {
  const CGFloat lost = area(a.unionWith(b)) - area(a) - area(b);
  return lost == lost ? lost : 0;
}

}  // namespace

void addDirtyRect(std::vector<CGRect>& rects, CGRect rect) {
  if (rect.isEmpty()) return;
  for (;;) {
    const auto nearest = std::min_element(
        rects.begin(), rects.end(),
        [&](const auto& a, const auto& b) { return loss(a, rect) < loss(b, rect); });
    const bool staysApart =
        nearest == rects.end() || (loss(*nearest, rect) > 0 && rects.size() < kMostRects);
    if (staysApart) break;
    rect = rect.unionWith(*nearest);
    rects.erase(nearest);
  }
  rects.push_back(rect);
}

CGRect boundingRect(const std::vector<CGRect>& rects) {
  CGRect around;
  for (const CGRect& rect : rects) around = around.unionWith(rect);
  return around;
}

}  // namespace vexel
