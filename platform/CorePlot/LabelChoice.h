#pragma once

#include <cstddef>
#include <vector>

#include <CoreGraphics/CGPoint.h>

namespace vexel {

/// What a label takes up along its axis.
struct LabelStretch {
  /// What it stands for, on a logarithmic scale its exponent of ten; NaN when that is no number.
  double number;
  CGFloat low;
  CGFloat high;
};

/// The labels (in ascending order of their numbers) that stay so that no two are closer than `gap`:
/// every k-th, with the smallest k at which that is so. Where the labels stand at round numbers,
/// those that stay do, too: 0, 20, 40 rather than 10, 30, 50 or 0, 30, 60. On a logarithmic scale
/// the labels between the decades are the first to go. Never fewer than one of several.
std::vector<std::size_t> chooseLabels(const std::vector<LabelStretch>& labels, CGFloat gap,
                                      bool logarithmic);

}  // namespace vexel
