#pragma once

#include <string>
#include <string_view>

namespace vexel {

/// `bytes` with everything that is not UTF-8 text (stray and missing continuation bytes, overlong
/// forms, surrogates, values above U+10FFFF, and NUL) replaced by U+FFFD: one for each longest
/// beginning of a character that was cut short, one for each other byte.
std::string validUtf8(std::string_view bytes);

}  // namespace vexel
