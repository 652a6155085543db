#include <Kernels/RangeIndex.h>

#include <cmath>
#include <cstring>

namespace vexel {

namespace {

using Lanes = double __attribute__((vector_size(32)));
using LaneMask = std::int64_t __attribute__((vector_size(32)));
constexpr std::size_t kLanes = 4;

void load(Lanes& lanes, const double* values) {
  std::memcpy(&lanes, values, sizeof lanes);
}

bool isAnySet(const LaneMask& mask) {
  return (mask[0] | mask[1] | mask[2] | mask[3]) != 0;
}

}  // namespace

void RangeIndex::extend(std::span<const double> x, std::span<const double> y) {
  const std::size_t newCount = std::min(x.size(), y.size());
  std::size_t known = count();
  if (newCount < known) {
    *this = RangeIndex();
    known = 0;
  }
  x_ = x.first(newCount);
  y_ = y.first(newCount);
  readOrder(known);

  // The last node of every level may have been short of samples.
  std::size_t changed = known / kLeafSize;
  std::size_t nodes = (newCount + kLeafSize - 1) / kLeafSize;
  if (levels_.empty()) levels_.emplace_back();
  levels_[0].extremes.resize(nodes);
  levels_[0].hasGap.resize(nodes);
  for (std::size_t leaf = changed; leaf < nodes; ++leaf) readLeaf(leaf);
  for (std::size_t level = 1; nodes > 1; ++level) {
    changed /= kFanOut;
    nodes = (nodes + kFanOut - 1) / kFanOut;
    if (levels_.size() == level) {
      levels_.emplace_back();
      changed = 0;
    }
    levels_[level].extremes.resize(nodes);
    levels_[level].hasGap.resize(nodes);
    gatherLevel(level, changed);
  }
}

void RangeIndex::readOrder(std::size_t from) {
  while (from < x_.size()) {
    const std::size_t end = std::min(from + kLeafSize, x_.size());
    if (from == 0 || end - from < kLeafSize || !readOrderWithoutGaps(from)) {
      for (std::size_t i = from; i < end; ++i) readOrderOf(x_[i]);
    }
    from = end;
  }
}

void RangeIndex::readOrderOf(double x) {
  if (!std::isfinite(x)) {
    hasGapInX_ = true;
    return;
  }
  // Written so that both hold before the first x, when lastX_ is NaN.
  isAscending_ = isAscending_ && !(x < lastX_);
  isDescending_ = isDescending_ && !(x > lastX_);
  lastX_ = x;
}

bool RangeIndex::readOrderWithoutGaps(std::size_t from) {
  LaneMask rises{}, falls{}, isGap{};
  for (std::size_t i = from; i < from + kLeafSize; i += kLanes) {
    Lanes before, x;
    load(before, &x_[i - 1]);
    load(x, &x_[i]);
    rises |= x > before;
    falls |= x < before;
    isGap |= ~((x - x == 0) & (before - before == 0));
  }
  if (isAnySet(isGap)) return false;
  isAscending_ = isAscending_ && !isAnySet(falls);
  isDescending_ = isDescending_ && !isAnySet(rises);
  lastX_ = x_[from + kLeafSize - 1];
  return true;
}

void RangeIndex::readLeaf(std::size_t leaf) {
  const std::size_t begin = leaf * kLeafSize;
  const std::size_t end = std::min(begin + kLeafSize, count());
  Extremes found;
  std::size_t i = begin;

  Lanes low = Lanes{} + found.lowest;
  Lanes high = Lanes{} + found.highest;
  LaneMask isGap{};
  for (; i + kLanes <= end; i += kLanes) {
    Lanes x, y;
    load(x, &x_[i]);
    load(y, &y_[i]);
    const LaneMask isFinite = (x - x == 0) & (y - y == 0);
    low = (isFinite & (y < low)) ? y : low;
    high = (isFinite & (y > high)) ? y : high;
    isGap |= ~isFinite;
  }
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    found.lowest = std::min(found.lowest, low[lane]);
    found.highest = std::max(found.highest, high[lane]);
  }
  bool hasGap = isAnySet(isGap);
  for (; i < end; ++i) {
    if (std::isfinite(x_[i]) && std::isfinite(y_[i])) {
      found.lowest = std::min(found.lowest, y_[i]);
      found.highest = std::max(found.highest, y_[i]);
    } else {
      hasGap = true;
    }
  }
  levels_[0].extremes[leaf] = found;
  levels_[0].hasGap[leaf] = hasGap;
}

void RangeIndex::gatherLevel(std::size_t level, std::size_t fromNode) {
  const Level& below = levels_[level - 1];
  Level& gathered = levels_[level];
  for (std::size_t node = fromNode; node < gathered.size(); ++node) {
    Extremes found;
    bool hasGap = false;
    const std::size_t end = std::min((node + 1) * kFanOut, below.size());
    for (std::size_t child = node * kFanOut; child < end; ++child) {
      found.lowest = std::min(found.lowest, below.extremes[child].lowest);
      found.highest = std::max(found.highest, below.extremes[child].highest);
      hasGap = hasGap || below.hasGap[child];
    }
    gathered.extremes[node] = found;
    gathered.hasGap[node] = hasGap;
  }
}

RangeIndex::Extremes RangeIndex::extremes(std::size_t first, std::size_t last) const {
  Extremes found;
  last = std::min(last, count());
  if (first >= last) return found;
  const std::size_t top = levels_.size() - 1;
  for (std::size_t i = 0; i < levels_[top].size(); ++i) addExtremes({top, i}, first, last, found);
  return found;
}

void RangeIndex::addExtremes(Place node, std::size_t first, std::size_t last,
                             Extremes& found) const {
  const std::size_t begin = node.index * samplesPerNode(node.level);
  const std::size_t end = std::min(begin + samplesPerNode(node.level), count());
  if (begin >= last || end <= first) return;

  if (begin >= first && end <= last) {
    const Extremes& extremes = levels_[node.level].extremes[node.index];
    found.lowest = std::min(found.lowest, extremes.lowest);
    found.highest = std::max(found.highest, extremes.highest);
  } else if (node.level > 0) {
    const std::size_t child = node.index * kFanOut;
    const std::size_t children = std::min(kFanOut, levels_[node.level - 1].size() - child);
    for (std::size_t i = 0; i < children; ++i)
      addExtremes({node.level - 1, child + i}, first, last, found);
  } else {
    for (std::size_t i = std::max(begin, first); i < std::min(end, last); ++i)
      if (std::isfinite(x_[i]) && std::isfinite(y_[i])) {
        found.lowest = std::min(found.lowest, y_[i]);
        found.highest = std::max(found.highest, y_[i]);
      }
  }
}

std::pair<std::size_t, std::size_t> RangeIndex::samplesBetween(double fromX, double toX) const {
  if (hasGapInX_ || !(isAscending_ || isDescending_)) return {0, count()};
  const auto [low, high] = std::minmax(fromX, toX);
  const auto isBefore = [&](double x) { return isAscending_ ? x < low : x > high; };
  const auto isNotBehind = [&](double x) { return isAscending_ ? x <= high : x >= low; };
  const auto begin = std::partition_point(x_.begin(), x_.end(), isBefore);
  const auto end = std::partition_point(begin, x_.end(), isNotBehind);
  const auto first = static_cast<std::size_t>(begin - x_.begin());
  const auto last = static_cast<std::size_t>(end - x_.begin());
  return {first > 0 ? first - 1 : 0, std::min(last + 1, count())};
}

}  // namespace vexel
