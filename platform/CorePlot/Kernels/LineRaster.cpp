#include <Kernels/LineRaster.h>
#include <Kernels/Polyline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "IntervalFill.h"
#include "LineIntervals.h"
#include "StrokeBoundary.h"

namespace vexel {

namespace {

constexpr double kMaximumWidth = 256;
/// Sampling lines per pixel. On steep pieces a pen thinner than a pixel covers too few of 8.
constexpr int kLinesOfPens = 8;
constexpr int kLinesOfThinPens = 16;
/// Points beyond are clipped first: the distance, in pixels, up to which doubles place a segment's
/// crossing of the view well.
constexpr double kFar = 1e8;

/// Turns runs of points into what the pen covers of each sampling line of a view. Slots are as
/// wide as the lines are apart; there are some more at both sides, which the pen reaches from.
class StrokeIntervals {
 public:
  StrokeIntervals(const PixelRect& view, double radius, int linesPerPixel)
      : slotsPerPixel_(linesPerPixel),
        margin_(static_cast<int>(std::ceil(radius * linesPerPixel)) + 1),
        lineCount_(view.width() * linesPerPixel),
        slotCount_(lineCount_ + 2 * margin_),
        left_(view.left - margin_ / slotsPerPixel_),
        top_(view.top),
        below_(slotCount_, 1 / slotsPerPixel_, radius),
        above_(slotCount_, 1 / slotsPerPixel_, radius),
        intervals_(lineCount_) {}

  /// The next point of the run; its x is not below that of the last one.
  void add(CGPoint devicePoint) {
    const CGPoint p = {devicePoint.x - left_, devicePoint.y - top_};
    const int slot = slotAt(p.x);
    if (count_ == 0) {
      firstSlot_ = slot;
      startSlot(slot, p);
    } else if (slot == slot_) {
      if (p.y > highest_.y) highest_ = p;
      if (p.y < lowest_.y) lowest_ = p;
      if (count_ < kExactPoints) points_[count_] = p;
      ++count_;
    } else {
      finishSlot();
      addSegment(last_, p);
      startSlot(slot, p);
    }
    last_ = p;
  }

  /// Ends the run; the next point starts another.
  void finishRun() {
    if (count_ == 0) return;
    finishSlot();
    const int first = std::clamp(firstSlot_, 0, slotCount_ - 1);
    const int last = std::clamp(slot_, 0, slotCount_ - 1);
    below_.addPens(first, last);
    above_.addPens(first, last);

    const int firstReached = std::max(first - margin_, 0);
    const int lastReached = std::min(last + margin_, slotCount_ - 1);
    const int end = std::min(lastReached, margin_ + lineCount_ - 1);
    for (int slot = std::max(firstReached, margin_); slot <= end; ++slot)
      intervals_.add(slot - margin_, -above_.at(slot), below_.at(slot));
    below_.clear(firstReached, lastReached);
    above_.clear(firstReached, lastReached);
    count_ = 0;
  }

  LineIntervals& intervals() { return intervals_; }

 private:
  static constexpr std::size_t kExactPoints = 4;

  static CGPoint mirrored(CGPoint p) { return {p.x, -p.y}; }

  /// -1 and slotCount_ stand for all places outside.
  int slotAt(double x) const {
    const double slot = x * slotsPerPixel_;
    return slot < 0 ? -1 : slot >= slotCount_ ? slotCount_ : static_cast<int>(slot);
  }

  void startSlot(int slot, CGPoint p) {
    slot_ = slot;
    highest_ = lowest_ = points_[0] = p;
    count_ = 1;
  }

  void finishSlot() {
    if (slot_ < 0 || slot_ >= slotCount_) return;
    below_.setPoint(slot_, highest_);
    above_.setPoint(slot_, mirrored(lowest_));
    if (count_ <= kExactPoints) {
      for (std::size_t i = 1; i < count_; ++i) addSegment(points_[i - 1], points_[i]);
    } else {
      below_.addSegment(points_[0], highest_);
      below_.addSegment(highest_, last_);
      above_.addSegment(mirrored(points_[0]), mirrored(lowest_));
      above_.addSegment(mirrored(lowest_), mirrored(last_));
    }
  }

  void addSegment(CGPoint a, CGPoint b) {
    below_.addSegment(a, b);
    above_.addSegment(mirrored(a), mirrored(b));
  }

  double slotsPerPixel_;
  int margin_;
  int lineCount_;
  int slotCount_;
  double left_;
  double top_;
  StrokeBoundary below_;  // towards growing y
  StrokeBoundary above_;  // the same of the curve upside down
  LineIntervals intervals_;

  // Of the slot that the last point is in.
  int slot_ = 0;
  std::size_t count_ = 0;
  CGPoint points_[kExactPoints];
  CGPoint lowest_;
  CGPoint highest_;

  int firstSlot_ = 0;
  CGPoint last_;
};

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

enum class Outcome { kAdded, kTooFar, kNotSorted };

template <class Iterator>
Outcome addAscending(Iterator begin, Iterator end, StrokeIntervals& stroke) {
  Outcome outcome = Outcome::kAdded;
  double x = -HUGE_VAL;
  for (auto point = begin; point != end; ++point) {
    if (!isFinite(*point)) {
      stroke.finishRun();
      continue;
    }
    if (point->x < x) return Outcome::kNotSorted;
    x = point->x;
    if (std::abs(x) > kFar || std::abs(point->y) > kFar) outcome = Outcome::kTooFar;
    if (outcome == Outcome::kAdded) stroke.add(*point);
  }
  stroke.finishRun();
  return outcome;
}

Outcome add(std::span<const CGPoint> points, StrokeIntervals& stroke) {
  const auto first = std::find_if(points.begin(), points.end(), isFinite);
  const auto last = std::find_if(points.rbegin(), points.rend(), isFinite);
  if (first == points.end()) return Outcome::kAdded;
  return first->x <= last->x ? addAscending(points.begin(), points.end(), stroke)
                             : addAscending(points.rbegin(), points.rend(), stroke);
}

CGRect reachOf(const PixelRect& view, double radius) {
  const double margin = radius + 2;
  return CGRect::make(view.left - margin, view.top - margin, view.width() + 2 * margin,
                      view.height() + 2 * margin);
}

}  // namespace

bool strokeSortedLine(std::span<const CGPoint> points, double width, std::uint32_t color,
                      const PixelBuffer& target, const PixelRect& clip) {
  if (!(width > 0 && width <= kMaximumWidth)) return false;
  const PixelRect view = target.clipped(clip);
  if (view.isEmpty()) return true;

  const int linesPerPixel = width < 1 ? kLinesOfThinPens : kLinesOfPens;
  StrokeIntervals stroke(view, width / 2, linesPerPixel);
  const Outcome outcome = add(points, stroke);
  if (outcome == Outcome::kNotSorted) return false;
  if (outcome == Outcome::kTooFar) {
    stroke = StrokeIntervals(view, width / 2, linesPerPixel);
    for (const auto& run : clippedRuns(points, reachOf(view, width / 2))) add(run, stroke);
  }
  stroke.intervals().finish();
  fillIntervals(stroke.intervals(), linesPerPixel, color, target, view);
  return true;
}

}  // namespace vexel
