#include <CorePlot/CPTFill.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gtest/gtest.h>

namespace vexel {
namespace {

CPTImage image() {
  return {.image = CGImage::create({.width = 2, .height = 2, .bytesPerRow = 8},
                                   std::vector<std::uint8_t>(16))};
}

TEST(CPTFill, NothingIsFilledWhereThereIsNoArea) {
  CGRecordingContext context;
  for (const CGRect& rect : {CGRect{}, CGRect::make(0, 0, 10, 0), CGRect::make(0, 0, 0, 10)}) {
    CPTFill(CPTColor::redColor()).fill(context, rect);
    CPTFill(image()).fill(context, rect);
  }
  EXPECT_EQ(context.text(), "");
}

TEST(CPTFill, ARectangleIsFilledInTheColourUpToPixelEdges) {
  CGRecordingContext context;
  CPTFill(CPTColor::redColor()).fill(context, CGRect::make(1, 2, 3, 4));
  EXPECT_EQ(context.text(), "fill #ff0000 aligned: 1 2 3 4\n");
}

TEST(CPTFill, AShapeIsFilledInTheColour) {
  CGMutablePath path;
  path.addRect(CGRect::make(0, 0, 1, 1));
  CGRecordingContext context;
  CPTFill(CPTColor::redColor()).fill(context, path);
  EXPECT_EQ(context.text(), "fill #ff0000: M 0 0 L 1 0 L 1 1 L 0 1 Z\n");
}

TEST(CPTFill, AnImageIsStretchedOverTheBoxOfAShapeAndCutToIt) {
  CGMutablePath path;
  path.move({0, 0});
  path.addLine({6, 0});
  path.addLine({0, 4});
  path.closeSubpath();
  CGRecordingContext context;
  CPTFill(image()).fill(context, path);
  EXPECT_EQ(context.text(),
            "save\n"
            "  clip M 0 0 L 6 0 L 0 4 Z\n"
            "  image 2 x 2 over 0 0 6 4\n"
            "restore\n");
}

TEST(CPTFill, AFillIsEitherAColourOrAnImage) {
  const CPTFill plain(CPTColor::redColor());
  const CPTFill pictured(image());
  ASSERT_NE(plain.color(), nullptr);
  EXPECT_EQ(*plain.color(), CPTColor::redColor());
  EXPECT_EQ(plain.image(), nullptr);
  EXPECT_EQ(pictured.color(), nullptr);
  ASSERT_NE(pictured.image(), nullptr);
  EXPECT_NE(plain, pictured);
  EXPECT_EQ(plain, CPTFill(CPTColor::redColor()));
}

}  // namespace
}  // namespace vexel
