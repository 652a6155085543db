#pragma once

#include <cstdint>
#include <cstring>

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

/// Lays a row of pixels over another: the sum of `pixels` and of `color` by weights, which hold the
/// same factor in all four bytes.
inline void weightedPixelsOver(const std::uint32_t* pixels, const std::uint32_t* weights,
                               std::uint32_t color, std::uint32_t* below, int count) {
  // Two pixels at a time, to the very same result.
  using Bytes = std::uint8_t __attribute__((vector_size(8)));
  using Channels = std::uint16_t __attribute__((vector_size(16)));
  const auto load = [](const std::uint32_t* pair) {
    Bytes bytes;
    std::memcpy(&bytes, pair, sizeof bytes);
    return __builtin_convertvector(bytes, Channels);
  };
  const auto dividedBy255 = [](Channels product) {
    product += 128;
    return (product + (product >> 8)) >> 8;
  };
  const std::uint32_t colors[] = {color, color};
  const Channels colorPair = load(colors);
  int i = 0;
  for (; i + 1 < count; i += 2) {
    const Channels source = load(pixels + i) + dividedBy255(colorPair * load(weights + i));
    const Channels rest = 255 - __builtin_shufflevector(source, source, 3, 3, 3, 3, 7, 7, 7, 7);
    const Bytes sum = __builtin_convertvector(source + dividedBy255(load(below + i) * rest), Bytes);
    std::memcpy(below + i, &sum, sizeof sum);
  }
  if (i < count) below[i] = pixelOver(pixels[i] + scaledPixel(color, weights[i] & 255u), below[i]);
}

/// A row of premultiplied pixels laid over another.
inline void pixelsOver(const std::uint32_t* above, std::uint32_t* below, int count) {
  for (int i = 0; i < count; ++i) below[i] = pixelOver(above[i], below[i]);
}

}  // namespace vexel
