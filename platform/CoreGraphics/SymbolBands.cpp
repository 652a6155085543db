#include "SymbolBands.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "CoveredPixels.h"

namespace vexel {

namespace {

constexpr int kBandRows = CoveredPixels::kRows;
// No mask of a symbol begins farther outside of a bitmap.
constexpr int kReach = 2 * SymbolStamps::kMaximumSide;
// Symbols that would fill a band so many times hide enough of each other to look for it.
constexpr std::int64_t kCrowd = 8;

// A place relative to a corner beyond which no symbol lies: bitmaps are narrower than 2^15 pixels,
// and bands and what reaches into them lower than 2^9.
constexpr int kBitsOfY = 12;

std::uint32_t packed(const PhasePlace& place, int left, int top) {
  const int x = place.x - (left - kReach) * SymbolStamps::kPhases;
  const int y = place.y - (top - kReach) * SymbolStamps::kPhases;
  return static_cast<std::uint32_t>(x << kBitsOfY | y);
}

PhasePlace unpacked(std::uint32_t packed, int left, int top) {
  PhasePlace place;
  place.x = static_cast<int>(packed >> kBitsOfY) + (left - kReach) * SymbolStamps::kPhases;
  place.y =
      static_cast<int>(packed & ((1u << kBitsOfY) - 1)) + (top - kReach) * SymbolStamps::kPhases;
  return place;
}

}  // namespace

SymbolBands::SymbolBands(PixelTarget& target, std::span<SymbolStamps* const> styles,
                         std::size_t expected)
    : target_(target),
      styles_(styles),
      box_(target.clip()),
      bands_(static_cast<std::size_t>(std::max(box_.height() + kBandRows - 1, 0) / kBandRows)) {
  for (const SymbolStamps* const style : styles) {
    areAlike_ = areAlike_ && style->hasMasksOf(*styles[0]);
    canHide_ = canHide_ || style->canHide();
  }
  // Memory that stays untouched costs nothing.
  for (std::vector<Symbol>& band : bands_) band.reserve(2 * expected / bands_.size());
}

const StampMask& SymbolBands::maskOf(std::uint32_t style, const PhasePlace& place) {
  if (!areAlike_) return styles_[style]->mask(place.phaseX(), place.phaseY());
  const int phase = place.phaseY() * SymbolStamps::kPhases + place.phaseX();
  const StampMask*& known = masks_[static_cast<std::size_t>(phase)];
  if (!known) known = &styles_[0]->mask(place.phaseX(), place.phaseY());
  return *known;
}

void SymbolBands::add(std::uint32_t style, const PhasePlace& place) {
  const StampMask& mask = maskOf(style, place);
  const int top = place.pixelY() + mask.top - box_.top;
  const int first = std::max(top, 0) / kBandRows;
  const int end = (std::min(top + mask.height, box_.height()) + kBandRows - 1) / kBandRows;
  for (int band = first; band < end; ++band)
    bands_[static_cast<std::size_t>(band)].push_back(
        {packed(place, box_.left, box_.top + band * kBandRows), style});
}

void SymbolBands::draw() {
  PixelRect part = box_;
  for (std::vector<Symbol>& band : bands_) {
    part.bottom = std::min(part.top + kBandRows, box_.bottom);
    if (!band.empty()) draw(band, part);
    band.clear();
    part.top = part.bottom;
  }
}

void SymbolBands::draw(std::span<const Symbol> band, const PixelRect& part) {
  findRows(band, part);
  for (std::size_t i = 0; i < band.size(); ++i) {
    if (rows_[i] == 0) continue;
    const PhasePlace place = unpacked(band[i].place, part.left, part.top);
    target_.blend({maskOf(band[i].style, place), styles_[band[i].style]->color()}, place.pixelX(),
                  place.pixelY(), part, rows_[i]);
  }
}

void SymbolBands::findRows(std::span<const Symbol> band, const PixelRect& part) {
  const StampMask& first = maskOf(band[0].style, unpacked(band[0].place, part.left, part.top));
  const auto filled = std::ssize(band) * first.width * first.height;
  std::optional<CoveredPixels> covered;
  if (canHide_ && filled > kCrowd * part.width() * part.height())
    covered.emplace(part.left - kReach, part.right + kReach);
  rows_.resize(band.size());
  for (std::size_t i = band.size(); i-- > 0;) {
    const PhasePlace place = unpacked(band[i].place, part.left, part.top);
    const StampMask& mask = maskOf(band[i].style, place);
    const int row = place.pixelY() + mask.top - part.top;
    rows_[i] = mask.rowsWithin(row, part.height());
    if (covered) rows_[i] &= covered->layUnder(mask, place.pixelX() + mask.left, row);
  }
}

}  // namespace vexel
