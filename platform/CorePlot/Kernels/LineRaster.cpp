#include <Kernels/LineRaster.h>
#include <Kernels/Polyline.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "IntervalFill.h"

namespace vexel {

namespace {

/// Sampling lines per pixel. On steep pieces a pen thinner than a pixel covers too few of 16.
constexpr int kLinesOfPens = 16;
constexpr int kLinesOfThinPens = 32;
/// Fewer do where thin pieces and ends are few: in a crowd of so many points in a pixel, and on
/// curves without gaps whose points are so sparse that one knows how steep they are.
constexpr int kLinesOfPlainCurves = 8;
constexpr double kCrowd = 20;

/// On flat pieces the shift of points by half of the lines' distance is hardly one in y: so many
/// lines make it a 32nd of a pixel.
constexpr double kLinesPerSlope = 16;
constexpr int kFewestLines = 4;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isNear(CGPoint p) {
  return std::abs(p.x) <= CurveHull::kFar && std::abs(p.y) <= CurveHull::kFar;
}

/// How many of the first points are near.
std::size_t nearPoints(std::span<const CGPoint> points) {
  // Most often all of them, which is quicker to find out.
  using Pair = double __attribute__((vector_size(16)));
  Pair low{}, high{}, sum{};
  for (CGPoint p : points) {
    const Pair place{p.x, p.y};
    low = place < low ? place : low;
    high = place > high ? place : high;
    sum += place;  // for what is not a number
  }
  if (isNear({low[0], low[1]}) && isNear({high[0], high[1]}) && isFinite({sum[0], sum[1]}))
    return points.size();
  return static_cast<std::size_t>(std::ranges::find_if_not(points, isNear) - points.begin());
}

int linesPerPixel(double width, const CurveShape& curve) {
  const bool isPlain = curve.pointsPerPixel >= kCrowd || std::isfinite(curve.steepest);
  int lines = width < 1 ? kLinesOfThinPens : isPlain ? kLinesOfPlainCurves : kLinesOfPens;
  while (lines > kFewestLines && 2 * curve.steepest * kLinesPerSlope <= lines) lines /= 2;
  return lines;
}

PixelRect visiblePart(const PixelBuffer& target, const PixelRect& clip) {
  const PixelRect part = target.clipped(clip);
  return part.isEmpty() ? PixelRect{} : part;
}

}  // namespace

LineRaster::LineRaster(const PixelBuffer& target, const PixelRect& clip, double width,
                       const CurveShape& curve)
    : target_(target),
      view_(visiblePart(target, clip)),
      width_(width),
      linesPerPixel_(linesPerPixel(width, curve)),
      hull_(view_, linesPerPixel_, width / 2),
      last_{kNaN, kNaN} {}

void LineRaster::add(std::span<const CGPoint> points) {
  while (!points.empty()) {
    const std::size_t near = nearPoints(points);
    if (near > 0 && (isNear(last_) || !isFinite(last_))) {
      hull_.add(points.first(near));
      last_ = points[near - 1];
      points = points.subspan(near);
    } else {
      addFar(points.front());
      points = points.subspan(1);
    }
  }
}

/// A point that is far, or follows one.
void LineRaster::addFar(CGPoint point) {
  if (!isFinite(point)) {
    finishRun();
  } else if (isFinite(last_)) {
    const CGFloat margin = width_ / 2 + 2;
    const CGRect reach = CGRect::make(view_.left, view_.top, view_.width(), view_.height())
                             .insetBy(-margin, -margin);
    const CGPoint segment[] = {last_, point};
    for (const auto& part : clippedRuns(segment, reach))
      hull_.addSegment(part.front(), part.back());
    if (isNear(point)) hull_.addSegment(point, point);
  }
  last_ = point;
}

void LineRaster::finishRun() {
  if (hull_.isEmpty()) return;
  if (!runs_) runs_.emplace(view_.width() * linesPerPixel_);
  hull_.finish([this](int line, float top, float bottom) { runs_->add(line, top, bottom); });
}

void LineRaster::draw(std::uint32_t color) {
  if (!runs_) return fillHull(hull_, linesPerPixel_, color, target_, view_);
  finishRun();
  runs_->finish();
  fillIntervals(*runs_, linesPerPixel_, color, target_, view_);
}

}  // namespace vexel
