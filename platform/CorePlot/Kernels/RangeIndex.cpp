#include <Kernels/RangeIndex.h>

#include <cmath>

#include "LeafSummaries.h"

namespace vexel {

namespace {

constexpr std::size_t kLanes = 4;
constexpr std::size_t kLeavesAtOnce = 16;

bool isSample(double x, double y) {
  return std::isfinite(x) && std::isfinite(y);
}

}  // namespace

void RangeIndex::extend(CPTNumericData x, CPTNumericData y) {
  const std::size_t newCount = std::min(x.count(), y.count());
  std::size_t known = count();
  if (newCount < known) {
    *this = RangeIndex();
    known = 0;
  }
  x_ = x.part(0, newCount);
  y_ = y.part(0, newCount);

  // The last node of every level may have been short of samples.
  std::size_t changed = known / kLeafSize;
  std::size_t nodes = (newCount + kLeafSize - 1) / kLeafSize;
  if (levels_.empty()) levels_.emplace_back();
  levels_[0].resize(nodes);
  // Whole leaves behind the first new one are quick to read.
  const std::size_t whole = newCount / kLeafSize;
  if (changed < nodes) readLeaf(changed, known);
  readLeaves(changed + 1, whole);
  for (std::size_t leaf = std::max(changed + 1, whole); leaf < nodes; ++leaf) readLeaf(leaf, known);
  for (std::size_t level = 1; nodes > 1; ++level) {
    changed /= kFanOut;
    nodes = (nodes + kFanOut - 1) / kFanOut;
    if (levels_.size() == level) {
      levels_.emplace_back();
      changed = 0;
    }
    levels_[level].resize(nodes);
    gatherLevel(level, changed);
  }
}

void RangeIndex::readLeaves(std::size_t first, std::size_t last) {
  static_assert(kLeafSize == kSamplesOfLeaf);
  std::array<double, kLeavesAtOnce * kLeafSize + 1> xBuffer, yBuffer;
  std::array<LeafSummary, kLeavesAtOnce> summaries;
  SummarizeLeaves* const summarize = waysToSummarizeLeaves().back();
  for (std::size_t begin = first; begin < last; begin += kLeavesAtOnce) {
    const std::size_t leaves = std::min(kLeavesAtOnce, last - begin);
    const std::size_t samples = leaves * kLeafSize;
    const double* x = x_.read(begin * kLeafSize - 1, samples + 1, xBuffer.data()) + 1;
    const double* y = y_.read(begin * kLeafSize, samples, yBuffer.data());
    summarize(x, y, std::span(summaries).first(leaves));
    for (std::size_t i = 0; i < leaves; ++i, x += kLeafSize, y += kLeafSize) {
      const std::size_t leaf = begin + i;
      const LeafSummary& summary = summaries[i];
      if (!summary.isPlain) {
        readLeaf(leaf, 0);
        continue;
      }
      levels_[0].nodes[leaf] = {{summary.lowest, summary.highest}, {x[0], y[0]}};
      levels_[0].hasGap[leaf] = false;
      isAscending_ = isAscending_ && !summary.falls;
      isDescending_ = isDescending_ && !summary.rises;
      lastX_ = x[kLeafSize - 1];
      lastY_ = y[kLeafSize - 1];
    }
  }
}

void RangeIndex::readLeaf(std::size_t leaf, std::size_t known) {
  const std::size_t begin = leaf * kLeafSize;
  const std::size_t samples = std::min(kLeafSize, count() - begin);
  std::array<double, kLeafSize> xBuffer, yBuffer;
  const double* x = x_.read(begin, samples, xBuffer.data());
  const double* y = y_.read(begin, samples, yBuffer.data());
  lastY_ = y[samples - 1];
  for (std::size_t i = known > begin ? known - begin : 0; i < samples; ++i) readOrder(x[i]);
  Extremes found;
  bool hasGap = false;
  for (std::size_t i = 0; i < samples; ++i) {
    if (isSample(x[i], y[i])) {
      found.lowest = std::min(found.lowest, y[i]);
      found.highest = std::max(found.highest, y[i]);
    } else {
      hasGap = true;
    }
  }
  levels_[0].nodes[leaf] = {found, {x[0], y[0]}};
  levels_[0].hasGap[leaf] = hasGap;
}

void RangeIndex::readOrder(double x) {
  if (!std::isfinite(x)) {
    hasGapInX_ = true;
    return;
  }
  // Written so that both hold before the first x, when lastX_ is NaN.
  isAscending_ = isAscending_ && !(x < lastX_);
  isDescending_ = isDescending_ && !(x > lastX_);
  lastX_ = x;
}

void RangeIndex::gatherLevel(std::size_t level, std::size_t fromNode) {
  const Level& below = levels_[level - 1];
  Level& gathered = levels_[level];
  for (std::size_t node = fromNode; node < gathered.size(); ++node) {
    Extremes found;
    bool hasGap = false;
    const std::size_t begin = node * kFanOut;
    const std::size_t end = std::min(begin + kFanOut, below.size());
    for (std::size_t child = begin; child < end; ++child) {
      found.add(below.nodes[child].extremes);
      hasGap = hasGap || below.hasGap[child];
    }
    gathered.nodes[node] = {found, below.nodes[begin].first};
    gathered.hasGap[node] = hasGap;
  }
}

RangeIndex::Extremes RangeIndex::extremes(std::size_t first, std::size_t last) const {
  Extremes found;
  last = std::min(last, count());
  if (first >= last) return found;
  const std::size_t top = levels_.size() - 1;
  for (std::size_t i = 0; i < levels_[top].size(); ++i) addExtremes(top, i, first, last, found);
  return found;
}

RangeIndex::Extremes RangeIndex::extremesWithoutGaps(const double* x, const double* y,
                                                     std::size_t samples) {
  double low[kLanes], high[kLanes], remainder[kLanes];
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    low[lane] = high[lane] = y[lane];
    remainder[lane] = 0;
  }
  const std::size_t inLanes = samples / kLanes * kLanes;
  for (std::size_t i = 0; i < inLanes; i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const double yi = y[i + lane];
      low[lane] = yi < low[lane] ? yi : low[lane];
      high[lane] = yi > high[lane] ? yi : high[lane];
      remainder[lane] += (x[i + lane] - x[i + lane]) + (yi - yi);  // 0 unless one is not finite
    }
  Extremes found;
  double all = 0;
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    found.lowest = std::min(found.lowest, low[lane]);
    found.highest = std::max(found.highest, high[lane]);
    all += remainder[lane];
  }
  for (std::size_t i = inLanes; i < samples; ++i) {
    found.lowest = std::min(found.lowest, y[i]);
    found.highest = std::max(found.highest, y[i]);
    all += (x[i] - x[i]) + (y[i] - y[i]);
  }
  return all == 0 ? found : Extremes();
}

RangeIndex::Extremes RangeIndex::xExtremes(double floor) const {
  if (count() > 0 && !hasGapInX_ && (isAscending_ || isDescending_)) {
    const auto [lowest, highest] = std::minmax({x_[0], x_[count() - 1]});
    if (lowest > floor) return {lowest, highest};
  }
  Extremes found;
  visit(0, count(), [&](std::span<const double> x, std::span<const double>) {
    const Extremes plain =
        x.size() >= kLanes ? extremesWithoutGaps(x.data(), x.data(), x.size()) : Extremes();
    if (!plain.isEmpty() && plain.lowest > floor)
      found.add(plain);
    else
      for (double number : x) found.add(number, floor);
  });
  return found;
}

RangeIndex::Extremes RangeIndex::yExtremes(double floor) const {
  Extremes found = extremes(0, count());
  if (found.isEmpty() || found.lowest > floor) return found;
  found = {};
  visit(0, count(), [&](std::span<const double> x, std::span<const double> y) {
    for (std::size_t i = 0; i < x.size(); ++i)
      if (std::isfinite(x[i])) found.add(y[i], floor);
  });
  return found;
}

void RangeIndex::addExtremes(std::size_t level, std::size_t node, std::size_t first,
                             std::size_t last, Extremes& found) const {
  const std::size_t samples = samplesPerNode(level);
  const std::size_t begin = node * samples;
  const std::size_t end = std::min(begin + samples, count());
  if (begin >= last || end <= first) return;

  if (begin >= first && end <= last) {
    found.add(levels_[level].nodes[node].extremes);
  } else if (level > 0) {
    const std::size_t child = node * kFanOut;
    const std::size_t children = std::min(child + kFanOut, levels_[level - 1].size());
    for (std::size_t i = child; i < children; ++i) addExtremes(level - 1, i, first, last, found);
  } else {
    for (std::size_t i = std::max(begin, first); i < std::min(end, last); ++i)
      if (isSample(x_[i], y_[i])) {
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
  const auto firstNot = [this](std::size_t from, auto holds) {
    std::size_t to = count();
    while (from < to) {
      const std::size_t middle = from + (to - from) / 2;
      if (holds(x_[middle]))
        from = middle + 1;
      else
        to = middle;
    }
    return from;
  };
  const std::size_t first = firstNot(0, isBefore);
  const std::size_t last = firstNot(first, isNotBehind);
  return {first > 0 ? first - 1 : 0, std::min(last + 1, count())};
}

}  // namespace vexel
