#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <CoreGraphics/PixelBuffer.h>

#include "CairoCanvas.h"
#include "StampRows.h"

namespace vexel {

/// How much a shape covers of each pixel around a place, 0 to 255.
struct CoverageMask {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;
};

/// The pixels below a canvas, to be written without Cairo while this object lives, through the
/// canvas's clip, which has to be a rectangle. Places are pixels in device coordinates.
class PixelTarget {
 public:
  explicit PixelTarget(const CairoCanvas& canvas);
  ~PixelTarget();
  PixelTarget(const PixelTarget&) = delete;
  PixelTarget& operator=(const PixelTarget&) = delete;

  /// Lays a stamp, or a mask in one colour, over the pixels around (x, y). False, and nothing is
  /// drawn, when it meets pixels of which the clip leaves only a part.
  bool blend(const PixelStamp& stamp, int x, int y);
  bool blend(const CoverageMask& mask, std::uint32_t premultipliedColor, int x, int y);

  /// Lays the part of a stamp that is inside a band, which is inside clip(), over the pixels: those
  /// of its rows whose bits are set, the lowest for the uppermost.
  void blend(const PixelStamp& stamp, int x, int y, const PixelRect& band, std::uint32_t rows) {
    const int left = x + stamp.mask.left;
    layRows_(stamp,
             {row(band.top) + left, rowLength_, band.top - y - stamp.mask.top, band.left - left,
              band.right - left},
             rows);
  }

  /// Sets the pixels of a box on the surface to one value, also outside the clip.
  void fill(const PixelRect& box, std::uint32_t pixel);

  /// Takes over all pixels of another surface that are inside clip() when moved so many pixels.
  void copy(const PixelTarget& source, int dx, int dy);

  /// Lays a colour over what boxes cover of each pixel. The clip leaves whole pixels only.
  void cover(std::span<const CGRect> boxes, std::uint32_t premultipliedColor);

  /// All pixels, the upper left one first.
  PixelBuffer buffer() const;
  /// The clip as pixels of the buffer; absent when it leaves only a part of some.
  std::optional<PixelRect> wholeClip() const;

  /// The pixels that the clip touches, in device coordinates and on the surface.
  PixelRect clip() const;

  /// Lets `draw` use Cairo in between.
  template <class Draw>
  void suspendFor(Draw draw) {
    cairo_surface_mark_dirty(surface_);
    draw();
    cairo_surface_flush(surface_);
  }

 private:
  template <class Shape>
  bool canTake(const Shape& shape, int x, int y) const;
  template <class Shape>
  PixelRect visiblePart(const Shape& shape, int x, int y) const;
  std::uint32_t* row(int y) const { return pixels_ + (y - top_) * rowLength_ - left_; }

  cairo_surface_t* surface_;
  LayStampRows* layRows_;
  std::uint32_t* pixels_;
  std::ptrdiff_t rowLength_;
  int left_, top_;
  // Pixels that the clip leaves whole, and those that it leaves at least in part.
  PixelRect whole_, touched_;
};

}  // namespace vexel
