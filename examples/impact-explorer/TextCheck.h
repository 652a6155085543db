#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace explorer {

/// Tells UTF-8 text from other bytes, piece by piece; characters may be cut by the ends of pieces.
class TextCheck {
 public:
  /// Takes the next piece. What is wrong with it, for use in a message; absent when all is well.
  std::optional<std::string> feed(std::string_view piece);
  /// Whether the bytes so far end with a whole character.
  bool endsWhole() const { return pending_ == 0; }

 private:
  bool accepts(std::uint8_t byte);

  /// Bytes that the current character still lacks, and the range its next byte must be in.
  int pending_ = 0;
  std::uint8_t lowest_ = 0x80;
  std::uint8_t highest_ = 0xBF;
};

}  // namespace explorer
