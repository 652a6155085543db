#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/CGContextError.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A surface of pixels, antialiased, initially transparent.
class VEXEL_API CGBitmapContext : public CGContext {
 public:
  /// Largest number of pixels in either direction.
  static constexpr int kMaximumPixels = 32767;
  /// And in all: 1 GiB of them.
  static constexpr std::int64_t kMostPixels = std::int64_t{1} << 28;

  /// A window is drawn again and again, and pictures of its parts are kept meanwhile.
  enum class Use { window, file };

  /// `size` in points, `backingScale` pixels per point; the bitmap has the product, rounded, of
  /// pixels, at least one. Throws CGContextError.
  static std::unique_ptr<CGBitmapContext> create(CGSize size, CGFloat backingScale,
                                                 Use use = Use::window);

  /// The size in pixels, and how many of them a point has.
  virtual int pixelWidth() const = 0;
  virtual int pixelHeight() const = 0;
  virtual CGFloat backingScale() const = 0;
  /// Rows from top to bottom, premultiplied alpha, red, green, blue from the highest byte down.
  /// Valid until the next drawing call.
  virtual std::span<const std::uint32_t> pixels() = 0;
  /// The bitmap as a PNG file. Equal pixels give equal bytes. Throws CGContextError when there is
  /// no memory for it, or was none for something that was drawn.
  virtual std::string pngData() = 0;
};

}  // namespace vexel
