#include "LeafSummaries.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace vexel {

namespace {

struct Vectors16 {
  using Lanes = double __attribute__((vector_size(16)));
  using Flags = std::int64_t __attribute__((vector_size(16)));
};
struct Vectors32 {
  using Lanes = double __attribute__((vector_size(32)));
  using Flags = std::int64_t __attribute__((vector_size(32)));
};

template <class Vectors>
[[gnu::always_inline]] inline void summarize(const double* x, const double* y,
                                             std::span<LeafSummary> leaves) {
  using Lanes = typename Vectors::Lanes;
  using Flags = typename Vectors::Flags;
  constexpr std::size_t kLanes = sizeof(Lanes) / sizeof(double);
  for (LeafSummary& leaf : leaves) {
    Lanes low, high;
    std::memcpy(&low, y, sizeof low);
    high = low;
    Lanes sum{*(x - 1)};
    Flags falls{}, rises{};
    for (std::size_t i = 0; i < kSamplesOfLeaf; i += kLanes) {
      Lanes xs, previous, ys;
      std::memcpy(&xs, x + i, sizeof xs);
      std::memcpy(&previous, x + i - 1, sizeof previous);
      std::memcpy(&ys, y + i, sizeof ys);
      low = ys < low ? ys : low;
      high = ys > high ? ys : high;
      falls |= xs < previous;
      rises |= xs > previous;
      sum += xs + ys;
    }
    leaf = {.isPlain = std::isfinite(sum[0]),
            .falls = falls[0] != 0,
            .rises = rises[0] != 0,
            .lowest = low[0],
            .highest = high[0]};
    for (std::size_t lane = 1; lane < kLanes; ++lane) {
      leaf.isPlain = leaf.isPlain && std::isfinite(sum[lane]);
      leaf.falls = leaf.falls || falls[lane] != 0;
      leaf.rises = leaf.rises || rises[lane] != 0;
      leaf.lowest = std::min(leaf.lowest, low[lane]);
      leaf.highest = std::max(leaf.highest, high[lane]);
    }
    x += kSamplesOfLeaf;
    y += kSamplesOfLeaf;
  }
}

void summarizePlainly(const double* x, const double* y, std::span<LeafSummary> leaves) {
  summarize<Vectors16>(x, y, leaves);
}

#ifdef __x86_64__
__attribute__((target("avx2"))) void summarizeByAvx2(const double* x, const double* y,
                                                     std::span<LeafSummary> leaves) {
  summarize<Vectors32>(x, y, leaves);
}
#endif

}  // namespace

std::span<SummarizeLeaves* const> waysToSummarizeLeaves() {
#ifdef __x86_64__
  static constexpr std::array<SummarizeLeaves*, 2> ways{summarizePlainly, summarizeByAvx2};
  static const bool hasAvx2 = __builtin_cpu_supports("avx2");
  return std::span(ways).first(hasAvx2 ? 2 : 1);
#else
  static constexpr std::array<SummarizeLeaves*, 1> ways{summarizePlainly};
  return ways;
#endif
}

}  // namespace vexel
