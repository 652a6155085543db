#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "PixelStamp.h"

namespace vexel {

/// What is drawn at each centre; either part may be absent (null).
struct SymbolLook {
  const CGPath& path;
  const CGColor* fillColor;
  const CGStrokeStyle* strokeStyle;
};

/// The stamps of one symbol for centres at all places within a pixel, to an eighth of a pixel,
/// made when first asked for. Shapes are rendered by Cairo once and kept by the calling thread,
/// so that the same symbol in another colour costs little.
class SymbolStamps {
 public:
  /// Places within a pixel in either direction.
  static constexpr int kPhases = 8;
  /// Symbols larger than this, in pixels, have no stamps.
  static constexpr int kMaximumSide = 64;

  /// Null when the symbol is too large.
  static std::unique_ptr<SymbolStamps> create(const SymbolLook& look,
                                              const CGAffineTransform& toDevice);

  /// Whether all masks are those of another look.
  bool hasMasksOf(const SymbolStamps& other) const;

  /// Whether some pixels may hide what is below them.
  bool canHide() const { return strokePixel_ >> 24 == 255 || weightedPixel_ >> 24 == 255; }

  /// The mask for a centre `phaseX` eighths to the right and `phaseY` eighths below the corner of
  /// its pixel. It changes when another look of the same shape is asked for its mask.
  const StampMask& mask(int phaseX, int phaseY);

  /// The premultiplied colour that masks weight.
  std::uint32_t color() const { return weightedPixel_; }

 private:
  struct Shape;
  class ShapeCache;
  SymbolStamps(std::shared_ptr<Shape> shape, const SymbolLook& look);

  std::shared_ptr<Shape> shape_;
  std::uint32_t strokePixel_;
  std::uint32_t weightedPixel_;  // of the fill, or of the stroke where there is none
};

}  // namespace vexel
