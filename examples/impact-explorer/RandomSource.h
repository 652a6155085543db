#pragma once

#include <cstdint>

namespace explorer {

/// Pseudo-random numbers that are the same on every machine: integers by SplitMix64, distributions
/// by closed formulas instead of the library's, which differ between implementations.
class RandomSource {
 public:
  explicit RandomSource(std::uint64_t seed) : state_(seed) {}

  /// All 64-bit numbers are equally likely.
  std::uint64_t next();
  /// Uniform on [0, 1), a multiple of 2^-53.
  double uniform();
  /// Exponential with mean 1.
  double exponential();
  /// Normal with mean 0 and standard deviation 1.
  double normal();

 private:
  std::uint64_t state_;
};

}  // namespace explorer
