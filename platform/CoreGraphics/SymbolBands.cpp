#include "SymbolBands.h"

#include <algorithm>
#include <cstddef>

namespace vexel {

namespace {

constexpr int kBandRows = 32;
// No mask of a symbol begins farther outside of a bitmap.
constexpr int kReach = CoveredPixels::kMargin;
// Symbols that would fill all pixels so many times hide enough of each other to look for it.
constexpr double kCrowd = 8;

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
  bool canHide = false;
  for (const SymbolStamps* const style : styles) {
    areAlike_ = areAlike_ && style->hasMasksOf(*styles[0]);
    canHide = canHide || style->canHide();
  }
  const StampMask& mask = maskOf(0, {});
  const double filled = static_cast<double>(expected) * mask.width * mask.height;
  if (canHide && filled > kCrowd * box_.width() * box_.height())
    covered_.emplace(box_);
  else  // Memory that stays untouched costs nothing.
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
  const int row = place.pixelY() + mask.top;
  int top = row - box_.top;
  std::uint64_t rows = mask.rowsInside(top, box_.height());
  if (covered_) rows &= covered_->layUnder(mask, place.pixelX() + mask.left, row);
  if (rows == 0) return;
  if (top < 0) {
    rows >>= -top;
    top = 0;
  }
  int rowOfBand = top % kBandRows;
  for (int band = top / kBandRows; rows != 0; ++band) {
    if (const auto inBand = static_cast<std::uint32_t>(rows << rowOfBand); inBand != 0)
      bands_[static_cast<std::size_t>(band)].push_back(
          {packed(place, box_.left, box_.top + band * kBandRows), style, inBand});
    rows >>= kBandRows - rowOfBand;
    rowOfBand = 0;
  }
}

void SymbolBands::draw() {
  PixelRect part = box_;
  for (std::vector<Symbol>& band : bands_) {
    part.bottom = std::min(part.top + kBandRows, box_.bottom);
    if (isLastFirst()) std::ranges::reverse(band);
    for (const Symbol& symbol : band) draw(symbol, part);
    band.clear();
    part.top = part.bottom;
  }
  if (covered_) covered_.emplace(box_);
}

void SymbolBands::draw(const Symbol& symbol, const PixelRect& band) {
  const PhasePlace place = unpacked(symbol.place, band.left, band.top);
  target_.blend({maskOf(symbol.style, place), styles_[symbol.style]->color()}, place.pixelX(),
                place.pixelY(), band, symbol.rows);
}

}  // namespace vexel
