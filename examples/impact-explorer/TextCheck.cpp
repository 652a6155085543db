#include "TextCheck.h"

#include <fmt/format.h>

namespace explorer {

std::optional<std::string> TextCheck::feed(std::string_view piece) {
  for (const char c : piece) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (!accepts(byte))
      return byte == 0 ? "holds a zero byte" : fmt::format("byte 0x{:02X} is not UTF-8 here", byte);
  }
  return std::nullopt;
}

bool TextCheck::accepts(std::uint8_t byte) {
  if (pending_ > 0) {
    const bool fits = byte >= lowest_ && byte <= highest_;
    lowest_ = 0x80;
    highest_ = 0xBF;
    --pending_;
    return fits;
  }
  if (byte < 0x80) return byte != 0;
  if (byte >= 0xC2 && byte <= 0xDF) {
    pending_ = 1;
  } else if (byte >= 0xE0 && byte <= 0xEF) {
    pending_ = 2;
    if (byte == 0xE0) lowest_ = 0xA0;   // shorter forms exist below
    if (byte == 0xED) highest_ = 0x9F;  // surrogates above
  } else if (byte >= 0xF0 && byte <= 0xF4) {
    pending_ = 3;
    if (byte == 0xF0) lowest_ = 0x90;   // shorter forms exist below
    if (byte == 0xF4) highest_ = 0x8F;  // beyond the last character above
  } else {
    return false;
  }
  return true;
}

}  // namespace explorer
