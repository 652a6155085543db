#include "DirtyRects.h"

#include <algorithm>
#include <utility>

namespace vexel {

namespace {

// Enough for what two markers with labels leave and enter.
constexpr std::size_t kMostRects = 8;

/// What is narrower than this many points cannot be seen.
constexpr CGFloat kInvisible = 1e-3;

CGFloat area(const CGRect& rect) {
  return rect.size.width * rect.size.height;
}

/// How much larger the rectangle around both is than both together; infinite sizes lose nothing.
CGFloat loss(const CGRect& a, const CGRect& b) {
  const CGFloat lost = area(a.unionWith(b)) - area(a) - area(b);
  return lost == lost ? lost : 0;
}

bool covers(const CGRect& rect, const CGRect& part) {
  return part.isEmpty() ||
         (part.minX() >= rect.minX() - kInvisible && part.maxX() <= rect.maxX() + kInvisible &&
          part.minY() >= rect.minY() - kInvisible && part.maxY() <= rect.maxY() + kInvisible);
}

/// What is left of `part` when `drawn` has been: nothing, what is above and below, or all of it.
std::vector<CGRect> without(const CGRect& drawn, const CGRect& part) {
  if (covers(drawn, part)) return {};
  const CGRect acrossDrawn =
      CGRect::make(part.minX(), drawn.minY(), part.size.width, drawn.size.height);
  const CGRect both = acrossDrawn.intersection(part);
  if (both.isEmpty() || !covers(drawn, both)) return {part};
  const auto between = [&](CGFloat bottom, CGFloat top) {
    return CGRect::make(part.minX(), bottom, part.size.width,
                        top - bottom > kInvisible ? top - bottom : 0);
  };
  std::vector<CGRect> left{between(part.minY(), both.minY()), between(both.maxY(), part.maxY())};
  std::erase_if(left, [](const CGRect& rect) { return rect.isEmpty(); });
  return left;
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

void removeDrawnRect(std::vector<CGRect>& rects, const CGRect& drawn) {
  const std::vector<CGRect> before = std::exchange(rects, {});
  std::size_t room = kMostRects - std::min(kMostRects, before.size());
  for (const CGRect& rect : before) {
    std::vector<CGRect> left = without(drawn, rect);
    if (left.size() > 1) {
      if (room > 0)
        --room;
      else
        left = {rect};
    }
    rects.insert(rects.end(), left.begin(), left.end());
  }
}

CGRect boundingRect(const std::vector<CGRect>& rects) {
  CGRect around;
  for (const CGRect& rect : rects) around = around.unionWith(rect);
  return around;
}

}  // namespace vexel
