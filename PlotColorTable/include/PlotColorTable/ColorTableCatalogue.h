#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include <CoreGraphics/CGSize.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Red, green and blue, each 0 to 255.
using ColorTableEntry = std::vector<CGFloat>;

/// 256 entries from the low end of the scale to the high end.
using ColorTable = std::vector<ColorTableEntry>;

/// Tables by their number.
using ColorTableFamily = std::map<std::int64_t, ColorTable>;

/// The catalogue, compiled in. Each family is made when it is first asked for, by whatever thread,
/// never changes after that and lives as long as the process.
VEXEL_API const ColorTableFamily& idlColorTables();
VEXEL_API const ColorTableFamily& gmtColorTables();
VEXEL_API const ColorTableFamily& brewerColorTables();
VEXEL_API const ColorTableFamily& qormColorTables();
VEXEL_API const ColorTableFamily& xanColorTables();

}  // namespace vexel
