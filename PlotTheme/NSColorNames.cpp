#include <PlotTheme/NSColorNames.h>

namespace vexel {

std::optional<NSColor> getColor(std::string_view forCPTName) {
  static constexpr struct {
    std::string_view name;
    NSColor color;
  } kColors[] = {
      {"red", NSColor::redColor()},       {"green", NSColor::greenColor()},
      {"yellow", NSColor::yellowColor()}, {"magenta", NSColor::magentaColor()},
      {"orange", NSColor::orangeColor()}, {"purple", NSColor::purpleColor()},
      {"brown", NSColor::brownColor()},   {"lightgray", NSColor::lightGrayColor()},
      {"gray", NSColor::grayColor()},     {"darkgray", NSColor::darkGrayColor()},
      {"white", NSColor::whiteColor()},   {"black", NSColor::blackColor()},
  };
  for (const auto& [name, color] : kColors)
    if (name == forCPTName) return color;
  return std::nullopt;
}

CPTColor getCPTColor(const NSColor& color) {
  return CPTColor(CPTCreateCGColorFromNSColor(color));
}

}  // namespace vexel
