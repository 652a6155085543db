#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace vexel {

/// The lowest and highest y of a series of samples over any part of it, without looking at them
/// all: extremes per leaf of 64 samples, and of 8 leaves, 64 leaves and so on, which is 2 % of the
/// data. Samples whose x or y is not finite are gaps: they have no extremes and are known to be
/// there.
///
/// The samples are borrowed: they must stay, unchanged, as long as the index is used.
class RangeIndex {
 public:
  /// No finite sample: lowest is above highest.
  struct Extremes {
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();

    bool isEmpty() const { return lowest > highest; }
    friend bool operator==(const Extremes&, const Extremes&) = default;
  };

  RangeIndex() = default;

  /// Reads all samples once. When one of the spans is longer, its rest is ignored.
  RangeIndex(std::span<const double> x, std::span<const double> y) { extend(x, y); }

  /// The same samples with more behind them, maybe at another place in memory. Reads only what is
  /// new. When there are fewer than before, everything is read again.
  void extend(std::span<const double> x, std::span<const double> y);

  std::size_t count() const { return x_.size(); }

  /// The finite x ascend or descend; equal ones are allowed. Both hold when there is one x only.
  bool isAscending() const { return isAscending_; }
  bool isDescending() const { return isDescending_; }

  /// Of the samples first to last - 1.
  Extremes extremes(std::size_t first, std::size_t last) const;

  /// The samples (first, and the one behind the last) that a line needs between two x: those
  /// inside and the next one on either side. All of them when x neither ascend nor descend or have
  /// gaps.
  std::pair<std::size_t, std::size_t> samplesBetween(double fromX, double toX) const;

  /// Calls point(x, y) along a line that looks like the one through the samples first to last - 1,
  /// whose x must ascend or descend. Parts that are narrow, as isNarrow(x0, x1) tells of two
  /// finite x, are replaced by their lowest and highest y at the middle of their x. Gaps are kept:
  /// parts that have any, or a y that is not above `floor`, are given sample by sample, as they
  /// are. So are the parts that are wide though they are few samples.
  template <class IsNarrow, class Point>
  void visitOutline(std::size_t first, std::size_t last, double floor, IsNarrow&& isNarrow,
                    Point&& point) const {
    last = std::min(last, count());
    if (first >= last) return;
    const std::size_t top = levels_.size() - 1;
    for (std::size_t i = 0; i < levels_[top].size(); ++i)
      visitNode({top, i}, first, last, floor, isNarrow, point);
  }

 private:
  static constexpr std::size_t kLeafSize = 64;
  static constexpr std::size_t kFanOut = 8;

  struct Level {
    std::vector<Extremes> extremes;
    std::vector<bool> hasGap;

    std::size_t size() const { return extremes.size(); }
  };
  struct Place {
    std::size_t level;
    std::size_t index;
  };

  static std::size_t samplesPerNode(std::size_t level) {
    std::size_t samples = kLeafSize;
    for (; level > 0; --level) samples *= kFanOut;
    return samples;
  }

  void readLeaf(std::size_t leaf, std::size_t known);
  void readOrder(double x);
  void gatherLevel(std::size_t level, std::size_t fromNode);
  void addExtremes(Place node, std::size_t first, std::size_t last, Extremes& found) const;

  template <class IsNarrow, class Point>
  void visitNode(Place node, std::size_t first, std::size_t last, double floor, IsNarrow&& isNarrow,
                 Point&& point) const {
    const std::size_t begin = node.index * samplesPerNode(node.level);
    const std::size_t end = std::min(begin + samplesPerNode(node.level), count());
    if (begin >= last || end <= first) return;

    const Level& level = levels_[node.level];
    const Extremes& extremes = level.extremes[node.index];
    if (begin >= first && end <= last && !level.hasGap[node.index] && extremes.lowest > floor &&
        isNarrow(x_[begin], x_[end - 1])) {
      const double middle = x_[begin] / 2 + x_[end - 1] / 2;
      point(middle, extremes.lowest);
      point(middle, extremes.highest);
    } else if (node.level > 0) {
      const std::size_t child = node.index * kFanOut;
      const std::size_t children = std::min(kFanOut, levels_[node.level - 1].size() - child);
      for (std::size_t i = 0; i < children; ++i)
        visitNode({node.level - 1, child + i}, first, last, floor, isNarrow, point);
    } else {
      for (std::size_t i = std::max(begin, first); i < std::min(end, last); ++i)
        point(x_[i], y_[i]);
    }
  }

  std::span<const double> x_;
  std::span<const double> y_;
  std::vector<Level> levels_;  // from the leaves up
  bool isAscending_ = true;
  bool isDescending_ = true;
  bool hasGapInX_ = false;
  double lastX_ = std::numeric_limits<double>::quiet_NaN();
};

}  // namespace vexel
