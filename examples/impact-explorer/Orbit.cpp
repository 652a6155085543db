#include "Orbit.h"

#include <cmath>
#include <numbers>

namespace explorer {
namespace {

constexpr double sunGravity = 1.32712440018e11;   // km^3/s^2
constexpr double astronomicalUnit = 149597870.7;  // km
constexpr double secondsPerDay = 86400;

/// The angle E with E - e sin E = M, by Newton's method.
double eccentricAnomaly(double meanAnomaly, double eccentricity) {
  constexpr int mostSteps = 50;
  constexpr double accuracy = 1e-14;
  double angle = meanAnomaly + eccentricity * std::sin(meanAnomaly);
  for (int step = 0; step < mostSteps; ++step) {
    const double correction = (angle - eccentricity * std::sin(angle) - meanAnomaly) /
                              (1 - eccentricity * std::cos(angle));
    angle -= correction;
    if (std::abs(correction) < accuracy) break;
  }
  return angle;
}

}  // namespace

double circularSpeed(double distance) {
  return std::sqrt(sunGravity / (distance * astronomicalUnit));
}

Orbit::Orbit(double semiMajorAxis, double eccentricity, double perihelionDay)
    : semiMajorAxis_(semiMajorAxis), eccentricity_(eccentricity), perihelionDay_(perihelionDay) {}

double Orbit::period() const {
  const double circumference = 2 * std::numbers::pi * semiMajorAxis_ * astronomicalUnit;
  return circumference / circularSpeed(semiMajorAxis_) / secondsPerDay;
}

Orbit::State Orbit::at(double day) const {
  const double revolutions = (day - perihelionDay_) / period();
  const double meanAnomaly = 2 * std::numbers::pi * (revolutions - std::floor(revolutions));
  const double angle = eccentricAnomaly(meanAnomaly, eccentricity_);
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  const double flattening = std::sqrt(1 - eccentricity_ * eccentricity_);
  const double shrinkage = 1 - eccentricity_ * cosine;
  const double trueAnomaly = std::atan2(flattening * sine, cosine - eccentricity_);
  const double speed = circularSpeed(semiMajorAxis_);
  return {.distance = semiMajorAxis_ * shrinkage,
          .trueAnomaly = trueAnomaly < 0 ? trueAnomaly + 2 * std::numbers::pi : trueAnomaly,
          .radialSpeed = speed * eccentricity_ * sine / shrinkage,
          .transverseSpeed = speed * flattening / shrinkage};
}

}  // namespace explorer
