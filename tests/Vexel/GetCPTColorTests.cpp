#include <gtest/gtest.h>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

TEST(GetCPTColor, KnowsFifteenColours) {
  const struct {
    const char* name;
    CPTColor color;
  } rows[] = {
      {"red", CPTColor::redColor()},
      {"green", CPTColor::greenColor()},
      {"blue", CPTColor::blueColor()},
      {"cyan", CPTColor::cyanColor()},
      {"yellow", CPTColor::yellowColor()},
      {"magenta", CPTColor::magentaColor()},
      {"orange", CPTColor::orangeColor()},
      {"purple", CPTColor::purpleColor()},
      {"brown", CPTColor::brownColor()},
      {"verylightgray", CPTColor::colorWithGenericGray(0.8)},
      {"lightgray", CPTColor::lightGrayColor()},
      {"gray", CPTColor::grayColor()},
      {"darkgray", CPTColor::darkGrayColor()},
      {"white", CPTColor::whiteColor()},
      {"black", CPTColor::blackColor()},
  };
  TestPlot plot;
  for (const auto& [name, color] : rows) EXPECT_EQ(plot.getCPTColor(name), color) << name;
}

TEST(GetCPTColor, KnowsNothingElse) {
  using namespace std::string_literals;
  TestPlot plot;
  EXPECT_EQ(plot.getCPTColor(std::nullopt), std::nullopt);
  const std::string names[] = {
      "",           " ",          "red\0"s,   "\0"s,  "red ",  " red",          "Red",
      "RED",        "redColor",   "re",       "redd", "grey",  "lightgrey",     "darkgrey",
      "lightGray",  "light gray", "darkGray", "Gray", "clear", "veryLightGray", "very light gray",
      "whitesmoke", "#ff0000",
  };
  for (const auto& name : names) EXPECT_EQ(plot.getCPTColor(name), std::nullopt) << name;
}

}  // namespace
}  // namespace vexel
