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

/// One premultiplied pixel laid over a row.
inline void pixelOver(std::uint32_t above, std::uint32_t* below, int count) {
  for (int i = 0; i < count; ++i) below[i] = pixelOver(above, below[i]);
}

/// `pixel`, plus `weight` 255ths of a premultiplied colour, over `rest` 255ths of a pixel below.
/// The two products are rounded as one; pixel, weighted colour and rest add up to 255 at most.
constexpr std::uint32_t weightedPixelOver(std::uint32_t pixel, std::uint32_t weight,
                                          std::uint32_t rest, std::uint32_t color,
                                          std::uint32_t below) {
  std::uint32_t redBlue =
      (color & 0x00ff00ffu) * weight + (below & 0x00ff00ffu) * rest + 0x00800080u;
  redBlue = (redBlue + (redBlue >> 8 & 0x00ff00ffu)) >> 8 & 0x00ff00ffu;
  std::uint32_t alphaGreen =
      (color >> 8 & 0x00ff00ffu) * weight + (below >> 8 & 0x00ff00ffu) * rest + 0x00800080u;
  alphaGreen = (alphaGreen + (alphaGreen >> 8 & 0x00ff00ffu)) & 0xff00ff00u;
  return pixel + (redBlue | alphaGreen);
}

/// What weightedPixelOver() needs of neighbouring pixels. At first they leave alone what is below.
struct WeightedPixels {
  static constexpr int kCount = 8;

  std::uint32_t pixels[kCount] = {};
  std::uint8_t weights[kCount] = {};
  std::uint8_t rests[kCount] = {255, 255, 255, 255, 255, 255, 255, 255};

  std::uint32_t over(int i, std::uint32_t color, std::uint32_t below) const {
    return weightedPixelOver(pixels[i], weights[i], rests[i], color, below);
  }
};

}  // namespace vexel
