#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>
#include <Kernels/CPTNumericData.h>

namespace vexel {

/// The lowest and highest y of a series of samples over any part of it, without looking at them
/// all: extremes and first sample of each leaf of 32 samples, of 4 leaves, 16 leaves and so on,
/// which is 9 % of the data. Samples whose x or y is not finite are gaps: they have no extremes and
/// are known to be there.
///
/// The samples are borrowed: they must stay, unchanged, as long as the index is used.
class VEXEL_API RangeIndex {
 public:
  /// No finite sample: lowest is above highest.
  struct Extremes {
    /// Finite unless there is no sample.
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();

    /// Whether there is no sample.
    bool isEmpty() const { return lowest > highest; }
    /// Takes in others.
    void add(const Extremes& other) {
      lowest = std::min(lowest, other.lowest);
      highest = std::max(highest, other.highest);
    }
    /// Takes in a number that is finite and above the floor.
    void add(double number, double floor) {
      if (!(number > floor && number <= std::numeric_limits<double>::max())) return;
      lowest = std::min(lowest, number);
      highest = std::max(highest, number);
    }
    friend bool operator==(const Extremes&, const Extremes&) = default;
  };

  RangeIndex() = default;

  /// Reads all samples once. When there are more x than y, or the reverse, the rest is ignored.
  RangeIndex(CPTNumericData x, CPTNumericData y) { extend(x, y); }

  /// The same samples with more behind them, maybe at another place in memory. Reads only what is
  /// new. When there are fewer than before, everything is read again.
  void extend(CPTNumericData x, CPTNumericData y);

  /// How many samples, and what they are; `sample` must be below count().
  std::size_t count() const { return x_.count(); }
  double x(std::size_t sample) const { return x_[sample]; }
  double y(std::size_t sample) const { return y_[sample]; }

  /// The finite x ascend or descend; equal ones are allowed. Both hold when there is one x only.
  bool isAscending() const { return isAscending_; }
  bool isDescending() const { return isDescending_; }

  /// Of the samples first to last - 1.
  Extremes extremes(std::size_t first, std::size_t last) const;

  /// Of all finite x, and of the y of all samples, as far as they are above `floor`. Quick where
  /// all of them are.
  Extremes xExtremes(double floor) const;
  Extremes yExtremes(double floor) const;

  /// The samples (first, and the one behind the last) that a line needs between two x: those
  /// inside and the next one on either side. All of them when x neither ascend nor descend or have
  /// gaps.
  std::pair<std::size_t, std::size_t> samplesBetween(double fromX, double toX) const;

  /// So many samples at most are visited at once.
  static constexpr std::size_t kMostAtOnce = 128;

  /// Calls samples(x, y) with spans of the samples first to last - 1, some at a time.
  template <class Samples>
  void visit(std::size_t first, std::size_t last, Samples&& samples) const {
    std::array<double, kMostAtOnce> xBuffer, yBuffer;
    for (last = std::min(last, count()); first < last; first += kMostAtOnce) {
      const std::size_t some = std::min(kMostAtOnce, last - first);
      samples(std::span(x_.read(first, some, xBuffer.data()), some),
              std::span(y_.read(first, some, yBuffer.data()), some));
    }
  }

  /// Calls point(x, y) along a line that looks like the one through the samples first to last - 1,
  /// whose x must ascend or descend. A part is narrow when all its x lie before narrowEnd(x) of its
  /// first x; twelve samples or more that are narrow are replaced by their lowest and highest,
  /// whole leaves by two points at their ends or in their middle that have their extremes, fewer
  /// ones by their first, lowest, highest and last in order. Gaps and y that are not above `floor`
  /// are never left out, but one stands for several in a row.
  template <class NarrowEnd, class Point>
  void visitOutline(std::size_t first, std::size_t last, double floor, NarrowEnd&& narrowEnd,
                    Point&& point) const {
    last = std::min(last, count());
    if (first >= last) return;
    const std::size_t top = levels_.size() - 1;
    NarrowPart narrow;
    visitNodes(top, 0, levels_[top].size(), first, last, floor, narrowEnd, narrow, point);
    give(narrow, point);
  }

 private:
  static constexpr std::size_t kLeafSize = 32;
  static constexpr std::size_t kFanOut = 4;
  static constexpr std::size_t kShortestBlock = 12;

  struct Node {
    Extremes extremes;
    CGPoint first;  // sample
  };
  struct Level {
    std::vector<Node> nodes;
    std::vector<bool> hasGap;

    std::size_t size() const { return nodes.size(); }
    void resize(std::size_t size) {
      nodes.resize(size);
      hasGap.resize(size);
    }
  };

  static std::size_t samplesPerNode(std::size_t level) {
    std::size_t samples = kLeafSize;
    for (; level > 0; --level) samples *= kFanOut;
    return samples;
  }

  /// Full leaves of new samples behind others.
  void readLeaves(std::size_t first, std::size_t last);
  void readLeaf(std::size_t leaf, std::size_t known);
  void readOrder(double x);
  void gatherLevel(std::size_t level, std::size_t fromNode);
  void addExtremes(std::size_t level, std::size_t node, std::size_t first, std::size_t last,
                   Extremes& found) const;

  bool isBefore(double x, double end) const { return isAscending_ ? x < end : x > end; }
  /// Neighbouring leaves that are narrow together, and the first sample behind them.
  struct NarrowPart {
    CGPoint first;
    CGPoint next;
    Extremes extremes;

    bool isEmpty() const { return extremes.isEmpty(); }
  };

  /// Gives the extremes of a part, at its ends where they lie there, as on a slope, otherwise in
  /// the middle. The part is empty afterwards.
  template <class Point>
  void give(NarrowPart& part, Point&& point) const {
    if (part.isEmpty()) return;
    const auto [first, next, extremes] = part;
    part = {};
    const double middle = first.x / 2 + next.x / 2;
    const auto place = [&](double extreme, bool isBeyond) {
      return extreme == first.y ? first.x : isBeyond ? next.x : middle;
    };
    const double xLowest = place(extremes.lowest, next.y <= extremes.lowest);
    const double xHighest = place(extremes.highest, next.y >= extremes.highest);
    const bool isHighestFirst = isBefore(xHighest, xLowest);
    if (isHighestFirst) point(xHighest, extremes.highest);
    point(xLowest, extremes.lowest);
    if (!isHighestFirst) point(xHighest, extremes.highest);
  }

  template <class NarrowEnd, class Point>
  void visitNodes(std::size_t levelNumber, std::size_t node, std::size_t nodesEnd,
                  std::size_t first, std::size_t last, double floor, NarrowEnd&& narrowEnd,
                  NarrowPart& narrow, Point&& point) const {
    const Level& level = levels_[levelNumber];
    const std::size_t samples = samplesPerNode(levelNumber);
    for (; node < nodesEnd; ++node) {
      const std::size_t begin = node * samples;
      const std::size_t end = std::min(begin + samples, count());
      if (end <= first) continue;
      if (begin >= last) return;

      const auto& [extremes, from] = level.nodes[node];
      const CGPoint next =
          node + 1 < level.size() ? level.nodes[node + 1].first : CGPoint{lastX_, lastY_};
      if (begin >= first && end <= last && !level.hasGap[node] && extremes.lowest > floor &&
          isBefore(next.x, narrowEnd(from.x))) {
        // Parts of the full width would place their extremes less well than leaves do on average.
        const double reserve = (next.x - narrow.first.x) / 3;
        if (narrow.isEmpty() || !isBefore(next.x + reserve, narrowEnd(narrow.first.x))) {
          give(narrow, point);
          narrow.first = from;
        }
        narrow.extremes.add(extremes);
        narrow.next = next;
      } else if (levelNumber > 0) {
        const std::size_t child = node * kFanOut;
        const std::size_t children = std::min(child + kFanOut, levels_[levelNumber - 1].size());
        visitNodes(levelNumber - 1, child, children, first, last, floor, narrowEnd, narrow, point);
      } else {
        give(narrow, point);
        visitLeaf(std::max(begin, first), std::min(end, last), floor, narrowEnd, point);
      }
    }
  }

  template <class NarrowEnd, class Point>
  void visitLeaf(std::size_t first, std::size_t last, double floor, NarrowEnd&& narrowEnd,
                 Point&& point) const {
    const std::size_t samples = last - first;
    std::array<double, kLeafSize> xBuffer, yBuffer;
    const double* x = x_.read(first, samples, xBuffer.data());
    const double* y = y_.read(first, samples, yBuffer.data());
    visitBlock(x, y, samples, floor, narrowEnd, point);
  }

  /// A part of a leaf: replaced as a whole, halved, or, when it is short, sample by sample.
  template <class NarrowEnd, class Point>
  void visitBlock(const double* x, const double* y, std::size_t samples, double floor,
                  NarrowEnd&& narrowEnd, Point&& point) const {
    if (samples < kShortestBlock) {
      visitSamples(x, y, samples, floor, narrowEnd, point);
      return;
    }
    if (isBefore(x[samples - 1], narrowEnd(x[0]))) {
      const Extremes extremes = extremesWithoutGaps(x, y, samples);
      if (!extremes.isEmpty() && extremes.lowest > floor) {
        const double* const lowest = std::find(y, y + samples, extremes.lowest);
        const double* const highest = std::find(y, y + samples, extremes.highest);
        if (highest < lowest) point(x[highest - y], *highest);
        point(x[lowest - y], *lowest);
        if (highest > lowest) point(x[highest - y], *highest);
        return;
      }
    }
    const std::size_t half = samples / 2;
    visitBlock(x, y, half, floor, narrowEnd, point);
    visitBlock(x + half, y + half, samples - half, floor, narrowEnd, point);
  }

  /// None when a sample is a gap.
  static Extremes extremesWithoutGaps(const double* x, const double* y, std::size_t samples);

  template <class NarrowEnd, class Point>
  void visitSamples(const double* x, const double* y, std::size_t samples, double floor,
                    NarrowEnd&& narrowEnd, Point&& point) const {
    const auto isGap = [&](std::size_t i) {
      constexpr double kLargest = std::numeric_limits<double>::max();
      return !(y[i] > floor && y[i] <= kLargest && x[i] >= -kLargest && x[i] <= kLargest);
    };
    for (std::size_t i = 0; i < samples;) {
      const std::size_t from = i++;
      if (isGap(from)) {
        point(x[from], y[from]);
        while (i < samples && isGap(i)) ++i;
        continue;
      }
      std::size_t lowest = from;
      std::size_t highest = from;
      for (const double end = narrowEnd(x[from]); i < samples && isBefore(x[i], end); ++i) {
        if (isGap(i)) break;
        if (y[i] < y[lowest]) lowest = i;
        if (y[i] > y[highest]) highest = i;
      }
      const std::size_t outline[] = {from, std::min(lowest, highest), std::max(lowest, highest),
                                     i - 1};
      point(x[from], y[from]);
      for (std::size_t k = 1; k < std::size(outline); ++k)
        if (outline[k] > outline[k - 1]) point(x[outline[k]], y[outline[k]]);
    }
  }

  CPTNumericData x_;
  CPTNumericData y_;
  std::vector<Level> levels_;  // from the leaves up
  bool isAscending_ = true;
  bool isDescending_ = true;
  bool hasGapInX_ = false;
  double lastX_ = std::numeric_limits<double>::quiet_NaN();
  double lastY_ = std::numeric_limits<double>::quiet_NaN();
};

}  // namespace vexel
