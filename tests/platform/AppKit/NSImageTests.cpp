#include <AppKit/NSImage.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

std::shared_ptr<const CGImage> bitmap(std::uint8_t firstByte) {
  return CGImage::create({.width = 1, .height = 2, .bytesPerRow = 4},
                         {firstByte, 0, 0, 0, 0, 0, 0, 0});
}

TEST(NSImage, WithoutABitmapHasItsSizeAlone) {
  const NSImage image(nullptr, {1, 256});
  EXPECT_EQ(image.cgImage(), nullptr);
  EXPECT_EQ(image.size(), (CGSize{1, 256}));
  EXPECT_EQ(image, NSImage(nullptr, {1, 256}));
  EXPECT_NE(image, NSImage(bitmap(0), {1, 256}));
  EXPECT_NE(NSImage(bitmap(0), {1, 256}), image);
}

TEST(NSImage, SharesItsBitmapWithItsCopies) {
  const auto pixels = bitmap(1);
  const NSImage image(pixels, {10, 20});
  const NSImage copy = image;
  EXPECT_EQ(copy.cgImage(), pixels);
  EXPECT_EQ(copy, image);
}

TEST(NSImage, EqualPixelsOfTwoBitmapsAreEqual) {
  EXPECT_EQ(NSImage(bitmap(1), {10, 20}), NSImage(bitmap(1), {10, 20}));
  EXPECT_NE(NSImage(bitmap(1), {10, 20}), NSImage(bitmap(2), {10, 20}));
  EXPECT_NE(NSImage(bitmap(1), {10, 20}), NSImage(bitmap(1), {10, 21}));
}

}  // namespace
}  // namespace vexel
