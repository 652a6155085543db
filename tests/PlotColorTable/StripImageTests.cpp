#include "StripImage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "PlotColorTable/ReplacedCatalogue.h"

namespace vexel {
namespace {

std::shared_ptr<const CGImage> stripOf(const ColorTable& entries) {
  const ReplacedCatalogue catalogue({{"gmt", {{1, entries}}}});
  return stripImage(PlotColorTable(1, "gmt"));
}

TEST(StripImage, HasABlankPixelThenTheEntriesFromTheLastToTheSecond) {
  const auto strip = stripOf({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}});
  const std::vector<std::uint8_t> expected{0, 0, 0, 0, 255, 7, 8, 9, 255, 4, 5, 6};
  EXPECT_EQ(strip->bytes(), expected);
  EXPECT_EQ(strip->premultipliedARGB(0, 0), 0xff000000u);
  EXPECT_EQ(strip->premultipliedARGB(0, 1), 0xff070809u);
}

TEST(StripImage, SkipsTheFirstByteOfEachPixelAndIsNotSmoothed) {
  const CGImageLayout expected{
      .width = 1,
      .height = 2,
      .bitsPerComponent = 8,
      .bitsPerPixel = 32,
      .bytesPerRow = 4,
      .colorSpace = CGColorSpace::deviceRGB,
      .alphaInfo = CGImageAlphaInfo::noneSkipFirst,
      .byteOrder = CGImageByteOrder::big32,
      .interpolates = false,
  };
  EXPECT_EQ(stripOf({{1, 2, 3}, {4, 5, 6}})->layout(), expected);
}

TEST(StripImage, CutsFractionsOff) {
  const auto strip = stripOf({{0, 0, 0}, {-0.999, 254.999, 255.999}});
  EXPECT_EQ(strip->premultipliedARGB(0, 1), 0xff00feffu);
}

TEST(StripImage, OfOneEntryIsBlank) {
  EXPECT_EQ(stripOf({{1, 2, 3}})->bytes(), std::vector<std::uint8_t>(4, 0));
}

TEST(StripImage, OfNoEntriesIsNone) {
  EXPECT_EQ(stripOf({}), nullptr);
}

TEST(StripImage, DoesNotLookAtTheFirstEntry) {
  EXPECT_EQ(stripOf({{1000, std::nan(""), -5}, {1, 2, 3}})->premultipliedARGB(0, 1), 0xff010203u);
}

TEST(StripImageDeathTest, RefusesComponentsThatAreNoBytes) {
  for (const double component :
       {-1.0, 256.0, 1e300, std::nan(""), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()})
    for (std::size_t place = 0; place < 3; ++place) {
      ColorTableEntry entry{1, 2, 3};
      entry[place] = component;
      EXPECT_DEATH(stripOf({{0, 0, 0}, entry}), "Fatal error: .*within 0 to 255");
    }
}

}  // namespace
}  // namespace vexel
