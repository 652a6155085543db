#include <CorePlot/CPTColorList.h>

#include <algorithm>
#include <utility>

#include <Foundation/FatalError.h>

#include "ColorPlaces.h"

namespace vexel {

CPTColorList::CPTColorList(std::initializer_list<std::optional<CPTColor>> colors)
    : CPTColorList(std::span(colors.begin(), colors.end())) {}

CPTColorList::CPTColorList(std::span<const std::optional<CPTColor>> colors) {
  ColorPlaces known(palette_);
  places_.reserve(colors.size());
  for (const auto& color : colors) places_.push_back(color ? known.placeOf(*color) : kNoColor);
}

CPTColorList::CPTColorList(std::vector<CPTColor> palette, std::vector<std::uint32_t> places)
    : palette_(std::move(palette)), places_(std::move(places)) {
  for (const std::uint32_t place : places_)
    if (place != kNoColor && place >= palette_.size())
      fatalError("CPTColorList: a place outside the palette");
}

std::optional<CPTColor> CPTColorList::operator[](std::size_t index) const {
  const std::uint32_t place = places_[index];
  return place == kNoColor ? std::nullopt : std::optional(palette_[place]);
}

void CPTColorList::set(std::size_t index, const std::optional<CPTColor>& color) {
  if (!color) {
    places_[index] = kNoColor;
    return;
  }
  const auto known = std::ranges::find(palette_, *color);
  places_[index] = static_cast<std::uint32_t>(known - palette_.begin());
  if (known == palette_.end()) palette_.push_back(*color);
}

std::vector<std::optional<CPTColor>> CPTColorList::elements() const {
  std::vector<std::optional<CPTColor>> elements;
  elements.reserve(size());
  for (std::size_t i = 0; i < size(); ++i) elements.push_back((*this)[i]);
  return elements;
}

void CPTColorList::append(CPTColorList more) {
  if (empty()) {
    *this = std::move(more);
    return;
  }
  ColorPlaces known(palette_);
  std::vector<std::uint32_t> placeOf;
  for (const CPTColor& color : more.palette_) placeOf.push_back(known.placeOf(color));
  for (const std::uint32_t place : more.places_)
    places_.push_back(place == kNoColor ? kNoColor : placeOf[place]);
}

bool operator==(const CPTColorList& a, const CPTColorList& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i]) return false;
  return true;
}

}  // namespace vexel
