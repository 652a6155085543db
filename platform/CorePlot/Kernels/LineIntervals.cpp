#include <Kernels/LineIntervals.h>

#include <algorithm>
#include <tuple>

namespace vexel {

namespace {

constexpr std::size_t kMergeAt = 1 << 16;
/// In pixels. Closing such gaps bounds how many intervals a line can have.
constexpr float kInvisibleGap = 1.0F / 64;

}  // namespace

LineIntervals::LineIntervals(int lineCount)
    : first_(static_cast<std::size_t>(lineCount)), mergeAt_(kMergeAt) {}

void LineIntervals::addOther(int line, float low, float high) {
  Interval& interval = first_[static_cast<std::size_t>(line)];
  if (low <= interval.high && high >= interval.low) {
    interval = {std::min(low, interval.low), std::max(high, interval.high)};
    return;
  }
  others_.push_back({line, low, high});
  if (others_.size() >= mergeAt_) {
    mergeOthers();
    mergeAt_ = std::max(kMergeAt, 2 * others_.size());
  }
}

void LineIntervals::finish() {
  const std::size_t count = others_.size();
  for (std::size_t i = 0; i < count; ++i) {
    Interval& interval = first_[static_cast<std::size_t>(others_[i].line)];
    if (interval.low < interval.high)
      others_.push_back({others_[i].line, interval.low, interval.high});
    interval = {};
  }
  mergeOthers();
}

void LineIntervals::mergeOthers() {
  std::sort(others_.begin(), others_.end(), [](const Other& a, const Other& b) {
    return std::tie(a.line, a.low) < std::tie(b.line, b.low);
  });
  std::size_t kept = 0;
  for (const Other& other : others_) {
    if (kept > 0 && others_[kept - 1].line == other.line &&
        other.low <= others_[kept - 1].high + kInvisibleGap)
      others_[kept - 1].high = std::max(others_[kept - 1].high, other.high);
    else
      others_[kept++] = other;
  }
  others_.resize(kept);
}

}  // namespace vexel
