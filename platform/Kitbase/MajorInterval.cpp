#include <Foundation/FatalError.h>
#include <Kitbase/MajorInterval.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>

namespace vexel {

namespace {

constexpr int kFewestIntervals = 4;

/// digit * 10^exponent as the nearest number of the type; 0 when that is beyond the type.
template <class Number>
Number decimal(char digit, int exponent) {
  char text[16] = {digit, 'e'};
  const char* end = std::to_chars(text + 2, std::end(text), exponent).ptr;
  Number value = 0;
  std::from_chars(text, end, value);
  return value;
}

template <class Number>
Number majorInterval(std::span<const Number> range, Number scale) {
  using Limits = std::numeric_limits<Number>;
  if (range.size() < 2)
    fatalError("getOptimimumMajorInterval: the range has fewer than two values");

  const Number span = std::min(std::abs(range[1] - range[0]) * std::abs(scale), Limits::max());
  if (!(span > 0)) return 1;

  const int exponent = static_cast<int>(std::floor(std::log10(span)));
  for (int e : {exponent, exponent - 1})
    for (char digit : {'5', '2', '1'}) {
      const Number interval = decimal<Number>(digit, e);
      if (interval > 0 && interval * kFewestIntervals <= span) return interval;
    }
  return Limits::denorm_min();
}

}  // namespace

double getOptimimumMajorInterval(std::span<const double> range, double scale) {
  return majorInterval(range, scale);
}

float getOptimimumMajorInterval(std::span<const float> range, float scale) {
  return majorInterval(range, scale);
}

}  // namespace vexel
