#pragma once

#include <optional>
#include <string_view>

#include <AppKit/NSColor.h>
#include <CorePlot/CPTColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The colour of an English name: red, green, yellow, magenta, orange, purple, brown, lightgray,
/// gray, darkgray, white or black, exactly as written here. Absent for any other text.
VEXEL_API std::optional<NSColor> getColor(std::string_view forCPTName);

/// The colour for the chart engine: generic red, green, blue and alpha.
VEXEL_API CPTColor getCPTColor(const NSColor& color);

}  // namespace vexel
