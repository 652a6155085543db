#pragma once

#include <cstddef>
#include <vector>

namespace vexel {

/// What a shape covers of each of a row of vertical sampling lines, as intervals of y. Most lines
/// have one interval, and that case is fast.
class LineIntervals {
 public:
  /// Nothing is covered yet.
  explicit LineIntervals(int lineCount);

  /// Lines in the row.
  int lineCount() const { return static_cast<int>(first_.size()); }

  /// Covers low to high on a line as well. Nothing when high is not above low.
  void add(int line, float low, float high) {
    if (!(low < high)) return;
    Interval& interval = first_[static_cast<std::size_t>(line)];
    if (interval.low < interval.high)
      addOther(line, low, high);
    else
      interval = {low, high};
  }

  /// Merges what overlaps; to be called once, after all add() and before visit().
  void finish();

  /// Calls with each interval of a line. Lines must be visited in ascending order; cursor starts
  /// at 0 and is kept for the next line.
  template <class Visitor>
  void visit(int line, std::size_t& cursor, Visitor&& visitor) const {
    const Interval& interval = first_[static_cast<std::size_t>(line)];
    if (interval.low < interval.high) visitor(interval.low, interval.high);
    while (cursor < others_.size() && others_[cursor].line < line) ++cursor;
    for (; cursor < others_.size() && others_[cursor].line == line; ++cursor)
      visitor(others_[cursor].low, others_[cursor].high);
  }

 private:
  struct Interval {
    float low = 0;
    float high = 0;
  };
  struct Other {
    int line;
    float low;
    float high;
  };

  void addOther(int line, float low, float high);
  void mergeOthers();

  std::vector<Interval> first_;
  std::vector<Other> others_;
  std::size_t mergeAt_;
};

}  // namespace vexel
