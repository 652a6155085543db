#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <CoreGraphics/CGColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Where alpha stands in a pixel of four bytes, before byte order: `noneSkipFirst` ignores the
/// first byte, `premultipliedFirst` holds alpha there.
enum class CGImageAlphaInfo { noneSkipFirst, premultipliedFirst };

/// Which end of the 32-bit pixel comes first in memory.
enum class CGImageByteOrder { big32, little32 };

/// How the bytes of an image are read.
struct VEXEL_API CGImageLayout {
  /// In pixels.
  std::size_t width = 0;
  std::size_t height = 0;
  /// Other numbers than these two defaults make no image.
  std::size_t bitsPerComponent = 8;
  std::size_t bitsPerPixel = 32;
  /// From the start of one row to that of the next.
  std::size_t bytesPerRow = 0;
  /// What the components mean, and where they stand in a pixel.
  CGColorSpace colorSpace = CGColorSpace::deviceRGB;
  CGImageAlphaInfo alphaInfo = CGImageAlphaInfo::noneSkipFirst;
  CGImageByteOrder byteOrder = CGImageByteOrder::big32;
  /// False: enlarged pixels stay sharp squares.
  bool interpolates = false;

  friend bool operator==(const CGImageLayout&, const CGImageLayout&) = default;
};

/// A bitmap: rows from top to bottom. Immutable.
class VEXEL_API CGImage {
 public:
  /// Null when the layout is not 8 bits per component and 32 per pixel, the size is 0, a row is
  /// shorter than its pixels, or the bytes do not cover all rows.
  static std::shared_ptr<const CGImage> create(const CGImageLayout& layout,
                                               std::vector<std::uint8_t> bytes);

  /// As they were given; the size is in pixels.
  const CGImageLayout& layout() const { return layout_; }
  std::size_t width() const { return layout_.width; }
  std::size_t height() const { return layout_.height; }
  const std::vector<std::uint8_t>& bytes() const { return bytes_; }

  /// Alpha, red, green, blue from the highest byte down, premultiplied; row 0 is the top one.
  /// Both indices must lie inside.
  std::uint32_t premultipliedARGB(std::size_t column, std::size_t row) const;

 private:
  CGImage(const CGImageLayout& layout, std::vector<std::uint8_t> bytes);

  CGImageLayout layout_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace vexel
