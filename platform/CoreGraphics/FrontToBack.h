#pragma once

#include <cstdint>
#include <vector>

#include "PixelTarget.h"

namespace vexel {

/// Pixels that opaque stamps are laid under, the uppermost first. What many others hide costs
/// little. The result is that of drawing in the reverse order, but for rounding.
class FrontToBack {
 public:
  /// `box` is what can be seen, in device coordinates.
  explicit FrontToBack(const PixelRect& box);

  /// Lays what is inside `within`, a part of the box, of a stamp below everything so far, around
  /// (x, y) in device coordinates.
  void layUnder(const PixelStamp& stamp, int x, int y, const PixelRect& within);

  /// Lays the result over a target.
  void drawOn(PixelTarget& target) const;

 private:
  static constexpr int kCell = 8;

  /// Whether nothing can be seen of what is laid below a part.
  bool isFull(const PixelRect& part) const;

  PixelRect box_;
  std::vector<std::uint32_t> pixels_;
  /// Of squares of kCell pixels a side: how many pixels something below could be seen through.
  int cellsInRow_;
  std::vector<std::uint8_t> open_;
};

}  // namespace vexel
