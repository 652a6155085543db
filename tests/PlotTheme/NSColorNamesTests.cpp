#include <PlotTheme/NSColorNames.h>
#include <gtest/gtest.h>

#include <string>

namespace vexel {
namespace {

TEST(NSColorNames, KnowTwelveColours) {
  const struct {
    const char* name;
    NSColor color;
  } rows[] = {
      {"red", NSColor::redColor()},       {"green", NSColor::greenColor()},
      {"yellow", NSColor::yellowColor()}, {"magenta", NSColor::magentaColor()},
      {"orange", NSColor::orangeColor()}, {"purple", NSColor::purpleColor()},
      {"brown", NSColor::brownColor()},   {"lightgray", NSColor::lightGrayColor()},
      {"gray", NSColor::grayColor()},     {"darkgray", NSColor::darkGrayColor()},
      {"white", NSColor::whiteColor()},   {"black", NSColor::blackColor()},
  };
  for (const auto& [name, color] : rows) EXPECT_EQ(getColor(name), color) << name;
}

TEST(NSColorNames, KnowNothingElse) {
  using namespace std::string_literals;
  const std::string names[] = {
      "",
      " ",
      "red\0"s,
      "\0red"s,
      "red\n",
      " red",
      "red ",
      "Red",
      "RED",
      "rED",
      "re",
      "redd",
      "redColor",
      "Gray",
      "grey",
      "lightgrey",
      "darkgrey",
      "lightGray",
      "darkGray",
      "light gray",
      "dark gray",
      "blue",
      "cyan",
      "clear",
      "verylightgray",
      "white black",
      "#ff0000",
      "0",
  };
  for (const auto& name : names) EXPECT_EQ(getColor(name), std::nullopt) << '"' << name << '"';
}

TEST(NSColorNames, AreReadUpToTheEndOfTheViewOnly) {
  EXPECT_EQ(getColor(std::string_view("redden").substr(0, 3)), NSColor::redColor());
  EXPECT_EQ(getColor(std::string_view()), std::nullopt);
}

TEST(NSColor, BecomesAColourOfTheChartEngineWithTheSameComponents) {
  const NSColor colors[] = {
      NSColor::clearColor(),
      NSColor::colorWithRed(-1, 2, std::numeric_limits<double>::quiet_NaN(), 0.25),
      NSColor::colorWithRed(0.125, 0.25, 0.5, 0.75),
      NSColor::whiteColor(),
      NSColor::darkGrayColor(),
      NSColor::brownColor(),
  };
  for (const NSColor& color : colors)
    EXPECT_EQ(getCPTColor(color),
              CPTColor(CGColor::genericRGB(color.redComponent(), color.greenComponent(),
                                           color.blueComponent(), color.alphaComponent())));
}

}  // namespace
}  // namespace vexel
