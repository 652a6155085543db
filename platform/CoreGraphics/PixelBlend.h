#pragma once

#include <cstddef>
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

/// Lays a row of pixels over another: the sum of `pixels`, of `color` by weights and of what is
/// below by `rests`, both of which hold the same factor in all four bytes of a word. The two
/// products are rounded as one.
inline void weightedPixelsOver(const std::uint32_t* pixels, const std::uint32_t* weights,
                               const std::uint32_t* rests, std::uint32_t color,
                               std::uint32_t* below, int count) {
  using Bytes = std::uint8_t __attribute__((vector_size(8)));
  using Channels = std::uint16_t __attribute__((vector_size(16)));
  const auto blend = [&](int i, std::size_t size) {
    const auto load = [=](const std::uint32_t* words) {
      Bytes bytes{};
      std::memcpy(&bytes, words, size);
      return bytes;
    };
    const auto channels = [](Bytes bytes) { return __builtin_convertvector(bytes, Channels); };
    const std::uint32_t colors[] = {color, color};
    Channels product = channels(load(colors)) * channels(load(weights + i)) +
                       channels(load(below + i)) * channels(load(rests + i)) + 128;
    product = (product + (product >> 8)) >> 8;
    const Bytes sum = load(pixels + i) + __builtin_convertvector(product, Bytes);
    std::memcpy(below + i, &sum, size);
  };
  int i = 0;
  for (; i + 1 < count; i += 2) blend(i, 2 * sizeof color);
  if (i < count) blend(i, sizeof color);
}

/// A row of premultiplied pixels laid over another.
inline void pixelsOver(const std::uint32_t* above, std::uint32_t* below, int count) {
  for (int i = 0; i < count; ++i) below[i] = pixelOver(above[i], below[i]);
}

}  // namespace vexel
