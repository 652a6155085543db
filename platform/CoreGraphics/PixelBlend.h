#pragma once

#include <cstdint>

namespace vexel {

/// `value` * `factor` / 255 for each of the four bytes of a pixel, rounded to the nearest; the
/// factor is 0 to 255.
constexpr std::uint32_t scaledPixel(std::uint32_t value, std::uint32_t factor) {
  // Two bytes at a time; x / 255 is (x + 128 + (x + 128) / 256) / 256 for products of bytes.
  std::uint32_t redBlue = (value & 0x00ff00ffu) * factor + 0x00800080u;
  redBlue = (redBlue + (redBlue >> 8 & 0x00ff00ffu)) >> 8 & 0x00ff00ffu;
  std::uint32_t alphaGreen = (value >> 8 & 0x00ff00ffu) * factor + 0x00800080u;
  alphaGreen = (alphaGreen + (alphaGreen >> 8 & 0x00ff00ffu)) & 0xff00ff00u;
  return redBlue | alphaGreen;
}

/// One premultiplied pixel laid over another.
constexpr std::uint32_t pixelOver(std::uint32_t above, std::uint32_t below) {
  return above + scaledPixel(below, 255u - (above >> 24));
}

}  // namespace vexel
