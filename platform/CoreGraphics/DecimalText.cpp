#include "DecimalText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vexel {

std::string decimalText(double value) {
  if (std::isnan(value)) return "nan";
  if (std::isinf(value)) return value > 0 ? "inf" : "-inf";
  std::array<char, 320> buffer;  // sign, 309 digits, point, 4 decimals
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, 4)
                       .ptr;
  std::string text(buffer.data(), end);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

}  // namespace vexel
