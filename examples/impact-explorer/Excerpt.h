#pragma once

#include <string>
#include <string_view>

namespace explorer {

/// `text` with each control character replaced by "?", so that it keeps to its line and no
/// terminal obeys it.
std::string printable(std::string_view text);

/// `text` for use in a message: printable, in quotation marks, and cut to at most `longestExcerpt`
/// bytes (whole characters of UTF-8) with "..." behind.
std::string excerpt(std::string_view text);

inline constexpr std::size_t longestExcerpt = 40;

}  // namespace explorer
