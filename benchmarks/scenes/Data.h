#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace scenes {

/// Numbers that are the same on every machine (the generator known as SplitMix64).
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t bits();
  /// From 0 to 1, 1 excluded.
  double fraction();

 private:
  std::uint64_t state_;
};

struct Points {
  std::vector<double> x;
  std::vector<double> y;
};

/// A walk with noise and rare spikes over unevenly spaced x from 0 to 1000.
Points randomLine(std::size_t count);

struct ColoredPoints : Points {
  /// Places in a table of 256 colours.
  std::vector<std::uint32_t> color;
};

/// One half spread over the unit square, the other half in five clouds.
ColoredPoints randomScatter(std::size_t count);

struct Panel {
  Points line;
  Points symbols;
  Points bars;
};

/// What one of three graphs shows.
Panel panel(int index);

}  // namespace scenes
