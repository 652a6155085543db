#include <Kernels/LineRaster.h>
#include <Kernels/Polyline.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

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
      : radius_(radius),
        slotsPerPixel_(linesPerPixel),
        margin_(static_cast<int>(std::ceil(radius * linesPerPixel)) + 1),
        lineCount_(view.width() * linesPerPixel),
        slotCount_(lineCount_ + 2 * margin_),
        left_(view.left - margin_ / slotsPerPixel_),
        top_(view.top),
        below_(slotCount_, linesPerPixel, radius),
        above_(slotCount_, linesPerPixel, radius),
        intervals_(lineCount_) {}

  /// Goes on with the run by the points that are in one slot, the first of which is near and not
  /// left of the last one. Stops at the first point that is in another slot, far, not finite or
  /// out of order.
  template <class Iterator>
  Iterator addSlot(Iterator begin, Iterator end) {
    const int slot = slotAt(begin->x);
    const double slotEnd = slot < slotCount_ ? left_ + (slot + 1) / slotsPerPixel_ : kFar;
    double x = begin->x;
    double low = begin->y;
    double high = begin->y;
    Iterator lowest = begin;
    Iterator highest = begin;
    Iterator point = std::next(begin);
    for (; point != end; ++point) {
      if (!(point->x >= x && point->x < slotEnd && std::abs(point->y) <= kFar)) break;
      x = point->x;
      // Without branches, which nobody could predict.
      lowest = point->y < low ? point : lowest;
      highest = point->y > high ? point : highest;
      low = std::min(low, point->y);
      high = std::max(high, point->y);
    }

    if (isEmpty_) firstSlot_ = slot;
    if (!isEmpty_) addSegment(last_, inView(*begin));
    if (slot >= 0 && slot < slotCount_) {
      below_.setPoint(slot, inView(*highest));
      above_.setPoint(slot, mirrored(inView(*lowest)));
      if (point - begin <= kExactPoints) {
        for (Iterator next = std::next(begin); next != point; ++next)
          addSegment(inView(*std::prev(next)), inView(*next));
      } else {
        const Iterator last = std::prev(point);
        forOutline(begin, highest, last,
                   [this](CGPoint from, CGPoint to) { addSegmentBelow(from, to); });
        forOutline(begin, lowest, last,
                   [this](CGPoint from, CGPoint to) { addSegmentAbove(from, to); });
      }
    }
    isEmpty_ = false;
    lastSlot_ = slot;
    last_ = inView(*std::prev(point));
    return point;
  }

  /// Ends the run; the next point starts another.
  void finishRun() {
    if (isEmpty_) return;
    const int first = std::clamp(firstSlot_, 0, slotCount_ - 1);
    const int last = std::clamp(lastSlot_, 0, slotCount_ - 1);
    below_.addPens(first, last);
    above_.addPens(first, last);

    const int firstReached = std::max(first - margin_, 0);
    const int lastReached = std::min(last + margin_, slotCount_ - 1);
    const int end = std::min(lastReached, margin_ + lineCount_ - 1);
    for (int slot = std::max(firstReached, margin_); slot <= end; ++slot)
      intervals_.add(slot - margin_, -above_.at(slot), below_.at(slot));
    below_.clear(firstReached, lastReached);
    above_.clear(firstReached, lastReached);
    isEmpty_ = true;
  }

  LineIntervals& intervals() { return intervals_; }

 private:
  static constexpr std::ptrdiff_t kExactPoints = 4;

  static CGPoint mirrored(CGPoint p) { return {p.x, -p.y}; }

  /// -1 and slotCount_ stand for all places outside.
  int slotAt(double x) const {
    const double slot = (x - left_) * slotsPerPixel_;
    return slot < 0 ? -1 : slot >= slotCount_ ? slotCount_ : static_cast<int>(slot);
  }

  /// The line through the first point of a slot, an extreme one with its neighbours, and the last.
  template <class Iterator, class AddSegment>
  void forOutline(Iterator first, Iterator extreme, Iterator last, AddSegment&& addPiece) {
    const CGPoint top = inView(*extreme);
    if (extreme != first) {
      const Iterator before = std::prev(extreme);
      if (before != first) addPiece(inView(*first), inView(*before));
      addPiece(inView(*before), top);
    }
    if (extreme != last) {
      const Iterator after = std::next(extreme);
      addPiece(top, inView(*after));
      if (after != last) addPiece(inView(*after), inView(*last));
    }
  }

  CGPoint inView(CGPoint p) const { return {p.x - left_, p.y - top_}; }

  /// From the middle of a segment that runs to the right to its lower side on the screen.
  CGPoint penOffset(CGPoint from, CGPoint to) const {
    const CGPoint d = to - from;
    const double scale = radius_ / std::sqrt(d.x * d.x + d.y * d.y);
    return {-d.y * scale, d.x * scale};
  }

  void addSegment(CGPoint from, CGPoint to) {
    if (!(from.x < to.x)) return;
    const CGPoint offset = penOffset(from, to);
    below_.addSegment(from, to, offset);
    above_.addSegment(mirrored(from), mirrored(to), {-offset.x, offset.y});
  }

  void addSegmentBelow(CGPoint from, CGPoint to) {
    if (from.x < to.x) below_.addSegment(from, to, penOffset(from, to));
  }

  void addSegmentAbove(CGPoint from, CGPoint to) {
    if (from.x < to.x)
      above_.addSegment(mirrored(from), mirrored(to), penOffset(mirrored(from), mirrored(to)));
  }

  double radius_;
  double slotsPerPixel_;
  int margin_;
  int lineCount_;
  int slotCount_;
  double left_;
  double top_;
  StrokeBoundary below_;  // towards growing y
  StrokeBoundary above_;  // the same of the curve upside down
  LineIntervals intervals_;

  // Of the run.
  bool isEmpty_ = true;
  int firstSlot_ = 0;
  int lastSlot_ = 0;
  CGPoint last_;
};

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

bool isNear(CGPoint p) {
  return std::abs(p.x) <= kFar && std::abs(p.y) <= kFar;
}

template <class Iterator>
bool isAscending(Iterator begin, Iterator end, double x) {
  for (auto point = begin; point != end; ++point) {
    if (!isFinite(*point)) continue;
    if (point->x < x) return false;
    x = point->x;
  }
  return true;
}

enum class Outcome { kAdded, kTooFar, kNotSorted };

template <class Iterator>
Outcome addAscending(Iterator begin, Iterator end, StrokeIntervals& stroke) {
  double x = -HUGE_VAL;
  for (auto point = begin; point != end;) {
    if (!isFinite(*point)) {
      stroke.finishRun();
      ++point;
      continue;
    }
    if (point->x < x) return Outcome::kNotSorted;
    if (!isNear(*point)) return isAscending(point, end, x) ? Outcome::kTooFar : Outcome::kNotSorted;
    point = stroke.addSlot(point, end);
    x = std::prev(point)->x;
  }
  stroke.finishRun();
  return Outcome::kAdded;
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
