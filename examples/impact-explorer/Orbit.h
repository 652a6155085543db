#pragma once

namespace explorer {

/// An elliptic orbit around the Sun.
class Orbit {
 public:
  /// Where a body is and how fast it moves, in the plane of its orbit.
  struct State {
    /// Distance from the Sun, au.
    double distance;
    /// Angle from perihelion, 0 to 2 pi, growing in the direction of motion.
    double trueAnomaly;
    /// Speed away from the Sun, and along the direction of motion at right angles to it, km/s.
    double radialSpeed;
    double transverseSpeed;
  };

  /// `semiMajorAxis` in au, `eccentricity` from 0 to below 1, `perihelionDay` any day on which the
  /// body passes its perihelion.
  Orbit(double semiMajorAxis, double eccentricity, double perihelionDay);

  /// Days.
  double period() const;
  State at(double day) const;

 private:
  double semiMajorAxis_;
  double eccentricity_;
  double perihelionDay_;
};

/// Speed of a body on a circular orbit at `distance` au, km/s.
double circularSpeed(double distance);

}  // namespace explorer
