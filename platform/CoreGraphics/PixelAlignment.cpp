#include "PixelAlignment.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vexel {

namespace {

using Type = CGPathElement::Type;

// Coordinates that should be equal differ by rounding errors; on the edge of a pixel these must
// not decide. Far below what can be seen.
constexpr CGFloat kRoundingError = 1e-4;
// And a line that is this much short of an edge, in pixels, stands with those that are on it: axes
// of a frame are inset by traces.
constexpr CGFloat kTrace = 1.0 / 128;

// What the lines through a point of a path demand of it.
struct Corner {
  CGPoint place;
  bool onVertical = false;
  bool onHorizontal = false;
  int lines = 0;
};

// The corners of all subpaths, or none when some line is neither horizontal nor vertical.
class Corners {
 public:
  explicit Corners(const CGPath& path) {
    std::size_t first = 0;
    for (const CGPathElement& element : path.elements()) {
      switch (element.type) {
        case Type::curve:
          fits_ = false;
          return;
        case Type::move:
          first = corners_.size();
          corners_.push_back({element.point});
          break;
        case Type::line:
          corners_.push_back({element.point});
          join(corners_.size() - 2, corners_.size() - 1);
          break;
        case Type::close:
          // The line back, if any, ends in the first corner; a line that goes on starts there.
          join(corners_.size() - 1, first);
          corners_.push_back(corners_[first]);
          break;
      }
      if (!fits_) return;
    }
  }

  bool fit() const { return fits_; }
  const std::vector<Corner>& all() const { return corners_; }

 private:
  void join(std::size_t from, std::size_t to) {
    Corner& a = corners_[from];
    Corner& b = corners_[to];
    const CGFloat dx = std::abs(a.place.x - b.place.x), dy = std::abs(a.place.y - b.place.y);
    const bool isVertical = dx <= kRoundingError, isHorizontal = dy <= kRoundingError;
    if (!isVertical && !isHorizontal) fits_ = false;
    if (isVertical && isHorizontal) {
      // The same place twice, as where a rectangle closes: one corner.
      a.onVertical = b.onVertical = a.onVertical || b.onVertical;
      a.onHorizontal = b.onHorizontal = a.onHorizontal || b.onHorizontal;
    }
    for (Corner* corner : {&a, &b}) {
      ++corner->lines;
      if (isVertical && !isHorizontal) corner->onVertical = true;
      if (isHorizontal && !isVertical) corner->onHorizontal = true;
    }
  }

  std::vector<Corner> corners_;
  bool fits_ = true;
};

}  // namespace

CGFloat nearestPixelEdge(CGFloat coordinate) {
  return std::floor(coordinate + 0.5 + kTrace);
}

CGFloat alignedLineMiddle(CGFloat coordinate, CGFloat width, CGFloat low, CGFloat high) {
  const CGFloat whole = std::round(std::max(width, 1.0));
  const bool isOdd = std::fmod(whole, 2) == 1;
  const CGFloat middle =
      isOdd ? std::floor(coordinate + kTrace) + 0.5 : nearestPixelEdge(coordinate);
  const bool isOnSurface =
      coordinate >= low - kRoundingError && coordinate <= high + kRoundingError;
  if (!isOnSurface || whole > high - low) return middle;
  return std::clamp(middle, low + whole / 2, high - whole / 2);
}

CGPath alignedToPixels(const CGPath& path, CGFloat width, CGLineCap cap, const CGRect& surface) {
  const Corners corners(path);
  if (!corners.fit()) return path;
  const auto x = [&](CGFloat v) {
    return alignedLineMiddle(v, width, surface.minX(), surface.maxX());
  };
  const auto y = [&](CGFloat v) {
    return alignedLineMiddle(v, width, surface.minY(), surface.maxY());
  };
  const auto aligned = [&](const Corner& corner) {
    const bool isButtEnd = corner.lines == 1 && cap == CGLineCap::butt;
    const bool isSquareEnd = corner.lines == 1 && cap == CGLineCap::square;
    CGPoint p = corner.place;
    if (corner.onVertical || (corner.onHorizontal && isSquareEnd))
      p.x = x(p.x);
    else if (corner.onHorizontal && isButtEnd)
      p.x = nearestPixelEdge(p.x);
    if (corner.onHorizontal || (corner.onVertical && isSquareEnd))
      p.y = y(p.y);
    else if (corner.onVertical && isButtEnd)
      p.y = nearestPixelEdge(p.y);
    return p;
  };

  CGMutablePath result;
  std::size_t next = 0;
  for (const CGPathElement& element : path.elements()) {
    const CGPoint p = aligned(corners.all()[next++]);
    if (element.type == Type::move) result.move(p);
    if (element.type == Type::line) result.addLine(p);
    if (element.type == Type::close) result.closeSubpath();
  }
  return result;
}

}  // namespace vexel
