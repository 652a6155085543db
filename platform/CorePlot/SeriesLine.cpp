#include "SeriesLine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include <Kernels/LineRaster.h>
#include <Kernels/Polyline.h>
#include <Kernels/ScaleMap.h>

namespace vexel {

namespace {

// Records that lie closer to each other are replaced by their lowest and highest, in points of a
// path and in pixels.
constexpr double kNarrow = 1.0 / 16;
// So many records in a narrow part, on average, are worth replacing.
constexpr double kWorthReplacing = 6;
// A step is late by as much as that: an error that a line between the extremes does not make.
constexpr double kNarrowSteps = kNarrow / 4;
// No point that a thinned line leaves out was farther from it than this, in points.
constexpr CGFloat kLineTolerance = 0.02;
// The drawing library's time for one stroke grows faster than its length.
constexpr std::size_t kPointsPerStroke = 1000;
// Wider pens cover everything anyway, in points.
constexpr CGFloat kWidestPen = 1e4;
// In a pixel of width, on average, where it is worth looking how steep a line is.
constexpr double kFewRecords = 2;
// In pixels.
constexpr double kLongLine = 100;
// The ends of a pen look alike up to this width, in pixels.
constexpr CGFloat kPlainPen = 3;
// Of longer series all ends are round on bitmaps.
constexpr std::size_t kRecordsWithCaps = 1000;
// Of a dashed line, in one point of the plot area's width. Dashes among more records would be
// unreadable: the line is drawn solid.
constexpr double kMostDashedRecords = 2;

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

/// Gives the corners of a line through records, some at a time.
template <class Add>
class Corners {
 public:
  Corners(const ScaleMap& x, const ScaleMap& y, CPTScatterPlotInterpolation interpolation, Add& add)
      : x_(x), y_(y), interpolation_(interpolation), add_(add) {}

  void add(double x, double y) { add({x_(x), y_(y)}); }
  void add(std::span<const double> x, std::span<const double> y) {
    std::array<double, RangeIndex::kMostAtOnce> left, down;
    x_(x, left.data());
    y_(y, down.data());
    if (interpolation_ != CPTScatterPlotInterpolation::linear) {
      for (std::size_t i = 0; i < x.size(); ++i) add({left[i], down[i]});
      return;
    }
    finish();
    for (std::size_t i = 0; i < x.size(); ++i) some_[i] = {left[i], down[i]};
    add_(std::span<const CGPoint>(some_.data(), x.size()));
  }

  void finish() { add_(std::span<const CGPoint>(some_.data(), std::exchange(count_, 0))); }

 private:
  void add(CGPoint b) {
    if (interpolation_ != CPTScatterPlotInterpolation::linear && isFinite(last_) && isFinite(b)) {
      const bool isHalfWay = interpolation_ == CPTScatterPlotInterpolation::histogram;
      const CGFloat turn = isHalfWay ? last_.x / 2 + b.x / 2 : b.x;
      give({turn, last_.y});
      give({turn, b.y});
    }
    give(b);
    last_ = b;
  }

  void give(CGPoint corner) {
    some_[count_++] = corner;
    if (count_ == some_.size()) finish();
  }

  ScaleMap x_;
  ScaleMap y_;
  CPTScatterPlotInterpolation interpolation_;
  Add& add_;
  std::array<CGPoint, RangeIndex::kMostAtOnce> some_;
  std::size_t count_ = 0;
  CGPoint last_{std::nan(""), std::nan("")};
};

bool isSorted(const RangeIndex& records) {
  return records.isAscending() || records.isDescending();
}

/// The records that a pen of that width shows something of, the first and the one behind the last.
std::pair<std::size_t, std::size_t> visibleRecords(const SeriesLine& line, CGFloat pen) {
  return line.records.samplesBetween(line.xScale.value(-pen),
                                     line.xScale.value(line.xScale.extent + pen));
}

/// Gives the corners of the line between the records, mapped by `transform`, which keeps axes.
/// Sorted records that lie closer together than `narrow` there are replaced by their extremes.
template <class Add>
void forCorners(const SeriesLine& line, std::pair<std::size_t, std::size_t> records,
                const CGAffineTransform& transform, double narrow, Add&& add) {
  const bool isLogarithmic = line.xScale.logarithmic;
  const double step = line.records.isAscending() == (line.xScale.length > 0) ? narrow : -narrow;
  const double part = step / (line.xScale.extent * std::abs(transform.a));
  const double width = isLogarithmic
                           ? line.xScale.value(part * line.xScale.extent) / line.xScale.location
                           : part * line.xScale.length;
  const auto narrowEnd = [=](double from) { return isLogarithmic ? from * width : from + width; };
  const double floor = line.yScale.logarithmic ? 0 : -std::numeric_limits<double>::infinity();
  Corners corners(ScaleMap(line.xScale, transform.a, transform.tx),
                  ScaleMap(line.yScale, transform.d, transform.ty), line.interpolation, add);
  const auto visit = [&](const auto& x, const auto& y) { corners.add(x, y); };
  const auto count = static_cast<double>(records.second - records.first);
  if (isSorted(line.records) && count * std::abs(part) >= kWorthReplacing)
    line.records.visitOutline(records.first, records.second, floor, narrowEnd, visit);
  else
    line.records.visit(records.first, records.second, visit);
  corners.finish();
}

double narrowPart(const SeriesLine& line) {
  return line.interpolation == CPTScatterPlotInterpolation::linear ? kNarrow : kNarrowSteps;
}

/// Of the line between the records, in the coordinates of the transform. How steep it is is looked
/// up where it has few records, no gaps, and is not so short that its ends matter.
CurveShape shapeOf(const SeriesLine& line, std::pair<std::size_t, std::size_t> records,
                   const CGAffineTransform& transform) {
  const auto count = static_cast<double>(records.second - records.first);
  // The same for every part of a picture, however small.
  CurveShape shape{.pointsPerPixel = count / (line.xScale.extent * std::abs(transform.a))};
  if (count < 2 || shape.pointsPerPixel > kFewRecords) return shape;
  double steepest = 0;
  bool isPlain = true;
  std::optional<CGPoint> first, last;
  forCorners(line, records, transform, 0, [&](std::span<const CGPoint> corners) {
    for (const CGPoint corner : corners) {
      if (last) {
        const double slope = std::abs((corner.y - last->y) / (corner.x - last->x));
        // Gaps and equal records have none.
        if (!std::isfinite(slope)) isPlain = false;
        steepest = std::max(steepest, slope);
      }
      if (!first) first = corner;
      last = corner;
    }
  });
  if (isPlain && std::abs(last->x - first->x) >= kLongLine) shape.steepest = steepest;
  return shape;
}

/// False, and nothing is drawn, where the line needs a path.
bool strokeOnPixels(CGContext& context, const SeriesLine& line, const CGStrokeStyle& style) {
  if (!style.dashPattern.empty() || !isSorted(line.records)) return false;
  bool isDrawn = false;
  context.drawOnPixels([&](const CGPixels& pixels) {
    const CGAffineTransform& t = pixels.toPixels;
    if (t.b != 0 || t.c != 0 || std::abs(t.a) != std::abs(t.d)) return;
    const CGFloat width = style.width * std::abs(t.a);
    if (width > kPlainPen && style.cap != CGLineCap::round &&
        line.records.count() <= kRecordsWithCaps)
      return;
    if (width > LineRaster::kMaximumWidth) return;
    const auto records = visibleRecords(line, style.width);
    LineRaster raster(pixels.buffer, pixels.clip, width, shapeOf(line, records, t));
    forCorners(line, records, t, narrowPart(line),
               [&](std::span<const CGPoint> corners) { raster.add(corners); });
    raster.draw(premultipliedPixel(style.color));
    isDrawn = true;
  });
  return isDrawn;
}

void strokePart(CGContext& context, std::span<const CGPoint> points, const CGStrokeStyle& style) {
  CGMutablePath path;
  path.addLines(points);
  context.stroke(path, style);
}

/// The line, as many points longer at both ends as a square cap is.
std::vector<CGPoint> withSquareEnds(std::vector<CGPoint> run, CGFloat width) {
  const auto extend = [width](CGPoint& end, CGPoint next) {
    const CGFloat length = std::hypot(end.x - next.x, end.y - next.y);
    const CGFloat factor = length > 0 ? width / 2 / length : 0;
    end = {end.x + factor * (end.x - next.x), end.y + factor * (end.y - next.y)};
  };
  extend(run.front(), run[1]);
  extend(run.back(), run[run.size() - 2]);
  return run;
}

/// Strokes a long opaque line part by part. The parts between the first and the last have round
/// caps, which join them unseen; the outer ones end as the style says.
void strokeInParts(CGContext& context, std::vector<CGPoint> run, CGStrokeStyle style) {
  if (style.cap == CGLineCap::square) {
    run = withSquareEnds(std::move(run), style.width);
    style.cap = CGLineCap::butt;
  }
  const std::size_t segments = run.size() - 1;
  const std::size_t parts =
      std::max<std::size_t>(3, (segments + kPointsPerStroke - 2) / (kPointsPerStroke - 1));
  const CGLineCap outerCap = style.cap;
  for (std::size_t part = 0; part < parts; ++part) {
    const std::size_t first = part * segments / parts;
    const std::size_t last = (part + 1) * segments / parts;
    const bool isOuter = part == 0 || part + 1 == parts;
    style.cap = isOuter ? outerCap : CGLineCap::round;
    strokePart(context, std::span(run).subspan(first, last - first + 1), style);
  }
}

void strokeRun(CGContext& context, const std::vector<CGPoint>& run, const CGStrokeStyle& style) {
  if (run.size() == 1) {
    CGMutablePath dot;
    const CGFloat radius = style.width / 2;
    dot.addEllipse(CGRect::make(run[0].x - radius, run[0].y - radius, style.width, style.width));
    context.fill(dot, style.color);
    return;
  }
  // A translucent line would darken where parts overlap, and a pattern would begin anew.
  const bool divisible = style.color.alpha() >= 1 && style.dashPattern.empty();
  if (divisible && run.size() > kPointsPerStroke)
    strokeInParts(context, run, style);
  else
    strokePart(context, run, style);
}

void strokePath(CGContext& context, const SeriesLine& line, CGStrokeStyle style) {
  const auto records = visibleRecords(line, style.width);
  const auto count = static_cast<double>(records.second - records.first);
  if (isSorted(line.records) && count > kMostDashedRecords * line.xScale.extent)
    style.dashPattern.clear();
  // A pattern goes by the length of the line through every record.
  const double narrow = style.dashPattern.empty() ? narrowPart(line) : 0;
  std::vector<CGPoint> corners;
  forCorners(line, records, {}, narrow, [&](std::span<const CGPoint> some) {
    corners.insert(corners.end(), some.begin(), some.end());
  });
  const CGRect area = CGRect::make(0, 0, line.xScale.extent, line.yScale.extent);
  for (auto& run : clippedRuns(corners, area.insetBy(-style.width, -style.width))) {
    thinRun(run, kLineTolerance);
    strokeRun(context, run, style);
  }
}

}  // namespace

void drawSeriesLine(CGContext& context, const SeriesLine& line, CGStrokeStyle style) {
  if (!(style.width > 0 && std::isfinite(style.width))) return;
  style.width = std::min(style.width, kWidestPen);
  style.join = CGLineJoin::round;
  if (!strokeOnPixels(context, line, style)) strokePath(context, line, std::move(style));
}

}  // namespace vexel
