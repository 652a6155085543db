#include "RandomSource.h"

#include <cmath>
#include <numbers>

namespace explorer {

std::uint64_t RandomSource::next() {
  state_ += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
  return mixed ^ (mixed >> 31);
}

double RandomSource::uniform() {
  return static_cast<double>(next() >> 11) * 0x1p-53;
}

double RandomSource::exponential() {
  return -std::log(1 - uniform());
}

double RandomSource::normal() {
  const double radius = std::sqrt(2 * exponential());
  return radius * std::cos(2 * std::numbers::pi * uniform());
}

}  // namespace explorer
