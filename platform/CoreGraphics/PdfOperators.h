#pragma once

#include <string>

#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "DevicePen.h"

namespace vexel {

/// How opaque what is drawn is, from 0 to 1; 0 as well for a line without a usable width.
double visibleOpacity(const CGColor& color);
double visibleOpacity(const CGStrokeStyle& style);

/// Each of the others appends operators of PDF. What they set stays set until it is set anew.

/// Components of a colour, with the operator "rg" for filling or "RG" for stroking.
void appendColor(std::string& content, const CGColor& color, const char* operation);
/// Everything about a line but its path; the pen must be round.
void appendPen(std::string& content, const CGStrokeStyle& style, const DevicePen& pen);
/// A path, ready to be filled or stroked.
void appendPath(std::string& content, const CGPath& path);

}  // namespace vexel
