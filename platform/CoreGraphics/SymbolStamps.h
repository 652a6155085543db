#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGColor.h>
#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGStrokeStyle.h>

#include "PixelTarget.h"

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

  /// Whether the look covers what is below it wherever it has full coverage.
  bool isOpaque() const;

  /// The stamp for a centre `phaseX` eighths to the right and `phaseY` eighths below the corner
  /// of its pixel.
  PixelStamp stamp(int phaseX, int phaseY);

  /// How far stamps reach from the pixel of their centre, at most.
  int reach() const;

 private:
  struct Shape;
  class ShapeCache;
  SymbolStamps(std::shared_ptr<Shape> shape, const SymbolLook& look);

  std::shared_ptr<Shape> shape_;
  std::uint32_t fillPixel_;
  std::uint32_t strokePixel_;
};

}  // namespace vexel
