#include <Kernels/LineIntervals.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

using Pairs = std::vector<std::pair<float, float>>;

std::vector<Pairs> contents(LineIntervals& intervals) {
  intervals.finish();
  std::vector<Pairs> all(static_cast<std::size_t>(intervals.lineCount()));
  std::size_t cursor = 0;
  for (int line = 0; line < intervals.lineCount(); ++line)
    intervals.visit(line, cursor, [&](float low, float high) {
      all[static_cast<std::size_t>(line)].emplace_back(low, high);
    });
  return all;
}

TEST(LineIntervals, IgnoreWhatCoversNothing) {
  LineIntervals intervals(1);
  intervals.add(0, kNaN, 1);
  intervals.add(0, 1, kNaN);
  intervals.add(0, 2, 2);
  intervals.add(0, 3, 2);
  intervals.add(0, kInfinity, -kInfinity);
  EXPECT_THAT(contents(intervals), ElementsAre(IsEmpty()));
}

TEST(LineIntervals, KeepLinesApart) {
  LineIntervals intervals(3);
  intervals.add(2, 1, 2);
  intervals.add(0, 3, 4);
  EXPECT_THAT(contents(intervals),
              ElementsAre(ElementsAre(Pair(3, 4)), IsEmpty(), ElementsAre(Pair(1, 2))));
}

TEST(LineIntervals, MergeWhatOverlaps) {
  LineIntervals intervals(2);
  intervals.add(0, 5, 6);
  intervals.add(0, 1, 2);
  intervals.add(0, 8, 9);
  intervals.add(0, 1.5F, 5.5F);
  intervals.add(1, 1, 2);
  EXPECT_THAT(contents(intervals),
              ElementsAre(ElementsAre(Pair(1, 6), Pair(8, 9)), ElementsAre(Pair(1, 2))));
}

TEST(LineIntervals, DoNotGrowWithIntervalsThatOverlap) {
  LineIntervals intervals(1);
  intervals.add(0, -10, -9);
  for (int i = 0; i < 1000000; ++i) {
    const float low = static_cast<float>(i % 100);
    intervals.add(0, low, low + 2);
  }
  EXPECT_THAT(contents(intervals), ElementsAre(ElementsAre(Pair(-10, -9), Pair(0, 101))));
}

RC_GTEST_PROP(LineIntervals, CoverExactlyWhatWasAdded, ()) {
  LineIntervals intervals(2);
  std::vector<bool> covered[2] = {std::vector<bool>(101), std::vector<bool>(101)};
  const int count = *rc::gen::inRange(0, 30);
  for (int i = 0; i < count; ++i) {
    const int line = *rc::gen::inRange(0, 2);
    const int low = *rc::gen::inRange(0, 100);
    const int high = std::min(100, low + *rc::gen::inRange(0, 10));
    intervals.add(line, static_cast<float>(low), static_cast<float>(high));
    for (int y = low; y < high; ++y) covered[line][static_cast<std::size_t>(y)] = true;
  }
  const auto all = contents(intervals);
  for (std::size_t line = 0; line < 2; ++line) {
    std::vector<bool> found(101);
    for (const auto& [low, high] : all[line])
      for (int y = static_cast<int>(low); y < static_cast<int>(high); ++y) {
        RC_ASSERT(!found[static_cast<std::size_t>(y)]);
        found[static_cast<std::size_t>(y)] = true;
      }
    RC_ASSERT(found == covered[line]);
  }
}

}  // namespace
}  // namespace vexel
