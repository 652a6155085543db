#pragma once

#include <cstddef>
#include <vector>

#include <CoreGraphics/CGPoint.h>

namespace vexel {

/// What the numbers of labels are.
enum class LabelNumbers { plain, exponentsOfTen, hoursOfDay };

/// What a label takes up along its axis.
struct LabelStretch {
  /// What it stands for; NaN when that is no number.
  double number;
  CGFloat low;
  CGFloat high;
};

/// The labels (in ascending order of what they stand for) that stay so that no two are closer than
/// `gap`: every k-th, with the smallest k at which that is so. Where the labels stand at round
/// numbers, those that stay do, too: 0, 20, 40 rather than 10, 30, 50 or 0, 30, 60. Those at times
/// of day keep distances that part the day or the hour evenly: 12:00, 18:00, 00:00. On a
/// logarithmic scale the labels between the decades are the first to go. Never fewer than one of
/// several.
std::vector<std::size_t> chooseLabels(const std::vector<LabelStretch>& labels, CGFloat gap,
                                      LabelNumbers numbers);

}  // namespace vexel
