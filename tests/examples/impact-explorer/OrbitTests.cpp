#include "Orbit.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(Orbit, TheEarthTakesAYearAtThirtyKilometresPerSecond) {
  const Orbit earth(1, 0, 0);
  EXPECT_NEAR(earth.period(), 365.2569, 1e-3);
  EXPECT_NEAR(circularSpeed(1), 29.785, 1e-3);
  const auto state = earth.at(100);
  EXPECT_DOUBLE_EQ(state.distance, 1);
  EXPECT_NEAR(state.trueAnomaly, 2 * std::numbers::pi * 100 / earth.period(), 1e-12);
  EXPECT_EQ(state.radialSpeed, 0);
}

TEST(Orbit, PeriodsFollowTheThirdLaw) {
  EXPECT_NEAR(Orbit(4, 0.3, 0).period() / Orbit(1, 0.8, 0).period(), 8, 1e-12);
}

TEST(Orbit, EnergyAndAngularMomentumStayTheSame) {
  for (const double eccentricity : {0.0, 0.01, 0.55, 0.89}) {
    const double a = 0.75;
    const Orbit orbit(a, eccentricity, 2459000.5);
    for (int i = -130; i < 240; ++i) {
      const auto s = orbit.at(2459000.5 + i / 100.0 * orbit.period());
      const double speed = std::hypot(s.radialSpeed, s.transverseSpeed);
      EXPECT_NEAR(speed, circularSpeed(1) * std::sqrt(2 / s.distance - 1 / a), 1e-9);
      EXPECT_NEAR(s.distance * s.transverseSpeed,
                  circularSpeed(1) * std::sqrt(a * (1 - eccentricity * eccentricity)), 1e-9);
      EXPECT_NEAR(
          s.distance,
          a * (1 - eccentricity * eccentricity) / (1 + eccentricity * std::cos(s.trueAnomaly)),
          1e-9);
    }
  }
}

TEST(Orbit, RadialSpeedIsTheChangeOfDistance) {
  const Orbit orbit(0.75, 0.55, 0);
  constexpr double step = 1e-3;
  constexpr double kilometresPerSecond = 149597870.7 / 86400;
  for (int day = 0; day < 237; day += 7) {
    const double change =
        (orbit.at(day + step).distance - orbit.at(day - step).distance) / 2 / step;
    EXPECT_NEAR(orbit.at(day).radialSpeed, change * kilometresPerSecond, 1e-4);
  }
}

TEST(Orbit, PassesPerihelionAndAphelionInTime) {
  const Orbit orbit(0.75, 0.55, 42);
  EXPECT_NEAR(orbit.at(42).distance, 0.75 * 0.45, 1e-12);
  EXPECT_NEAR(orbit.at(42 - 3 * orbit.period()).distance, 0.75 * 0.45, 1e-12);
  const auto aphelion = orbit.at(42 + orbit.period() / 2);
  EXPECT_NEAR(aphelion.distance, 0.75 * 1.55, 1e-12);
  EXPECT_NEAR(aphelion.trueAnomaly, std::numbers::pi, 1e-12);
}

}  // namespace
}  // namespace explorer
