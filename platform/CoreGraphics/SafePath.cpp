#include "SafePath.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vexel {

namespace {

using Type = CGPathElement::Type;

// Enough to bring 1e30 down to the size of a pixel near the box; halving goes on only there.
constexpr int kMaximumSubdivision = 120;
constexpr CGFloat kFlatness = 0.01;

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isFinite(const CGPathElement& e) {
  return e.type == Type::close ||
         (isFinite(e.point) &&
          (e.type != Type::curve || (isFinite(e.control1) && isFinite(e.control2))));
}

CGPoint middle(CGPoint a, CGPoint b) {
  return {a.x / 2 + b.x / 2, a.y / 2 + b.y / 2};
}

CGFloat distance(CGPoint a, CGPoint b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

struct Curve {
  CGPoint p0, p1, p2, p3;
};

bool misses(const Curve& c, const CGRect& box) {
  const auto [lowX, highX] = std::minmax({c.p0.x, c.p1.x, c.p2.x, c.p3.x});
  const auto [lowY, highY] = std::minmax({c.p0.y, c.p1.y, c.p2.y, c.p3.y});
  return highX < box.minX() || lowX > box.maxX() || highY < box.minY() || lowY > box.maxY();
}

// Control points near the thirds of the chord: the curve leaves it by no more than they do.
bool isFlat(const Curve& c) {
  const auto away = [&](CGPoint control, CGFloat t) {
    return std::max(std::abs(control.x - (c.p0.x + t * (c.p3.x - c.p0.x))),
                    std::abs(control.y - (c.p0.y + t * (c.p3.y - c.p0.y))));
  };
  return away(c.p1, 1 / 3.0) <= kFlatness && away(c.p2, 2 / 3.0) <= kFlatness;
}

void addFlattened(const Curve& c, const CGRect& box, int depth, CGMutablePath& result) {
  if (depth == 0 || misses(c, box) || isFlat(c)) return result.addLine(c.p3);
  const CGPoint a = middle(c.p0, c.p1), b = middle(c.p1, c.p2), d = middle(c.p2, c.p3);
  const CGPoint ab = middle(a, b), bd = middle(b, d), centre = middle(ab, bd);
  addFlattened({c.p0, a, ab, centre}, box, depth - 1, result);
  addFlattened({centre, bd, d, c.p3}, box, depth - 1, result);
}

// Calls onLine(from, to) for each line that a stroke draws, onMove() where a subpath begins or a
// line is left out, and onClose(whole) at the end of a closed subpath, whole when it lacks no line.
template <class Move, class Line, class Close>
void walk(const CGPath& path, Move onMove, Line onLine, Close onClose) {
  CGPoint start, current;
  bool whole = true;
  const auto line = [&](CGPoint to) {
    if (isFinite(current) && isFinite(to)) return onLine(current, to);
    whole = false;
    onMove();
  };
  for (const CGPathElement& element : path.elements()) {
    switch (element.type) {
      case Type::move:
        start = element.point;
        whole = true;
        onMove();
        break;
      case Type::line:
        line(element.point);
        break;
      case Type::curve:
        whole = false;
        onMove();
        break;
      case Type::close:
        line(start);
        onClose(whole);
        whole = true;
        break;
    }
    current = element.type == Type::close ? start : element.point;
  }
}

// The sides of a box as functions that say how far inside them a point is, negative outside.
template <class Use>
bool forEachSide(const CGRect& box, Use use) {
  return use([&](CGPoint p) { return p.x - box.minX(); }) &&
         use([&](CGPoint p) { return box.maxX() - p.x; }) &&
         use([&](CGPoint p) { return p.y - box.minY(); }) &&
         use([&](CGPoint p) { return box.maxY() - p.y; });
}

// Where the line from a point inside of a side to one outside crosses it. Counted from the inner
// one, so that an outer one at 1e300 does not swallow its digits.
template <class Side>
CGPoint crossing(CGPoint inner, CGPoint outer, Side side) {
  const CGFloat a = side(inner), b = side(outer);
  const CGFloat t = a / 2 / (a / 2 - b / 2);
  return {inner.x * (1 - t) + outer.x * t, inner.y * (1 - t) + outer.y * t};
}

CGPoint broughtInside(CGPoint p, const CGRect& box) {
  return {std::clamp(p.x, box.minX(), box.maxX()), std::clamp(p.y, box.minY(), box.maxY())};
}

// Shortens a line to its part inside the box; false when there is none.
bool cutLine(CGPoint& from, CGPoint& to, const CGRect& box) {
  const bool isSeen = forEachSide(box, [&](auto side) {
    const bool startsOutside = side(from) < 0, endsOutside = side(to) < 0;
    if (startsOutside && endsOutside) return false;
    if (startsOutside) from = crossing(to, from, side);
    if (endsOutside) to = crossing(from, to, side);
    return true;
  });
  from = broughtInside(from, box);
  to = broughtInside(to, box);
  return isSeen;
}

std::vector<CGPoint> cutPolygon(std::vector<CGPoint> polygon, const CGRect& box) {
  forEachSide(box, [&](auto side) {
    std::vector<CGPoint> rest;
    rest.reserve(polygon.size() + 4);
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      const CGPoint a = polygon[i], b = polygon[(i + 1) % polygon.size()];
      const bool startsInside = side(a) >= 0, endsInside = side(b) >= 0;
      if (startsInside) rest.push_back(a);
      if (startsInside && !endsInside) rest.push_back(crossing(a, b, side));
      if (!startsInside && endsInside) rest.push_back(crossing(b, a, side));
    }
    polygon = std::move(rest);
    return true;
  });
  for (CGPoint& p : polygon) p = broughtInside(p, box);
  return polygon;
}

}  // namespace

bool liesInside(const CGPath& path, const CGRect& box) {
  return std::ranges::all_of(path.elements(), [&](const CGPathElement& e) {
    if (e.type == Type::close) return true;
    // A comparison with NaN is false.
    if (!box.contains(e.point)) return false;
    return e.type != Type::curve || (box.contains(e.control1) && box.contains(e.control2));
  });
}

CGPath flattenedInside(const CGPath& path, const CGRect& box) {
  CGMutablePath result;
  CGPoint start, current;
  for (const CGPathElement& e : path.elements()) {
    switch (e.type) {
      case Type::move:
        result.move(e.point);
        start = e.point;
        break;
      case Type::line:
        result.addLine(e.point);
        break;
      case Type::curve:
        if (isFinite(current) && isFinite(e))
          addFlattened({current, e.control1, e.control2, e.point}, box, kMaximumSubdivision,
                       result);
        else
          result.addCurve(e.point, e.control1, e.control2);
        break;
      case Type::close:
        result.closeSubpath();
        break;
    }
    current = e.type == Type::close ? start : e.point;
  }
  return result;
}

std::vector<ClippedPiece> clippedPieces(const CGPath& path, const CGRect& box) {
  std::vector<ClippedPiece> pieces;
  CGMutablePath piece;
  CGFloat length = 0, lengthBefore = 0;
  bool cut = false;
  const auto finish = [&] {
    if (!piece.isEmpty()) pieces.push_back({piece, lengthBefore});
    piece = CGMutablePath();
  };
  const auto begin = [&] {
    finish();
    length = 0;
    cut = false;
  };
  const auto addLine = [&](CGPoint from, CGPoint to) {
    CGPoint first = from, last = to;
    const bool isSeen = cutLine(first, last, box);
    if (!isSeen || first != from) finish();
    if (isSeen) {
      if (piece.isEmpty()) {
        piece.move(first);
        lengthBefore = length + distance(from, first);
      }
      piece.addLine(last);
      if (last != to) finish();
    }
    cut = cut || !isSeen || first != from || last != to;
    length += distance(from, to);
  };
  walk(path, begin, addLine, [&](bool whole) {
    if (whole && !cut) piece.closeSubpath();
    begin();
  });
  finish();
  return pieces;
}

CGPath clippedLines(const CGPath& path, const CGRect& box) {
  CGMutablePath result;
  for (const ClippedPiece& piece : clippedPieces(path, box)) result.addPath(piece.path);
  return result;
}

CGPath clippedPolygons(const CGPath& path, const CGRect& box) {
  CGMutablePath result;
  std::vector<CGPoint> polygon;
  const auto finish = [&] {
    polygon = cutPolygon(std::move(polygon), box);
    if (polygon.size() > 2) {
      result.addLines(polygon);
      result.closeSubpath();
    }
    polygon.clear();
  };
  const auto addLine = [&](CGPoint from, CGPoint to) {
    if (polygon.empty()) polygon.push_back(from);
    polygon.push_back(to);
  };
  walk(path, finish, addLine, [&](bool) { finish(); });
  finish();
  return result;
}

}  // namespace vexel
