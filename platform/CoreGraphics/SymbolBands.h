#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "CoveredPixels.h"
#include "PixelTarget.h"
#include "SymbolStamps.h"

namespace vexel {

/// A place in eighths of a pixel: the pixel, and the phase in it. Places are no farther outside of
/// a bitmap than symbols that have stamps reach.
struct PhasePlace {
  PhasePlace() = default;
  explicit PhasePlace(CGPoint p) : x(eighths(p.x)), y(eighths(p.y)) {}

  // Shifts of negative numbers round down, as the phases want it.
  int pixelX() const { return x >> 3; }
  int pixelY() const { return y >> 3; }
  int phaseX() const { return x & 7; }
  int phaseY() const { return y & 7; }

  int x = 0;
  int y = 0;

 private:
  static constexpr int kPhases = SymbolStamps::kPhases;
  static_assert(kPhases == 8);

  // The nearest; numbers that are not negative are cut to round them down.
  static int eighths(CGFloat v) {
    constexpr int kShift = kPhases * 2 * SymbolStamps::kMaximumSide;
    return static_cast<int>(v * kPhases + (kShift + 0.5)) - kShift;
  }
};

/// Draws symbols in bands of rows, which the fast memory holds while the symbols in them are drawn.
/// Rows of symbols that others hide are left out where there are many; no pixel is another one for
/// that.
class SymbolBands {
 public:
  /// Draws inside the clip of the target, in styles that all have stamps, about so many symbols.
  SymbolBands(PixelTarget& target, std::span<SymbolStamps* const> styles, std::size_t expected);

  /// Whether symbols are best added from the last, which lies over all others, to the first.
  bool isLastFirst() const { return covered_.has_value(); }

  /// Adds a symbol, over those added before or, when the last is first, under them.
  void add(std::uint32_t style, const PhasePlace& place);

  /// Draws what was added. There are no symbols afterwards.
  void draw();

 private:
  /// As small as can be: memory takes much of the time.
  struct Symbol {
    std::uint32_t place;  // packed
    std::uint32_t style;
    std::uint32_t rows;  // of the band, those drawn
  };

  const StampMask& maskOf(std::uint32_t style, const PhasePlace& place);
  void draw(const Symbol& symbol, const PixelRect& band);

  PixelTarget& target_;
  std::span<SymbolStamps* const> styles_;
  PixelRect box_;
  // Whether all styles have the same masks, which are then kept at hand.
  bool areAlike_ = true;
  std::array<const StampMask*, std::size_t{SymbolStamps::kPhases} * SymbolStamps::kPhases> masks_{};
  std::vector<std::vector<Symbol>> bands_;
  // By symbols added so far, where many are expected.
  std::optional<CoveredPixels> covered_;
};

}  // namespace vexel
