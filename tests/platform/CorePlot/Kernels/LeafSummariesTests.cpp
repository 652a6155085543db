#include <LeafSummaries.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace vexel {
namespace {

using Samples = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

/// The x before a leaf, its samples, and an own look at them.
struct Leaf {
  Leaf() : x(kSamplesOfLeaf + 1), y(kSamplesOfLeaf) {
    for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<double>(i) - 7;
    for (std::size_t i = 0; i < y.size(); ++i) y[i] = static_cast<double>(i * 7 % 13) - 6;
  }

  bool isFinite() const {
    const auto finite = [](double v) { return std::isfinite(v); };
    return std::ranges::all_of(x, finite) && std::ranges::all_of(y, finite);
  }
  bool falls() const { return !std::ranges::is_sorted(x); }
  bool rises() const { return !std::ranges::is_sorted(x, std::ranges::greater()); }

  Samples x;
  Samples y;
};

void expectSummaries(const std::vector<Leaf>& leaves, const char* what) {
  Samples x{leaves.front().x.front()}, y;
  for (const Leaf& leaf : leaves) {
    x.insert(x.end(), leaf.x.begin() + 1, leaf.x.end());
    y.insert(y.end(), leaf.y.begin(), leaf.y.end());
  }
  for (std::size_t way = 0; way < waysToSummarizeLeaves().size(); ++way) {
    std::vector<LeafSummary> found(leaves.size());
    waysToSummarizeLeaves()[way](x.data() + 1, y.data(), found);
    for (std::size_t i = 0; i < leaves.size(); ++i) {
      EXPECT_EQ(found[i].isPlain, leaves[i].isFinite()) << what << ", way " << way;
      if (!found[i].isPlain) continue;
      EXPECT_EQ(found[i].falls, leaves[i].falls()) << what << ", way " << way;
      EXPECT_EQ(found[i].rises, leaves[i].rises()) << what << ", way " << way;
      EXPECT_EQ(found[i].lowest, std::ranges::min(leaves[i].y)) << what << ", way " << way;
      EXPECT_EQ(found[i].highest, std::ranges::max(leaves[i].y)) << what << ", way " << way;
    }
  }
}

TEST(LeafSummaries, TellOfAnySampleThatIsNotFinite) {
  for (double bad : {kNaN, kInfinity, -kInfinity}) {
    for (std::size_t i = 0; i <= kSamplesOfLeaf; ++i) {
      Leaf leaf;
      leaf.x[i] = bad;
      expectSummaries({leaf}, "x");
    }
    for (std::size_t i = 0; i < kSamplesOfLeaf; ++i) {
      Leaf leaf;
      leaf.y[i] = bad;
      expectSummaries({leaf}, "y");
    }
  }
}

TEST(LeafSummaries, FindExtremesAndOrderAtEveryPlace) {
  for (double extreme : {-1e300, -20.0, 20.0, 1e300})
    for (std::size_t i = 0; i < kSamplesOfLeaf; ++i) {
      Leaf leaf;
      leaf.y[i] = extreme;
      expectSummaries({leaf}, "y");
    }
  for (double step : {-100.0, 0.0, 100.0})
    for (std::size_t i = 0; i <= kSamplesOfLeaf; ++i) {
      Leaf leaf;
      std::ranges::fill(leaf.x, 3);
      leaf.x[i] += step;
      expectSummaries({leaf}, "x");
    }
  Leaf descending;
  std::ranges::reverse(descending.x);
  expectSummaries({descending}, "descending");
}

TEST(LeafSummaries, TreatSumsBeyondAllNumbersAsNotPlain) {
  Leaf leaf;
  std::ranges::fill(leaf.y, kLargest);
  std::array<LeafSummary, 1> found;
  for (SummarizeLeaves* const summarize : waysToSummarizeLeaves()) {
    summarize(leaf.x.data() + 1, leaf.y.data(), found);
    EXPECT_FALSE(found[0].isPlain);
  }
}

TEST(LeafSummaries, GoOnFromLeafToLeaf) {
  std::vector<Leaf> leaves(3);
  leaves[1].x.front() = leaves[0].x.back();
  leaves[2].x.front() = leaves[1].x.back();
  leaves[1].y[3] = -50;
  leaves[2].y[31] = 50;
  expectSummaries(leaves, "three");
}

}  // namespace
}  // namespace vexel
