#include "Utf8.h"

namespace vexel {

namespace {

// What a lead byte demands: how many bytes follow, and what the first of them may be.
struct Sequence {
  std::size_t following;
  unsigned char low;
  unsigned char high;
};

// The bounds of the second byte keep out overlong forms, surrogates and values beyond U+10FFFF.
bool sequenceFor(unsigned char lead, Sequence& sequence) {
  if (lead >= 0x01 && lead <= 0x7f) return sequence = {0, 0, 0}, true;
  if (lead >= 0xc2 && lead <= 0xdf) return sequence = {1, 0x80, 0xbf}, true;
  if (lead == 0xe0) return sequence = {2, 0xa0, 0xbf}, true;
  if (lead == 0xed) return sequence = {2, 0x80, 0x9f}, true;
  if (lead >= 0xe1 && lead <= 0xef) return sequence = {2, 0x80, 0xbf}, true;
  if (lead == 0xf0) return sequence = {3, 0x90, 0xbf}, true;
  if (lead >= 0xf1 && lead <= 0xf3) return sequence = {3, 0x80, 0xbf}, true;
  if (lead == 0xf4) return sequence = {3, 0x80, 0x8f}, true;
  return false;
}

}  // namespace

std::string validUtf8(std::string_view bytes) {
  constexpr std::string_view kReplacement = "\xef\xbf\xbd";
  std::string result;
  result.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    Sequence sequence{};
    if (!sequenceFor(static_cast<unsigned char>(bytes[i]), sequence)) {
      result += kReplacement;
      ++i;
      continue;
    }
    std::size_t length = 1;
    while (length <= sequence.following && i + length < bytes.size()) {
      const auto byte = static_cast<unsigned char>(bytes[i + length]);
      const unsigned char low = length == 1 ? sequence.low : 0x80;
      const unsigned char high = length == 1 ? sequence.high : 0xbf;
      if (byte < low || byte > high) break;
      ++length;
    }
    if (length == sequence.following + 1)
      result += bytes.substr(i, length);
    else
      result += kReplacement;
    i += length;
  }
  return result;
}

}  // namespace vexel
