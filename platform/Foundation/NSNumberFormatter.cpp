#include <Foundation/NSNumberFormatter.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

namespace vexel {

namespace {

int accepted(int digits) {
  return std::clamp(digits, 0, NSNumberFormatter::kMaximumDigits);
}

}  // namespace

void NSNumberFormatter::setMinimumIntegerDigits(int digits) {
  minimumIntegerDigits_ = accepted(digits);
}

void NSNumberFormatter::setMinimumFractionDigits(int digits) {
  minimumFractionDigits_ = accepted(digits);
  maximumFractionDigits_ = std::max(maximumFractionDigits_, minimumFractionDigits_);
}

void NSNumberFormatter::setMaximumFractionDigits(int digits) {
  maximumFractionDigits_ = accepted(digits);
  minimumFractionDigits_ = std::min(minimumFractionDigits_, maximumFractionDigits_);
}

std::string NSNumberFormatter::string(double value) const {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "+∞" : "-∞";

  // Sign, 309 integer digits at most, point, fraction. The conversion rounds the exact binary
  // value half to even and knows no locale.
  std::vector<char> buffer(1 + kMaximumDigits + 1 + kMaximumDigits);
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                 std::chars_format::fixed, maximumFractionDigits_)
                       .ptr;
  std::string digits(buffer.data(), end);

  std::string fraction;
  if (const auto point = digits.find('.'); point != std::string::npos) {
    fraction = digits.substr(point + 1);
    digits.resize(point);
  }
  const auto lastNonZero = fraction.find_last_not_of('0');
  const std::size_t needed = lastNonZero == std::string::npos ? 0 : lastNonZero + 1;
  fraction.resize(std::max<std::size_t>(needed, minimumFractionDigits_));

  const bool isZero = needed == 0 && digits == "0";
  if (digits == "0") digits.clear();
  if (digits.size() < static_cast<std::size_t>(minimumIntegerDigits_))
    digits.insert(0, minimumIntegerDigits_ - digits.size(), '0');
  if (digits.empty() && fraction.empty()) digits = "0";

  std::string text = value < 0 && !isZero ? "-" : "";
  text += digits;
  if (!fraction.empty()) text += "." + fraction;
  return text;
}

}  // namespace vexel
