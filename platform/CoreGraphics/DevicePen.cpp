#include "DevicePen.h"

#include <algorithm>
#include <cmath>

#include "PageArea.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// How long the unit is that becomes shortest.
CGFloat leastScale(const CGAffineTransform& t) {
  const CGFloat mean = meanScale(t);
  const CGFloat sum = std::hypot(t.a + t.d, t.b - t.c),
                difference = std::hypot(t.a - t.d, t.b + t.c);
  return mean / ((sum + difference) / 2) * mean;
}

}  // namespace

std::vector<double> usableDashes(const CGStrokeStyle& style) {
  CGFloat sum = 0;
  for (const CGFloat length : style.dashPattern) {
    if (!(length >= 0 && std::isfinite(length))) return {};
    sum += length;
  }
  if (!(sum > 0 && std::isfinite(sum))) return {};
  return style.dashPattern;
}

DevicePen devicePen(const CGStrokeStyle& style, const CGAffineTransform& t, CGFloat lengthBefore) {
  DevicePen pen;
  CGFloat unit = meanScale(t);
  const CGFloat width = std::min(style.width, kSafeReach / unit);
  if (!keepsShapes(t)) {
    unit = leastScale(t);
    const CGAffineTransform toDevice{t.a / unit, t.b / unit, t.c / unit, t.d / unit, 0, 0};
    if (!(unit > 0 && hasInverse(toDevice))) return pen;
    pen.toDevice = toDevice;
  }
  pen.width = width * unit;
  pen.dashes = usableDashes(style);
  CGFloat period = 0;
  for (double& length : pen.dashes) {
    length *= unit;
    period += 2 * length;
  }
  // Scaled to nothing or beyond all numbers.
  if (!(period > 0 && std::isfinite(period))) pen.dashes.clear();
  if (pen.dashes.empty()) return pen;
  const CGFloat phase = std::fmod((style.dashPhase + lengthBefore) * unit, period);
  if (std::isfinite(phase)) pen.dashPhase = phase;
  return pen;
}

}  // namespace vexel
