#include <CoreGraphics/CGImage.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();

CGImageLayout layoutOf(std::size_t width, std::size_t height, std::size_t bytesPerRow) {
  CGImageLayout layout;
  layout.width = width;
  layout.height = height;
  layout.bytesPerRow = bytesPerRow;
  return layout;
}

struct Refused {
  const char* reason;
  CGImageLayout layout;
  std::size_t bytes;
};

TEST(CGImage, IsNullForALayoutThatItsBytesDoNotFill) {
  CGImageLayout deep = layoutOf(1, 1, 4), packed = layoutOf(1, 1, 4);
  deep.bitsPerComponent = 16;
  packed.bitsPerPixel = 24;
  for (const Refused& row :
       {Refused{"width overflows", layoutOf(kHuge / 2, 1, kHuge), 64},
        Refused{"height overflows", layoutOf(1, kHuge, 4), 64},
        Refused{"rows overflow", layoutOf(1, 2, kHuge / 2 + 2), 64},
        Refused{"no width", layoutOf(0, 1, 4), 64}, Refused{"no height", layoutOf(1, 0, 4), 64},
        Refused{"no bytes per row", layoutOf(1, 1, 0), 64},
        Refused{"row too short", layoutOf(2, 1, 7), 64},
        Refused{"a byte short", layoutOf(2, 2, 8), 15}, Refused{"no bytes", layoutOf(1, 1, 4), 0},
        Refused{"16 bits per component", deep, 64}, Refused{"24 bits per pixel", packed, 64}})
    EXPECT_EQ(CGImage::create(row.layout, std::vector<std::uint8_t>(row.bytes)), nullptr)
        << row.reason;
}

TEST(CGImage, KeepsItsLayoutAndBytes) {
  const std::vector<std::uint8_t> bytes(3 * 12);
  const auto image = CGImage::create(layoutOf(2, 3, 12), bytes);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->width(), 2u);
  EXPECT_EQ(image->height(), 3u);
  EXPECT_EQ(image->bytes(), bytes);
  EXPECT_EQ(image->layout(), layoutOf(2, 3, 12));
}

struct Reading {
  CGImageAlphaInfo alphaInfo;
  CGImageByteOrder byteOrder;
  std::uint32_t expected;
};

TEST(CGImage, ReadsBothAlphaKindsInBothByteOrders) {
  using Alpha = CGImageAlphaInfo;
  using Order = CGImageByteOrder;
  for (const Reading& row : {Reading{Alpha::noneSkipFirst, Order::big32, 0xff203040u},
                             Reading{Alpha::noneSkipFirst, Order::little32, 0xff302010u},
                             Reading{Alpha::premultipliedFirst, Order::big32, 0x90203040u},
                             Reading{Alpha::premultipliedFirst, Order::little32, 0x40302090u}}) {
    CGImageLayout layout = layoutOf(1, 1, 4);
    layout.alphaInfo = row.alphaInfo;
    layout.byteOrder = row.byteOrder;
    const bool skips = row.alphaInfo == Alpha::noneSkipFirst;
    const std::uint8_t first = skips ? 0x10 : 0x90;
    const auto image = CGImage::create(layout, {first, 0x20, 0x30, 0x40});
    EXPECT_EQ(image->premultipliedARGB(0, 0), row.expected);
  }
}

TEST(CGImage, StepsOverThePaddingOfRows) {
  std::vector<std::uint8_t> bytes(2 * 12);
  bytes[12 + 4 + 3] = 0x77;
  const auto image = CGImage::create(layoutOf(2, 2, 12), bytes);
  EXPECT_EQ(image->premultipliedARGB(1, 1), 0xff000077u);
  EXPECT_EQ(image->premultipliedARGB(0, 1), 0xff000000u);
}

}  // namespace
}  // namespace vexel
