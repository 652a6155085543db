#include "QuickLogarithm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace vexel {
namespace {

using Limits = std::numeric_limits<double>;

TEST(QuickLogarithm, IsNoneOfZeroAndDenormalValues) {
  const QuickLogarithm quick;
  for (const double value : {0.0, Limits::denorm_min(), std::nextafter(Limits::min(), 0)})
    EXPECT_TRUE(std::isnan(quick(value))) << value;
}

TEST(QuickLogarithm, IsNearTheLogarithm) {
  const QuickLogarithm quick;
  for (const double value : {Limits::min(), 1.0, std::nextafter(1, 0), std::nextafter(1, 2), 10.0,
                             1e-300, std::nextafter(2, 0), Limits::max()})
    EXPECT_NEAR(quick(value), std::log10(value), QuickLogarithm::kError) << value;

  std::mt19937_64 random(1);
  std::uniform_real_distribution<double> decade(-307, 308);
  double farthest = 0;
  for (int i = 0; i < 1'000'000; ++i) {
    const double value = std::pow(10, decade(random));
    farthest = std::max(farthest, std::abs(quick(value) - std::log10(value)));
  }
  EXPECT_LT(farthest, QuickLogarithm::kError / 10);
}

TEST(QuickLogarithm, IsNearTheLogarithmAtTheEdgesOfItsTable) {
  const QuickLogarithm quick;
  for (int i = 0; i <= 512; ++i)
    for (const double step : {-1.0, 0.0, 1.0}) {
      const double value = (1 + i / 256.0) * (1 + step * Limits::epsilon());
      EXPECT_NEAR(quick(value), std::log10(value), QuickLogarithm::kError / 10) << value;
    }
}

}  // namespace
}  // namespace vexel
