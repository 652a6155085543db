#include <Kernels/Polyline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace vexel {

namespace {

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

constexpr unsigned kLeft = 1, kRight = 2, kBelow = 4, kAbove = 8;

unsigned sidesOutside(CGPoint p, const CGRect& box) {
  return (p.x < box.minX() ? kLeft : 0) | (p.x > box.maxX() ? kRight : 0) |
         (p.y < box.minY() ? kBelow : 0) | (p.y > box.maxY() ? kAbove : 0);
}

/// a * b - c * d with one rounding's error, however much the products cancel.
double differenceOfProducts(double a, double b, double c, double d) {
  const double product = c * d;
  return std::fma(a, b, -product) + std::fma(-c, d, product);
}

/// The line through two points, as y * dx = x * dy - offset: unlike a point and a step along the
/// line this keeps the digits near the origin when both points are far away.
class Line {
 public:
  Line(CGPoint a, CGPoint b) {
    const double largest = std::max({std::abs(a.x), std::abs(a.y), std::abs(b.x), std::abs(b.y)});
    scale_ = largest > 0x1p500 ? 0x1p-600 : 1;
    a = {a.x * scale_, a.y * scale_};
    b = {b.x * scale_, b.y * scale_};
    dx_ = b.x - a.x;
    dy_ = b.y - a.y;
    offset_ = differenceOfProducts(a.x, b.y, b.x, a.y);
  }

  double yAt(double x) const { return (x * scale_ * dy_ - offset_) / dx_ / scale_; }
  double xAt(double y) const { return (y * scale_ * dx_ + offset_) / dy_ / scale_; }

 private:
  double scale_, dx_, dy_, offset_;
};

/// Between a and b also when the value is NaN.
double clampedBetween(double value, double a, double b) {
  return std::min(std::max(std::min(a, b), value), std::max(a, b));
}

/// Moves the ends of a segment onto the box; false when nothing of it is inside.
bool clip(CGPoint& a, CGPoint& b, const CGRect& box) {
  unsigned outsideA = sidesOutside(a, box);
  unsigned outsideB = sidesOutside(b, box);
  if ((outsideA | outsideB) == 0) return true;
  if ((outsideA & outsideB) != 0) return false;

  const Line line(a, b);
  while ((outsideA | outsideB) != 0) {
    if ((outsideA & outsideB) != 0) return false;
    const bool movesA = outsideA != 0;
    CGPoint& end = movesA ? a : b;
    unsigned& outside = movesA ? outsideA : outsideB;
    // Kept between the ends, so that no rounding can put it outside an edge that is done.
    if ((outside & (kLeft | kRight)) != 0) {
      const double x = (outside & kLeft) != 0 ? box.minX() : box.maxX();
      end = {x, clampedBetween(line.yAt(x), a.y, b.y)};
    } else {
      const double y = (outside & kBelow) != 0 ? box.minY() : box.maxY();
      end = {clampedBetween(line.xAt(y), a.x, b.x), y};
    }
    outside = sidesOutside(end, box);
  }
  return true;
}

/// Appends what is inside of a line through finite points.
void appendRuns(std::vector<std::vector<CGPoint>>& runs, std::span<const CGPoint> points,
                const CGRect& box) {
  const bool isDot =
      std::all_of(points.begin(), points.end(), [&](CGPoint p) { return p == points.front(); });
  if (isDot) {
    if (sidesOutside(points.front(), box) == 0) runs.push_back({points.front()});
    return;
  }
  bool continues = false;
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (points[i] == points[i - 1]) continue;
    CGPoint a = points[i - 1];
    CGPoint b = points[i];
    if (!clip(a, b, box) || a == b) {
      continues = false;
      continue;
    }
    if (!continues || a != points[i - 1]) runs.push_back({a});
    runs.back().push_back(b);
    continues = b == points[i];
  }
}

struct Vector {
  double x, y;
};

double cross(Vector a, Vector b) {
  return a.x * b.y - a.y * b.x;
}

}  // namespace

std::vector<std::vector<CGPoint>> clippedRuns(std::span<const CGPoint> points, const CGRect& box) {
  if (box.isEmpty() || !isFinite(box.origin)) return {};
  std::vector<std::vector<CGPoint>> runs;
  auto rest = points.begin();
  while (true) {
    const auto first = std::find_if(rest, points.end(), isFinite);
    if (first == points.end()) return runs;
    rest = std::find_if_not(first, points.end(), isFinite);
    appendRuns(runs, {first, rest}, box);
  }
}

void thinRun(std::vector<CGPoint>& run, double tolerance) {
  if (run.size() < 3 || !(tolerance > 0)) return;

  // Of the points since the last kept one, those beyond the tolerance each leave a cone of
  // directions that pass close enough; the line may be drawn straight to any later point that is
  // in all the cones and not nearer than they are.
  std::size_t kept = 1;
  CGPoint anchor = run[0];
  CGPoint previous = run[0];
  double farthest = 0;
  Vector right{}, left{};

  for (std::size_t i = 1; i < run.size(); ++i) {
    const CGPoint point = run[i];
    if (i > 1) {
      const Vector toPoint = {point.x - anchor.x, point.y - anchor.y};
      const bool isReachable =
          farthest <= tolerance || (std::hypot(toPoint.x, toPoint.y) >= farthest &&
                                    cross(right, toPoint) >= 0 && cross(toPoint, left) >= 0);
      if (!isReachable) {
        anchor = previous;
        run[kept++] = anchor;
        farthest = 0;
      }
    }
    const Vector v = {point.x - anchor.x, point.y - anchor.y};
    const double distance = std::hypot(v.x, v.y);
    if (!(distance <= tolerance)) {
      const double sine = tolerance / distance;
      const double cosine = std::sqrt((1 - sine) * (1 + sine));
      const Vector newRight = {v.x * cosine + v.y * sine, v.y * cosine - v.x * sine};
      const Vector newLeft = {v.x * cosine - v.y * sine, v.y * cosine + v.x * sine};
      const bool isFirst = farthest <= tolerance;
      if (isFirst || cross(right, newRight) > 0) right = newRight;
      if (isFirst || cross(left, newLeft) < 0) left = newLeft;
      farthest = distance;
    }
    previous = point;
  }
  run[kept++] = previous;
  run.resize(kept);
}

}  // namespace vexel
