#pragma once

#include <memory>
#include <vector>

#include <CorePlot/CPTTextLayer.h>
#include <Foundation/NSFormatter.h>

namespace vexel {

/// What the labels of ticks (ascending, finite) say: what the formatter writes; null where that is
/// nothing.
///
/// Where the formatter would write a tick other than 0 like 0, or two neighbours alike, all of them
/// are in scientific notation instead, each with as many digits as tell it from its neighbours. On
/// a logarithmic axis that is the power of ten alone for decades, and it takes the place of a
/// number formatter's texts of more than five characters as well. Where a number formatter would
/// round ticks so that even steps read as uneven ones (0, 2.5, 5 as 0, 2, 5), all of them have as
/// many fraction digits as show the steps.
///
/// Labels wider than `room` points are set in smaller type, as long as it can be read; numbers that
/// would still be wider are in scientific notation, too.
std::vector<std::shared_ptr<CPTTextLayer>> tickLabels(const std::vector<double>& ticks,
                                                      const NSFormatter& formatter,
                                                      const CPTTextStyle& style, bool logarithmic,
                                                      CGFloat room);

}  // namespace vexel
