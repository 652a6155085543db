#pragma once

#include <memory>
#include <string>

#include <CorePlot/CPTTextLayer.h>

namespace vexel {

/// The text in lines of at most `width` points, broken at blanks and centred; in the one line that
/// it is when that is short enough. A word that is longer than a line stays whole.
std::shared_ptr<CPTTextLayer> titleLines(const std::string& text, CPTTextStyle style,
                                         CGFloat width);

}  // namespace vexel
