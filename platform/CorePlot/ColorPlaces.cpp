#include "ColorPlaces.h"

#include <bit>

namespace vexel {

std::size_t ColorPlaces::Hash::operator()(const CPTColor& color) const {
  // Equal zeros of either sign have different bits, equal colours must not.
  const auto bits = [](double component) { return std::bit_cast<std::uint64_t>(component + 0.0); };
  const CGColor& c = color.cgColor();
  std::uint64_t hash = 0;
  for (const double component : {c.red(), c.green(), c.blue(), c.alpha()})
    hash = (hash ^ bits(component)) * 0x9e3779b97f4a7c15u;
  return hash ^ hash >> 32;
}

ColorPlaces::ColorPlaces(std::vector<CPTColor>& colors) : colors_(colors) {
  std::uint32_t place = 0;
  for (const CPTColor& color : colors) places_.try_emplace(color, place++);
}

std::uint32_t ColorPlaces::placeOf(const CPTColor& color) {
  std::uint32_t& recent = recent_[Hash{}(color) % kRecent];
  if (recent < colors_.size() && colors_[recent] == color) return recent;
  const auto [known, isNew] =
      places_.try_emplace(color, static_cast<std::uint32_t>(colors_.size()));
  if (isNew) colors_.push_back(color);
  recent = known->second;
  return recent;
}

}  // namespace vexel
