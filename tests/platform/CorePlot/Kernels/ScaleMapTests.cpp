#include <Kernels/ScaleMap.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace vexel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(ScaleMap, AgreesWithTheScale) {
  const AxisScale scales[] = {
      {0, 1, false, 100},
      {0, -1, false, 100},
      {1e9, 1e-6, false, 1500},
      {2451545, 1e-5, false, 9},
      {-1e308, 1e308, false, 7},
      {0, 5e-324, false, 100},
      {-kLargest, kLargest, false, 100},
      {1, 999, true, 100},
      {1000, -999, true, 100},
      {1, 1e-9, true, 100},
      {1e-320, 1, true, 100},
      {5e-324, kLargest, true, 100},
  };
  const double values[] = {0,           -0.0,           1,         -1,        0.5,       1e9,
                           1e9 + 1e-7,  2451545.000001, 5e-324,    -5e-324,   1e-320,    1e308,
                           -1e308,      kLargest,       -kLargest, 1 + 5e-10, kInfinity, -kInfinity,
                           std::nan("")};
  for (const AxisScale& scale : scales) {
    ASSERT_TRUE(scale.isDrawable());
    for (const double factor : {1.0, -2.0, 1.5}) {
      const ScaleMap map(scale, factor, 30);
      for (const double value : values) {
        const double expected = scale.position(value) * factor + 30;
        const double found = map(value);
        if (!std::isfinite(expected)) {
          EXPECT_FALSE(std::isfinite(found)) << value;
        } else {
          EXPECT_NEAR(found, expected, 1e-6 + 1e-12 * std::abs(expected))
              << value << " from " << scale.location << " over " << scale.length;
        }
      }
    }
  }
}

TEST(ScaleMap, PlacesManyValuesLikeSingleOnes) {
  const AxisScale scales[] = {{3, 7, false, 100}, {-1e308, 1e308, false, 7}, {1, 999, true, 100}};
  for (const AxisScale& scale : scales)
    for (const double odd : {4.0, std::nan(""), kInfinity, -kInfinity, kLargest, -kLargest})
      for (std::size_t count = 0; count <= 9; ++count)
        for (std::size_t oddPlace = 0; oddPlace <= count; ++oddPlace) {
          std::vector<double> values(count);
          for (std::size_t i = 0; i < count; ++i) values[i] = static_cast<double>(i * i) - 5;
          if (oddPlace < count) values[oddPlace] = odd;
          const ScaleMap map(scale, -1.5, 30);
          std::vector<double> places(count);
          map(values, places.data());
          for (std::size_t i = 0; i < count; ++i) {
            const double expected = map(values[i]);
            if (std::isnan(expected))
              EXPECT_TRUE(std::isnan(places[i])) << values[i];
            else
              EXPECT_EQ(places[i], expected) << values[i];
          }
        }
}

}  // namespace
}  // namespace vexel
