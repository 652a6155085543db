#include "CellValue.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "Ascii.h"

namespace explorer {

std::optional<double> cellValue(std::string_view cell) {
  constexpr double absent = std::numeric_limits<double>::quiet_NaN();
  std::string_view text = withoutBlanks(cell);
  if (text.empty()) return absent;

  const bool hasSign = text.front() == '+' || text.front() == '-';
  if (lowerCase(text.substr(hasSign ? 1 : 0)) == "nan") return absent;

  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stopped != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace explorer
