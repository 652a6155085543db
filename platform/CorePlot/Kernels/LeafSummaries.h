#pragma once

#include <cstddef>
#include <span>

namespace vexel {

constexpr std::size_t kSamplesOfLeaf = 32;

/// Of the samples of a leaf of a range index, as far as it is plain.
struct LeafSummary {
  /// No x or y that is not finite, nor the x before the leaf; sums of them do not overflow either.
  bool isPlain;
  /// Some x is below, or above, the one before it.
  bool falls;
  bool rises;
  double lowest;
  double highest;
};

/// Summarizes leaf after leaf of kSamplesOfLeaf samples. There is an x before the first one.
using SummarizeLeaves = void(const double* x, const double* y, std::span<LeafSummary> leaves);

/// All ways that this machine has. They find the same; the last is the fastest.
std::span<SummarizeLeaves* const> waysToSummarizeLeaves();

}  // namespace vexel
