#include <CoreGraphics/CGImage.h>

#include <utility>

namespace vexel {

std::shared_ptr<const CGImage> CGImage::create(const CGImageLayout& layout,
                                               std::vector<std::uint8_t> bytes) {
  if (layout.bitsPerComponent != 8 || layout.bitsPerPixel != 32) return nullptr;
  if (layout.width == 0 || layout.height == 0) return nullptr;
  // Divisions, because the products of hostile sizes overflow.
  if (layout.width > layout.bytesPerRow / 4) return nullptr;
  if (layout.height > bytes.size() / layout.bytesPerRow) return nullptr;
  return std::shared_ptr<const CGImage>(new CGImage(layout, std::move(bytes)));
}

CGImage::CGImage(const CGImageLayout& layout, std::vector<std::uint8_t> bytes)
    : layout_(layout), bytes_(std::move(bytes)) {}

std::uint32_t CGImage::premultipliedARGB(std::size_t column, std::size_t row) const {
  const std::uint8_t* byte = bytes_.data() + row * layout_.bytesPerRow + column * 4;
  const bool bigEndian = layout_.byteOrder == CGImageByteOrder::big32;
  const auto part = [&](int fromHighest) {
    return static_cast<std::uint32_t>(byte[bigEndian ? fromHighest : 3 - fromHighest]);
  };
  const std::uint32_t alpha =
      layout_.alphaInfo == CGImageAlphaInfo::premultipliedFirst ? part(0) : 255u;
  return alpha << 24 | part(1) << 16 | part(2) << 8 | part(3);
}

}  // namespace vexel
