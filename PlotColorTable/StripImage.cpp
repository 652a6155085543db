#include "StripImage.h"

#include <Foundation/FatalError.h>

namespace vexel {

namespace {

std::uint8_t byte(CGFloat component) {
  const bool fits = component > -1 && component < 256;
  if (!fits) fatalError("PlotColorTable: a component of an entry does not lie within 0 to 255");
  return static_cast<std::uint8_t>(component);
}

}  // namespace

std::shared_ptr<const CGImage> stripImage(const PlotColorTable& table) {
  const auto& entries = table.entries();
  const std::size_t n = entries.size();
  std::vector<std::uint8_t> bytes(4 * n, 0);
  for (std::size_t row = 1; row < n; ++row) {
    const ColorTableEntry& entry = entries[n - row];
    bytes[4 * row] = 255;
    for (std::size_t i = 0; i < 3; ++i) bytes[4 * row + 1 + i] = byte(entry[i]);
  }
  return CGImage::create(
      {
          .width = 1,
          .height = n,
          .bitsPerComponent = 8,
          .bitsPerPixel = 32,
          .bytesPerRow = 4,
          .colorSpace = CGColorSpace::deviceRGB,
          .alphaInfo = CGImageAlphaInfo::noneSkipFirst,
          .byteOrder = CGImageByteOrder::big32,
          .interpolates = false,
      },
      std::move(bytes));
}

}  // namespace vexel
