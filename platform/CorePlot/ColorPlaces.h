#pragma once

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <CorePlot/CPTColor.h>

namespace vexel {

/// Numbers different colours in the order in which they first appear, after those that are there.
class ColorPlaces {
 public:
  /// `colors` takes every new colour at its place.
  explicit ColorPlaces(std::vector<CPTColor>& colors);

  std::uint32_t placeOf(const CPTColor& color);

 private:
  struct Hash {
    std::size_t operator()(const CPTColor& color) const;
  };

  static constexpr std::size_t kRecent = 1024;

  std::vector<CPTColor>& colors_;
  std::unordered_map<CPTColor, std::uint32_t, Hash> places_;
  /// Places asked for lately, by hash; checked before they are believed.
  std::array<std::uint32_t, kRecent> recent_{};
};

}  // namespace vexel
