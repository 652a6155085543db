#pragma once

#include <cmath>
#include <numbers>
#include <random>

namespace gallery {

/// Random numbers that are the same everywhere.
class Random {
 public:
  explicit Random(unsigned seed) : engine_(seed) {}

  /// Above 0, below 1, evenly.
  double uniform() { return (static_cast<double>(engine_()) + 0.5) / 4294967296; }
  /// Of mean 0 and deviation 1.
  double normal() {
    const double radius = std::sqrt(-2 * std::log(uniform()));
    return radius * std::cos(2 * std::numbers::pi * uniform());
  }

 private:
  std::mt19937 engine_;
};

}  // namespace gallery
