#pragma once

#include <string>
#include <string_view>

namespace explorer {

/// Without the spaces and tabs on both sides.
std::string_view withoutBlanks(std::string_view text);

/// With the letters A to Z in lower case and every other byte as it is, in every locale.
std::string lowerCase(std::string_view text);

}  // namespace explorer
