#pragma once

#include <AppKit/NSColor.h>

namespace gallery {

inline constexpr vexel::NSColor kBlue = vexel::NSColor::colorWithRed(0.12, 0.47, 0.71);
inline constexpr vexel::NSColor kOrange = vexel::NSColor::colorWithRed(0.89, 0.47, 0.10);
inline constexpr vexel::NSColor kGreen = vexel::NSColor::colorWithRed(0.20, 0.60, 0.26);
inline constexpr vexel::NSColor kRed = vexel::NSColor::colorWithRed(0.80, 0.20, 0.24);
inline constexpr vexel::NSColor kViolet = vexel::NSColor::colorWithRed(0.52, 0.39, 0.74);
inline constexpr vexel::NSColor kTeal = vexel::NSColor::colorWithRed(0.09, 0.63, 0.70);

}  // namespace gallery
