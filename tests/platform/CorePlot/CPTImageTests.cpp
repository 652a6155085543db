#include <CorePlot/CPTImage.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::shared_ptr<const CGImage> pixels(std::size_t width, std::size_t height) {
  return CGImage::create({.width = width, .height = height, .bytesPerRow = 4 * width},
                         std::vector<std::uint8_t>(4 * width * height));
}

std::string drawn(const CPTImage& image, const CGRect& rect) {
  CGRecordingContext context;
  image.draw(context, rect);
  return context.text();
}

TEST(CPTImage, WithoutAnImageOrAnAreaNothingIsDrawn) {
  EXPECT_EQ(drawn({}, CGRect::make(0, 0, 10, 10)), "");
  EXPECT_EQ(drawn({.image = pixels(2, 2)}, {}), "");
}

TEST(CPTImage, ImpossibleScalesAndTilesTooManyOrTooSmallDoNotHang) {
  const struct {
    double scale;
    CGRect rect;
    std::string expected;
  } rows[] = {
      {1, CGRect::make(0, 0, 1e300, 1e300), "image 2 x 2 over 0 0 "},
      {1, CGRect::make(0, 0, 1e5, 1e5), "image 2 x 2 over 0 0 100000 100000\n"},
      {1e300, CGRect::make(0, 0, 4, 4), "image 2 x 2 over 0 0 4 4\n"},
      {4, CGRect::make(0, 0, 4, 4), "image 2 x 2 over 0 0 4 4\n"},
  };
  for (const auto& row : rows) {
    const CPTImage image{.image = pixels(2, 2), .scale = row.scale, .tiled = true};
    EXPECT_EQ(drawn(image, row.rect).substr(0, row.expected.size()), row.expected) << row.scale;
  }
}

TEST(CPTImage, AScaleThatIsNoneCountsAsOne) {
  const CGRect rect = CGRect::make(0, 0, 4, 2);
  const std::string once = drawn({.image = pixels(2, 2), .scale = 1, .tiled = true}, rect);
  for (const double scale : {kNaN, kInfinity, -1.0, 0.0})
    EXPECT_EQ(drawn({.image = pixels(2, 2), .scale = scale, .tiled = true}, rect), once) << scale;
}

TEST(CPTImage, AnUntiledImageIsStretchedOverTheWholeArea) {
  EXPECT_EQ(drawn({.image = pixels(1, 16)}, CGRect::make(5, 6, 70, 80)),
            "image 1 x 16 over 5 6 70 80\n");
}

TEST(CPTImage, ATiledImageIsRepeatedFromTheBottomLeftCornerAndCutAtTheEdges) {
  const CPTImage image{.image = pixels(4, 2), .scale = 2, .tiled = true};
  EXPECT_EQ(drawn(image, CGRect::make(10, 20, 3, 2)),
            "save\n"
            "  clip M 10 20 L 13 20 L 13 22 L 10 22 Z\n"
            "  image 4 x 2 over 10 20 2 1\n"
            "  image 4 x 2 over 12 20 2 1\n"
            "  image 4 x 2 over 10 21 2 1\n"
            "  image 4 x 2 over 12 21 2 1\n"
            "restore\n");
}

TEST(CPTImage, AnImageIsStretchedAtScaleOneUnlessSaidOtherwise) {
  const CPTImage image;
  EXPECT_EQ(image.scale, 1);
  EXPECT_FALSE(image.tiled);
}

}  // namespace
}  // namespace vexel
