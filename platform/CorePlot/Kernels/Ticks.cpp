#include <Kernels/Ticks.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <utility>

namespace vexel {

namespace {

constexpr double kEndTolerance = 1e-9;
constexpr double kLargestIndex = 0x1p53;
constexpr int kMaximumDivisions = 10000;
constexpr int kFallbackTicks = 5;
constexpr int kFallbackMinorTicks = 1;

/// digit * 10^exponent, the double nearest to that decimal number; 0 or infinity outside them.
double decimal(int digit, int exponent) {
  char text[16] = {static_cast<char>('0' + digit), 'e'};
  const char* end = std::to_chars(text + 2, std::end(text), exponent).ptr;
  double value = 0;
  if (std::from_chars(text, end, value).ec == std::errc::result_out_of_range)
    return exponent < 0 ? 0 : std::numeric_limits<double>::infinity();
  return value;
}

/// 1, 2, 5, 10, 20, 50, ...
std::int64_t nextStep(std::int64_t step) {
  std::int64_t leading = step;
  while (leading >= 10) leading /= 10;
  return leading == 2 ? step / 2 * 5 : step * 2;
}

struct Indices {
  double first;
  double last;

  double count() const { return std::max(0.0, last - first + 1); }
  Indices multiplesOf(std::int64_t step) const {
    const double s = static_cast<double>(step);
    return {std::ceil(first / s), std::floor(last / s)};
  }
  bool areExact() const {
    return std::abs(first) <= kLargestIndex && std::abs(last) <= kLargestIndex;
  }
};

Indices indicesInside(double lower, double upper, double origin, double spacing) {
  return {std::ceil((lower - origin) / spacing - kEndTolerance),
          std::floor((upper - origin) / spacing + kEndTolerance)};
}

/// Calls `use` with each of them. Integers count where the next double may be the same.
template <class Use>
void visit(const Indices& indices, Use&& use) {
  const auto last = static_cast<std::int64_t>(indices.last);
  for (auto k = static_cast<std::int64_t>(indices.first); k <= last; ++k)
    use(static_cast<double>(k));
}

/// number * interval; where the interval is one over an integer, as 0.1 is, the quotient has the
/// digits that the product loses.
double multiple(double number, double interval) {
  const double inverse = std::round(1 / interval);
  return 1 / inverse == interval ? number / inverse : number * interval;
}

void dropRepetitions(Ticks& ticks) {
  auto& [major, minor] = ticks;
  major.erase(std::unique(major.begin(), major.end()), major.end());
  minor.erase(std::unique(minor.begin(), minor.end()), minor.end());
  std::vector<double> others;
  std::set_difference(minor.begin(), minor.end(), major.begin(), major.end(),
                      std::back_inserter(others));
  minor = std::move(others);
}

double niceIntervalNear(double wanted) {
  if (!(wanted > 0)) return std::numeric_limits<double>::denorm_min();
  const double logarithm = std::log10(std::min(wanted, 1e308));
  const double decade = std::floor(logarithm);
  const int exponent = static_cast<int>(decade);
  // Each digit is taken from the geometric middle between it and its neighbours.
  const double place = logarithm - decade;
  const double interval = place < std::log10(2) / 2    ? decimal(1, exponent)
                          : place < 0.5                ? decimal(2, exponent)
                          : place < std::log10(50) / 2 ? decimal(5, exponent)
                                                       : decimal(1, exponent + 1);
  return std::clamp(interval, std::numeric_limits<double>::denorm_min(), 1e308);
}

void appendIfInside(std::vector<double>& ticks, double tick, double lower, double upper) {
  if (std::isfinite(tick) && tick >= lower * (1 - kEndTolerance) &&
      tick <= upper * (1 + kEndTolerance))
    ticks.push_back(std::clamp(tick, lower, upper));
}

struct Exponents {
  int first;
  int last;
};

Ticks ticksAtDigits(double lower, double upper, Exponents decades, bool (*isMajor)(int digit)) {
  Ticks ticks;
  for (int exponent = decades.first; exponent <= decades.last; ++exponent)
    for (int digit = 1; digit <= 9; ++digit)
      appendIfInside(isMajor(digit) ? ticks.major : ticks.minor, decimal(digit, exponent), lower,
                     upper);
  dropRepetitions(ticks);
  return ticks;
}

Ticks ticksAtEveryNthDecade(double lower, double upper, Exponents decades, int maximumCount) {
  Ticks ticks;
  for (std::int64_t step = 1;; step = nextStep(step)) {
    for (int exponent = decades.first; exponent <= decades.last; ++exponent)
      if (exponent % step == 0) appendIfInside(ticks.major, decimal(1, exponent), lower, upper);
    if (std::ssize(ticks.major) <= maximumCount) return ticks;
    ticks.major.clear();
  }
}

}  // namespace

Ticks fixedIntervalTicks(double lower, double upper, double interval, double origin,
                         int minorPerInterval, int maximumCount) {
  if (upper < lower) std::swap(lower, upper);
  if (!(interval > 0) || !std::isfinite(interval) || maximumCount < 1) return {};
  const Indices all = indicesInside(lower, upper, origin, interval);
  if (!all.areExact()) return {};

  std::int64_t step = 1;
  while (all.multiplesOf(step).count() > maximumCount) step = nextStep(step);

  Ticks ticks;
  const double indicesPerMajor = static_cast<double>(step);
  const Indices majors = all.multiplesOf(step);
  visit(majors, [&](double k) {
    ticks.major.push_back(
        std::clamp(origin + multiple(k * indicesPerMajor, interval), lower, upper));
  });

  const double parts = std::max(0, minorPerInterval) + 1.0;
  const Indices minors = indicesInside(lower, upper, origin, interval * (indicesPerMajor / parts));
  if (minors.areExact() && minors.count() - majors.count() <= maximumCount)
    visit(minors, [&](double k) {
      if (std::fmod(k, parts) != 0)
        ticks.minor.push_back(
            std::clamp(origin + multiple(k / parts * indicesPerMajor, interval), lower, upper));
    });

  dropRepetitions(ticks);
  return ticks;
}

Ticks logarithmicTicks(double lower, double upper, int maximumCount) {
  if (upper < lower) std::swap(lower, upper);
  if (!(lower > 0) || !(lower < upper) || !std::isfinite(upper) || maximumCount < 1) return {};
  const double lowest = std::log10(lower) - kEndTolerance;
  const double highest = std::log10(upper) + kEndTolerance;
  const Exponents decades = {static_cast<int>(std::floor(lowest)),
                             static_cast<int>(std::floor(highest))};

  Ticks ticks;
  if (highest - lowest < 2) {
    ticks = ticksAtDigits(lower, upper, decades,
                          [](int digit) { return digit == 1 || digit == 2 || digit == 5; });
    if (ticks.major.size() < 2)
      return automaticTicks(lower, upper, std::min(kFallbackTicks, maximumCount),
                            kFallbackMinorTicks, maximumCount);
    if (std::ssize(ticks.major) > maximumCount)
      return ticksAtEveryNthDecade(lower, upper, decades, maximumCount);
  } else {
    ticks = ticksAtDigits(lower, upper, decades, [](int digit) { return digit == 1; });
    if (std::ssize(ticks.major) > maximumCount)
      return ticksAtEveryNthDecade(lower, upper, decades, maximumCount);
  }
  if (std::ssize(ticks.minor) > maximumCount) ticks.minor.clear();
  return ticks;
}

Ticks automaticTicks(double lower, double upper, int about, int minorPerInterval,
                     int maximumCount) {
  if (!std::isfinite(lower) || !std::isfinite(upper) || lower == upper) return {};
  const double parts = std::max(1, about);
  const double interval = niceIntervalNear(std::abs(upper / parts - lower / parts));
  return fixedIntervalTicks(lower, upper, interval, 0, minorPerInterval, maximumCount);
}

Ticks equalDivisionTicks(double lower, double upper, int divisions, int minorPerInterval) {
  if (upper < lower) std::swap(lower, upper);
  if (!std::isfinite(lower) || !std::isfinite(upper) || lower == upper) return {};
  if (divisions < 1 || divisions > kMaximumDivisions) return {};

  Ticks ticks;
  for (int i = 0; i <= divisions; ++i)
    ticks.major.push_back(std::lerp(lower, upper, static_cast<double>(i) / divisions));
  if (minorPerInterval > 0 && minorPerInterval <= kMaximumDivisions / divisions) {
    const int parts = minorPerInterval + 1;
    for (int i = 0; i < divisions * parts; ++i)
      if (i % parts != 0)
        ticks.minor.push_back(std::lerp(lower, upper, i / (1.0 * divisions * parts)));
  }
  dropRepetitions(ticks);
  return ticks;
}

double niceInterval(double span, int about) {
  if (span == 0 || !std::isfinite(span)) return 1;
  return niceIntervalNear(std::abs(span) / std::max(1, about));
}

}  // namespace vexel
