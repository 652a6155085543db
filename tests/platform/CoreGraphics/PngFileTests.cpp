#include "PngFile.h"

#include <gtest/gtest.h>

#include <random>

#include "Bitmaps.h"

namespace vexel {
namespace {

/// Every pixel another colour; with `opaque` false every alpha occurs, none below its colour.
std::vector<std::uint32_t> manyColors(int count, bool opaque) {
  std::mt19937 random(7);
  std::vector<std::uint32_t> pixels;
  for (int i = 0; i < count; ++i) {
    const std::uint32_t alpha = opaque ? 255 : static_cast<std::uint32_t>(i % 256);
    std::uint32_t pixel = alpha << 24;
    for (const int shift : {0, 8, 16})
      pixel |= static_cast<std::uint32_t>(random() % (alpha + 1)) << shift;
    pixels.push_back(pixel);
  }
  return pixels;
}

class PngFileOfSize : public testing::TestWithParam<std::pair<int, int>> {};

TEST_P(PngFileOfSize, GivesOpaquePixelsBackAsTheyWere) {
  const auto [width, height] = GetParam();
  const auto pixels = manyColors(width * height, true);
  const DecodedPng png = decodedPng(pngFile(pixels, width, height));
  EXPECT_EQ(png.width, width);
  EXPECT_EQ(png.height, height);
  ASSERT_EQ(png.pixels.size(), pixels.size());
  for (std::size_t i = 0; i < pixels.size(); ++i)
    ASSERT_EQ(png.pixels[i] & 0xffffff, pixels[i] & 0xffffff) << i;
}

TEST_P(PngFileOfSize, GivesTranslucentPixelsBackWithinTheRoundingOfTheFormat) {
  const auto [width, height] = GetParam();
  const auto pixels = manyColors(width * height, false);
  const DecodedPng png = decodedPng(pngFile(pixels, width, height));
  ASSERT_EQ(png.pixels.size(), pixels.size());
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    ASSERT_EQ(png.pixels[i] >> 24, pixels[i] >> 24) << i;
    for (const int shift : {0, 8, 16}) {
      const int wanted = pixels[i] >> shift & 0xff, got = png.pixels[i] >> shift & 0xff;
      // The format keeps colours without their alpha, in eight bits.
      ASSERT_LE(std::abs(wanted - got), 1) << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(PngFile, PngFileOfSize,
                         testing::Values(std::pair(1, 1), std::pair(1, 300), std::pair(301, 1),
                                         std::pair(3, 7), std::pair(97, 41), std::pair(700, 500)));

TEST(PngFile, HasAlphaWhereOnePixelAnywhereIsTranslucent) {
  constexpr int kWidth = 300, kHeight = 200;  // several blocks
  constexpr std::uint32_t kHalfRed = 0x80800000;
  for (const std::size_t at : {0, 7, 8, 299, 300, 59991, 59992, 59999}) {
    for (auto pixels : {manyColors(kWidth * kHeight, true),
                        std::vector<std::uint32_t>(kWidth * kHeight, 0xffc08040)}) {
      pixels[at] = kHalfRed;
      const DecodedPng png = decodedPng(pngFile(pixels, kWidth, kHeight));
      EXPECT_TRUE(png.pixels == pixels) << at;
    }
  }
}

TEST(PngFile, HasNoAlphaWhereAllPixelsAreOpaque) {
  constexpr std::size_t kColorType = 25;
  EXPECT_EQ(pngFile(manyColors(4, true), 2, 2)[kColorType], 2);
  EXPECT_EQ(pngFile(manyColors(4, false), 2, 2)[kColorType], 6);
}

}  // namespace
}  // namespace vexel
