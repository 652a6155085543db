#include <AppKit/NSColor.h>

#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

struct NamedColor {
  const char* name;
  NSColor color;
  double red, green, blue, alpha;
};

TEST(NSColor, NamedColoursHaveTheirComponents) {
  const NamedColor colors[] = {
      {"clear", NSColor::clearColor(), 0, 0, 0, 0},
      {"white", NSColor::whiteColor(), 1, 1, 1, 1},
      {"black", NSColor::blackColor(), 0, 0, 0, 1},
      {"gray", NSColor::grayColor(), 0.5, 0.5, 0.5, 1},
      {"dark gray", NSColor::darkGrayColor(), 1.0 / 3, 1.0 / 3, 1.0 / 3, 1},
      {"light gray", NSColor::lightGrayColor(), 2.0 / 3, 2.0 / 3, 2.0 / 3, 1},
      {"red", NSColor::redColor(), 1, 0, 0, 1},
      {"green", NSColor::greenColor(), 0, 1, 0, 1},
      {"blue", NSColor::blueColor(), 0, 0, 1, 1},
      {"cyan", NSColor::cyanColor(), 0, 1, 1, 1},
      {"yellow", NSColor::yellowColor(), 1, 1, 0, 1},
      {"magenta", NSColor::magentaColor(), 1, 0, 1, 1},
      {"orange", NSColor::orangeColor(), 1, 0.5, 0, 1},
      {"purple", NSColor::purpleColor(), 0.5, 0, 0.5, 1},
      {"brown", NSColor::brownColor(), 0.6, 0.4, 0.2, 1},
  };
  for (const auto& [name, color, red, green, blue, alpha] : colors) {
    EXPECT_EQ(color.redComponent(), red) << name;
    EXPECT_EQ(color.greenComponent(), green) << name;
    EXPECT_EQ(color.blueComponent(), blue) << name;
    EXPECT_EQ(color.alphaComponent(), alpha) << name;
    EXPECT_EQ(color.cgColor(), CGColor::genericRGB(red, green, blue, alpha)) << name;
  }
}

TEST(NSColor, ComponentsOutsideZeroToOneAreBroughtToTheNearerEnd) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(NSColor::colorWithRed(kNaN, kInfinity, -kInfinity, 2),
            NSColor::colorWithRed(0, 1, 0, 1));
  EXPECT_EQ(NSColor::colorWithRed(-0.1, 1.1, 1e308, -1e-308), NSColor::colorWithRed(0, 1, 1, 0));
}

TEST(NSColor, AlphaIsOneUnlessGiven) {
  EXPECT_EQ(NSColor::colorWithRed(1, 0, 0), NSColor::redColor());
}

TEST(NSColor, ColoursThatDifferInOneComponentDiffer) {
  const auto color = NSColor::colorWithRed(0.1, 0.2, 0.3, 0.4);
  EXPECT_NE(color, NSColor::colorWithRed(0.11, 0.2, 0.3, 0.4));
  EXPECT_NE(color, NSColor::colorWithRed(0.1, 0.21, 0.3, 0.4));
  EXPECT_NE(color, NSColor::colorWithRed(0.1, 0.2, 0.31, 0.4));
  EXPECT_NE(color, NSColor::colorWithRed(0.1, 0.2, 0.3, 0.41));
}

}  // namespace
}  // namespace vexel
