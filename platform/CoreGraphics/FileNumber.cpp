#include "FileNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace vexel {

namespace {

std::int64_t unitsInOne(int decimals) {
  constexpr std::array<std::int64_t, 13> kPowers = {1,
                                                    10,
                                                    100,
                                                    1'000,
                                                    10'000,
                                                    100'000,
                                                    1'000'000,
                                                    10'000'000,
                                                    100'000'000,
                                                    1'000'000'000,
                                                    10'000'000'000,
                                                    100'000'000'000,
                                                    1'000'000'000'000};
  return kPowers[static_cast<std::size_t>(decimals)];
}

}  // namespace

std::int64_t fileUnits(double value, int decimals) {
  // Far inside 64 bits.
  constexpr double kMost = 1e18;
  if (std::isnan(value)) return 0;
  const double units = value * static_cast<double>(unitsInOne(decimals));
  return std::llround(std::clamp(units, -kMost, kMost));
}

void appendUnits(std::string& text, std::int64_t units, int decimals) {
  if (units < 0) text += '-';
  const std::int64_t one = unitsInOne(decimals);
  const std::int64_t whole = std::abs(units) / one;
  std::int64_t rest = std::abs(units) % one;
  std::array<char, 24> digits;
  text.append(digits.data(),
              std::to_chars(digits.data(), digits.data() + digits.size(), whole).ptr);
  if (rest == 0) return;
  text += '.';
  for (std::int64_t place = one / 10; rest != 0; place /= 10) {
    text += static_cast<char>('0' + rest / place);
    rest %= place;
  }
}

void appendNumber(std::string& text, double value, int decimals) {
  appendUnits(text, fileUnits(value, decimals), decimals);
}

}  // namespace vexel
