#pragma once

#include <string>
#include <string_view>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGPath.h>

#include "FileNumber.h"

namespace vexel {

/// Each of these appends to the text of a file.

/// ` name="value"`.
void appendAttribute(std::string& svg, std::string_view name, double value);
void appendAttribute(std::string& svg, std::string_view name, std::string_view value);

/// ` transform="matrix(...)"`.
void appendMatrix(std::string& svg, const CGAffineTransform& transform);

/// ` fill="#..."`, and its opacity where the colour is not opaque: the same for "stroke".
void appendPaint(std::string& svg, std::string_view name, const CGColor& color);

/// The steps of a path. Upright lines are told as such.
void appendPathData(std::string& svg, const CGPath& path, int decimals = kCoordinateDecimals);

/// Text as it stands between tags and in attributes: marked characters are escaped, control
/// characters and others that XML has no place for are left out. Takes valid UTF-8.
void appendEscaped(std::string& svg, std::string_view text);

}  // namespace vexel
