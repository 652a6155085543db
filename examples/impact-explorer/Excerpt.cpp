#include "Excerpt.h"

#include <algorithm>

namespace explorer {
namespace {

bool isControl(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool continuesCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result(text);
  std::ranges::replace_if(result, isControl, '?');
  return result;
}

std::string excerpt(std::string_view text) {
  if (text.size() <= longestExcerpt) return '"' + printable(text) + '"';
  std::size_t end = longestExcerpt;
  while (end > 0 && continuesCharacter(text[end])) --end;
  return '"' + printable(text.substr(0, end)) + "...\"";
}

}  // namespace explorer
