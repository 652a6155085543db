#include <Kitbase/MajorInterval.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace vexel {
namespace {

using Double = std::numeric_limits<double>;
using Float = std::numeric_limits<float>;

/// Ranges drawn at a time.
constexpr int kBatch = 100;

template <class Number>
Number interval(Number lower, Number upper, Number scale) {
  return getOptimimumMajorInterval(std::array{lower, upper}, scale);
}

/// Any bit pattern, all equally likely: every magnitude, NaN, infinities and denormal numbers.
template <class Number, class Bits>
Number anyNumber() {
  return std::bit_cast<Number>(*rc::gen::resize(rc::kNominalSize, rc::gen::arbitrary<Bits>()));
}

/// The shortest text of the number starts with 1, 2 or 5 and goes on with zeros or an exponent.
template <class Number>
bool isRound(Number number) {
  std::array<char, 64> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific);
  const std::string digits(text.data(), end);
  return digits[1] == 'e' && std::string("125").find(digits[0]) != std::string::npos;
}

template <class Number>
struct Case {
  Number lower, upper, scale, interval;
};

template <class Number>
void expectIntervals(const std::vector<Case<Number>>& cases) {
  for (const auto& [lower, upper, scale, expected] : cases) {
    EXPECT_EQ(interval(lower, upper, scale), expected) << lower << " " << upper << " " << scale;
    EXPECT_EQ(interval(upper, lower, scale), expected) << "reversed";
    EXPECT_EQ(interval(lower, upper, -scale), expected) << "upside down";
  }
}

TEST(MajorInterval, OfDoublesIsDefinedForEveryInput) {
  const double nan = Double::quiet_NaN();
  const double infinity = Double::infinity();
  const double smallest = Double::denorm_min();
  const double largest = Double::max();
  expectIntervals<double>({
      {nan, 1, 1, 1},
      {nan, nan, 1, 1},
      {0, 1, nan, 1},
      {infinity, infinity, 1, 1},
      {1, 1, infinity, 1},
      {-infinity, infinity, 0, 1},
      {5, 5, 1, 1},
      {0, 1, 0, 1},
      {0, 1e-200, 1e-200, 1},
      {0, infinity, 1, 2e307},
      {-infinity, infinity, 1, 2e307},
      {0, 1, infinity, 2e307},
      {-1e308, 1e308, 1, 2e307},
      {-largest, largest, largest, 2e307},
      {0, 1e200, 1e200, 2e307},
      {0, largest, 1, 2e307},
      {0, 1e308, 1, 2e307},
      {0, smallest, 1, smallest},
      {0, 3 * smallest, 1, smallest},
      {0, 4 * smallest, 1, smallest},
      {0, 8 * smallest, 1, 2 * smallest},
      {0, 1e-320, 1, 2e-321},
      {0, Double::min(), 1, 5e-309},
      {1, 1 + Double::epsilon(), 1, 5e-17},
  });
}

TEST(MajorInterval, OfFloatsIsDefinedForEveryInput) {
  const float nan = Float::quiet_NaN();
  const float infinity = Float::infinity();
  const float smallest = Float::denorm_min();
  const float largest = Float::max();
  expectIntervals<float>({
      {nan, 1, 1, 1},
      {0, 1, nan, 1},
      {infinity, infinity, 1, 1},
      {1, 1, infinity, 1},
      {0, infinity, 0, 1},
      {5, 5, 1, 1},
      {16777216.0f, 16777217.0f, 1, 1},
      {0, 1, 0, 1},
      {0, 1e-30f, 1e-30f, 1},
      {0, infinity, 1, 5e37f},
      {0, 1, infinity, 5e37f},
      {-3e38f, 3e38f, 1, 5e37f},
      {-largest, largest, largest, 5e37f},
      {0, 1e30f, 1e30f, 5e37f},
      {0, largest, 1, 5e37f},
      {0, smallest, 1, smallest},
      {0, 3 * smallest, 1, smallest},
      {0, 4 * smallest, 1, smallest},
      {0, 1e-40f, 1, 2e-41f},
      {0, 1e-43f, 1, 2e-44f},
      {0, Float::min(), 1, 2e-39f},
  });
}

TEST(MajorInterval, IsTheLargestRoundNumberThatFitsFourTimes) {
  expectIntervals<double>({
      {0, 0.5, 1, 0.1},
      {0, 0.8, 1, 0.2},
      {0, 1, 1, 0.2},
      {0, std::nextafter(2, 0), 1, 0.2},
      {0, 2, 1, 0.5},
      {0, std::nextafter(4, 0), 1, 0.5},
      {0, 4, 1, 1},
      {0, std::nextafter(8, 0), 1, 1},
      {0, 8, 1, 2},
      {0, std::nextafter(10, 0), 1, 2},
      {0, 10, 1, 2},
      {0, 1000, 1, 200},
      {0, std::nextafter(1000, 0), 1, 200},
      {2, 10, 1000, 2000},
      {-90, 90, 1, 20},
      {0, 0.3, 1, 0.05},
      {2451544.5, 2451910.5, 1, 50},
      {0, 3e-15, 1, 5e-16},
      {0, 7e22, 1, 1e22},
  });
}

TEST(MajorInterval, OfFloatsIsTheFloatNearestToTheDecimalNumber) {
  expectIntervals<float>({
      {0, 0.5f, 1, 0.1f},
      {0, 0.8f, 1, 0.2f},
      {0, 1, 1, 0.2f},
      {0, std::nextafter(8.0f, 0.0f), 1, 1},
      {0, 8, 1, 2},
      {0, 3, 0.1f, 0.05f},
      {0, 5e-9f, 1, 1e-9f},
      {0, 7e22f, 1, 1e22f},
  });
}

TEST(MajorInterval, LooksAtTheFirstTwoValues) {
  const std::vector<double> doubles = {0, 10, 1e6};
  const std::vector<float> floats = {0, 10, Float::quiet_NaN()};
  EXPECT_EQ(getOptimimumMajorInterval(doubles, 1.0), 2);
  EXPECT_EQ(getOptimimumMajorInterval(floats, 1.0f), 2);
}

TEST(MajorInterval, NeedsTwoValues) {
  const char* message =
      "Fatal error: getOptimimumMajorInterval: the range has fewer than two values";
  EXPECT_DEATH(getOptimimumMajorInterval(std::vector<double>{}, 1.0), message);
  EXPECT_DEATH(getOptimimumMajorInterval(std::vector<double>{1}, 1.0), message);
  EXPECT_DEATH(getOptimimumMajorInterval(std::vector<float>{}, 1.0f), message);
  EXPECT_DEATH(getOptimimumMajorInterval(std::vector<float>{1}, 1.0f), message);
}

/// 10, and among the few denormal numbers, where 2e-45f is 1e-45f, more.
template <class Number>
Number mostTimes(Number interval) {
  return interval < std::numeric_limits<Number>::min() ? 15 : 10;
}

template <class Number>
void expectFourToTenTimesAtTheEdgesOfDecades() {
  using Limits = std::numeric_limits<Number>;
  for (int exponent = Limits::min_exponent10; exponent < Limits::max_exponent10; ++exponent)
    for (char digit : {'1', '2', '4', '8'}) {
      const std::string text = digit + ("e" + std::to_string(exponent));
      Number edge = 0;
      std::from_chars(text.data(), text.data() + text.size(), edge);
      for (Number toward : {Number{0}, edge, Limits::max()}) {
        const Number span = std::nextafter(edge, toward);
        const Number found = interval<Number>(0, span, 1);
        EXPECT_GE(span, 4 * found) << text;
        EXPECT_LE(span / found, mostTimes(found)) << text;
      }
    }
}

TEST(MajorInterval, FitsFourToTenTimesAtTheEdgesOfEveryDecade) {
  expectFourToTenTimesAtTheEdgesOfDecades<double>();
  expectFourToTenTimesAtTheEdgesOfDecades<float>();
}

TEST(MajorInterval, FitsFourToFifteenTimesIntoTheSmallestSpans) {
  for (int multiple = 4; multiple < 10000; ++multiple) {
    const double span = multiple * Double::denorm_min();
    const float floatSpan = static_cast<float>(multiple) * Float::denorm_min();
    EXPECT_GE(span / interval(0.0, span, 1.0), 4) << multiple;
    EXPECT_LE(span / interval(0.0, span, 1.0), 15) << multiple;
    EXPECT_GE(floatSpan / interval(0.0f, floatSpan, 1.0f), 4) << multiple;
    EXPECT_LE(floatSpan / interval(0.0f, floatSpan, 1.0f), 15) << multiple;
  }
}

template <class Number>
void checkInterval(Number lower, Number upper, Number scale) {
  using Limits = std::numeric_limits<Number>;
  const Number found = interval(lower, upper, scale);
  RC_ASSERT(found > 0 && std::isfinite(found));
  if (found >= Limits::min()) RC_ASSERT(isRound(found));
  const Number span = std::abs(upper - lower) * std::abs(scale);
  if (!(span >= 4 * Limits::denorm_min()) || std::isinf(span)) return;
  RC_ASSERT(span >= 4 * found);
  RC_ASSERT(span / found <= mostTimes(found));
}

RC_GTEST_PROP(MajorInterval, OfAnyDoublesIsPositiveAndFitsFourToTenTimes, ()) {
  const auto any = anyNumber<double, std::uint64_t>;
  for (int i = 0; i < kBatch; ++i) {
    checkInterval(any(), any(), any());
    checkInterval(0.0, any(), 1.0);
  }
}

RC_GTEST_PROP(MajorInterval, OfAnyFloatsIsPositiveAndFitsFourToTenTimes, ()) {
  const auto any = anyNumber<float, std::uint32_t>;
  for (int i = 0; i < kBatch; ++i) {
    checkInterval(any(), any(), any());
    checkInterval(0.0f, any(), 1.0f);
  }
}

}  // namespace
}  // namespace vexel
