#pragma once

#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/PixelRect.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace vexel {

/// How far a round pen reaches that is led along a curve of sorted x, on the vertical sampling
/// lines of a view, which are at the middles of equal parts of its width. Everything is in pixels,
/// y downwards.
///
/// The curve is known by its y on the lines, and by the lowest and highest of its points between
/// two lines, which are taken to be half-way.
class CurveHull {
 public:
  /// The coordinates of all points are at most that in size: doubles still tell well where a
  /// segment crosses the view.
  static constexpr double kFar = 1e8;

  /// No curve yet; the radius of the pen is in pixels.
  CurveHull(const PixelRect& view, int linesPerPixel, double radius);

  /// Whether there is no curve.
  bool isEmpty() const { return first_ > final_; }
  /// Goes on with the curve.
  void add(std::span<const CGPoint> points);
  /// Goes on after a gap with a segment.
  void addSegment(CGPoint from, CGPoint to);

  /// Calls reached(line, top, bottom) for each sampling line that the pen reaches, and maybe for
  /// others with a top that is not above the bottom, which both count from the view's top. The
  /// curve is empty afterwards.
  template <class Reached>
  void finish(Reached&& reached) {
    if (isEmpty()) return;
    const auto [begin, end] = reachedLines();
    for (int line = begin; line < end; line += kBlock) {
      const Reach reach = reachOf(line);
      for (int i = 0; i < std::min(kBlock, end - line); ++i) {
        const auto [upwards, downwards] = reach[static_cast<std::size_t>(i)];
        reached(line + i, -upwards, downwards);
      }
    }
    clear();
  }

 private:
  static constexpr int kBlock = 16;

  /// Farthest on a line.
  struct Ends {
    float upwards;  // -y
    float downwards;
  };
  using Reach = std::array<Ends, kBlock>;  // of the pen, on successive sampling lines
  int reach() const { return static_cast<int>(pen_.size()) / 2; }

  /// The x in sampling lines, the y from the view's top.
  CGPoint placeOf(CGPoint p) const { return {p.x * linesPerPixel_ + start_, p.y - top_}; }
  /// The first and the last line stand for everything farther out.
  int lineBefore(CGPoint place) const {
    // Unlike std::clamp without branches.
    return static_cast<int>(std::min(std::max(place.x, 0.0), lastLine_));
  }
  /// What is known of the points from a line to the next one.
  Ends& pointsBehind(int line);
  /// The lines that the segment between two places crosses.
  void addBetween(CGPoint a, CGPoint b);
  /// The first, and the one behind the last.
  std::pair<int, int> reachedLines() const;
  /// On the sampling lines from one on.
  Reach reachOf(int line) const;
  void clear();

  int lineCount_;
  double linesPerPixel_;
  std::vector<float> pen_;  // half its height every half distance of lines, from its middle on
  int margin_;              // lines before the view, and behind
  double start_;            // of the first of them, from x = 0
  double top_;
  double lastLine_;
  std::vector<Ends> onLines_;
  std::vector<Ends> behindLines_;  // up to the next one

  int first_;  // of the lines left of points
  int final_ = -1;
  CGPoint last_;  // place
};

}  // namespace vexel
