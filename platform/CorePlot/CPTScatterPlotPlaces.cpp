#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include <CorePlot/CPTScatterPlot.h>

namespace vexel {

namespace {

// Antialiasing and stamps placed beside their centres reach this much farther, in points.
constexpr CGFloat kBlur = 1;
// Wider pens cover everything anyway, in points.
constexpr CGFloat kWidestPen = 1e5;

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

/// The rectangle around what has the given reach about two points.
CGRect rectAround(CGPoint a, CGPoint b, const CGRect& reach) {
  return CGRect::make(std::min(a.x, b.x) + reach.minX(), std::min(a.y, b.y) + reach.minY(),
                      std::abs(b.x - a.x) + reach.size.width,
                      std::abs(b.y - a.y) + reach.size.height);
}

/// Whether a clip that cuts the line leaves the pixels inside as they are: curves and the edges of
/// oblique lines come out a little different.
bool canBeCut(const std::vector<CGPoint>& points, const CPTLineStyle& style, bool isStepped) {
  if (style.lineCap == CGLineCap::round) return false;
  const auto isPoint = [&](std::size_t i) { return i < points.size() && isFinite(points[i]); };
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!isPoint(i)) continue;
    const bool isDot = !isPoint(i - 1) && !isPoint(i + 1);
    const bool isOblique = isPoint(i + 1) && points[i].x != points[i + 1].x &&
                           points[i].y != points[i + 1].y && !isStepped;
    if (isDot || isOblique) return false;
  }
  return true;
}

}  // namespace

std::optional<std::vector<CGRect>> CPTScatterPlot::seriesPlaces(const CPTXYPlotSpace& space) const {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  std::vector<CGPoint> points;
  points.reserve(recordCount());
  for (std::size_t i = 0; i < recordCount(); ++i)
    points.push_back({xScale.position(records_.x(i)), yScale.position(records_.y(i))});

  const bool isStepped = interpolation_ != CPTScatterPlotInterpolation::linear;
  if (dataLineStyle_ && !canBeCut(points, *dataLineStyle_, isStepped)) return std::nullopt;
  std::vector<CGRect> places;
  if (dataLineStyle_ && dataLineStyle_->lineWidth > 0) {
    // A square cap reaches farthest at its corners.
    const CGFloat pen =
        std::min(dataLineStyle_->lineWidth, kWidestPen) / 2 * std::numbers::sqrt2 + kBlur;
    const CGRect reach = CGRect::make(-pen, -pen, 2 * pen, 2 * pen);
    for (std::size_t i = 1; i < points.size(); ++i)
      if (isFinite(points[i - 1]) && isFinite(points[i]))
        places.push_back(rectAround(points[i - 1], points[i], reach));
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto& symbol = i < recordSymbols_.size() ? recordSymbols_[i] : plotSymbol_;
    if (symbol && isFinite(points[i]))
      places.push_back(rectAround(points[i], points[i], symbol->reach().insetBy(-kBlur, -kBlur)));
  }
  return places;
}

}  // namespace vexel
