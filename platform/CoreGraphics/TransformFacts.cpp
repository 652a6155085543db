#include "TransformFacts.h"

#include <algorithm>
#include <cmath>

namespace vexel {

namespace {

// A quarter turn leaves 6e-17 where 0 should stand.
constexpr CGFloat kRoundingError = 1e-12;

CGFloat determinant(const CGAffineTransform& t) {
  return t.a * t.d - t.b * t.c;
}

// Whether |a| and |b| are nothing beside |c| and |d|.
bool areNothing(CGFloat a, CGFloat b, CGFloat c, CGFloat d) {
  const CGFloat limit = kRoundingError * std::min(std::abs(c), std::abs(d));
  return std::abs(a) <= limit && std::abs(b) <= limit;
}

}  // namespace

bool hasInverse(const CGAffineTransform& t) {
  const CGFloat d = determinant(t);
  return d != 0 && std::isfinite(d) && std::isfinite(1 / d) && std::isfinite(t.tx) &&
         std::isfinite(t.ty);
}

CGFloat meanScale(const CGAffineTransform& t) {
  return std::sqrt(std::abs(determinant(t)));
}

bool keepsShapes(const CGAffineTransform& t) {
  const CGFloat area = std::abs(determinant(t));
  const auto isNothing = [&](CGFloat v) { return std::abs(v) <= kRoundingError * area; };
  return isNothing(t.a * t.a + t.b * t.b - area) && isNothing(t.c * t.c + t.d * t.d - area);
}

bool keepsAxes(const CGAffineTransform& t) {
  return areNothing(t.b, t.c, t.a, t.d);
}

bool swapsAxes(const CGAffineTransform& t) {
  return areNothing(t.a, t.d, t.b, t.c);
}

}  // namespace vexel
