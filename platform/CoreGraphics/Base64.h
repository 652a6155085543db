#pragma once

#include <string>
#include <string_view>

namespace vexel {

/// Appends bytes in the base64 of RFC 4648, with padding and without line breaks.
void appendBase64(std::string& text, std::string_view bytes);

}  // namespace vexel
