#include <CoreGraphics/CGPath.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {

namespace {

using Type = CGPathElement::Type;

// Distance of the control points of a quarter circle of radius 1 from its ends.
constexpr CGFloat kQuarterCircle = 0.5522847498307936;

constexpr std::size_t kElementsOfRect = 5;

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

}  // namespace

CGRect CGPath::boundingBox() const {
  constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
  CGPoint low{kInfinity, kInfinity}, high{-kInfinity, -kInfinity};
  const auto include = [&](CGPoint p) {
    if (!isFinite(p)) return;
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  };
  for (const CGPathElement& element : elements_) {
    if (element.type == Type::close) continue;
    include(element.point);
    if (element.type != Type::curve) continue;
    include(element.control1);
    include(element.control2);
  }
  if (low.x > high.x) return {};
  return {low, {high.x - low.x, high.y - low.y}};
}

CGPath CGPath::transformed(const CGAffineTransform& transform) const {
  CGPath result = *this;
  for (CGPathElement& element : result.elements_) {
    if (element.type == Type::close) continue;
    element.point = transform.apply(element.point);
    if (element.type != Type::curve) continue;
    element.control1 = transform.apply(element.control1);
    element.control2 = transform.apply(element.control2);
  }
  return result;
}

void CGMutablePath::move(CGPoint to) {
  elements_.push_back({Type::move, to, {}, {}});
}

void CGMutablePath::addLine(CGPoint to) {
  if (elements_.empty()) return move(to);
  elements_.push_back({Type::line, to, {}, {}});
}

void CGMutablePath::addCurve(CGPoint to, CGPoint control1, CGPoint control2) {
  if (elements_.empty()) move(control1);
  elements_.push_back({Type::curve, to, control1, control2});
}

void CGMutablePath::addLines(std::span<const CGPoint> points) {
  if (points.empty()) return;
  elements_.reserve(elements_.size() + points.size());
  move(points.front());
  for (const CGPoint p : points.subspan(1)) addLine(p);
}

void CGMutablePath::addRect(const CGRect& rect) {
  if (elements_.empty()) elements_.reserve(kElementsOfRect);
  move({rect.minX(), rect.minY()});
  addLine({rect.maxX(), rect.minY()});
  addLine({rect.maxX(), rect.maxY()});
  addLine({rect.minX(), rect.maxY()});
  closeSubpath();
}

void CGMutablePath::addRoundedRect(const CGRect& rect, CGFloat cornerRadius) {
  const CGFloat r = std::min(cornerRadius, std::min(rect.size.width, rect.size.height) / 2);
  if (!(r > 0)) return addRect(rect);
  const CGFloat left = rect.minX(), right = rect.maxX(), bottom = rect.minY(), top = rect.maxY();
  const CGFloat k = r * (1 - kQuarterCircle);
  move({left + r, bottom});
  addLine({right - r, bottom});
  addCurve({right, bottom + r}, {right - k, bottom}, {right, bottom + k});
  addLine({right, top - r});
  addCurve({right - r, top}, {right, top - k}, {right - k, top});
  addLine({left + r, top});
  addCurve({left, top - r}, {left + k, top}, {left, top - k});
  addLine({left, bottom + r});
  addCurve({left + r, bottom}, {left, bottom + k}, {left + k, bottom});
  closeSubpath();
}

void CGMutablePath::addEllipse(const CGRect& inRect) {
  const CGFloat x = inRect.midX(), y = inRect.midY();
  const CGFloat rx = inRect.size.width / 2, ry = inRect.size.height / 2;
  const CGFloat kx = rx * kQuarterCircle, ky = ry * kQuarterCircle;
  move({x + rx, y});
  addCurve({x, y + ry}, {x + rx, y + ky}, {x + kx, y + ry});
  addCurve({x - rx, y}, {x - kx, y + ry}, {x - rx, y + ky});
  addCurve({x, y - ry}, {x - rx, y - ky}, {x - kx, y - ry});
  addCurve({x + rx, y}, {x + kx, y - ry}, {x + rx, y - ky});
  closeSubpath();
}

void CGMutablePath::addPath(const CGPath& path) {
  // A copy, because a path may be added to itself.
  const std::vector<CGPathElement> added(path.elements().begin(), path.elements().end());
  elements_.insert(elements_.end(), added.begin(), added.end());
}

void CGMutablePath::closeSubpath() {
  if (!elements_.empty() && elements_.back().type != Type::close)
    elements_.push_back({Type::close, {}, {}, {}});
}

}  // namespace vexel
