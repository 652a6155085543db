#include <PlotColorTable/PlotCT.h>

#include <algorithm>

#include <Foundation/FatalError.h>

#include "PlotColorTable.h"
#include "StripImage.h"

namespace vexel {

namespace {

struct Choice {
  const char* description;
  // Deliberate: the key of the first family is in upper case, the others in lower case.
  const char* family;
  std::int64_t number;
};

// By raw value.
constexpr Choice kChoices[] = {
    {"IDL: B-W LINEAR", "IDL", 0},
    {"IDL: Blue/White", "IDL", 1},
    {"IDL: Green-Red-Blue-White", "IDL", 2},
    {"IDL: Green-Pink", "IDL", 10},
    {"IDL: Blue-Red", "IDL", 11},
    {"IDL: 16 Level", "IDL", 12},
    {"IDL: IDL Rainbow", "IDL", 13},
    {"GMT: Haxby", "gmt", 7},
    {"GMT: Hot", "gmt", 8},
    {"GMT: No Green", "gmt", 10},
    {"GMT: Panoply", "gmt", 12},
    {"GMT: Polar", "gmt", 13},
    {"GMT: Rainbow", "gmt", 14},
    {"GMT: WYSIWYG", "gmt", 21},
    {"Brewer: PuBuGn (Sequential)", "brewer", 17},
    {"Brewer: RdBu (Diverging)", "brewer", 21},
    {"Brewer: Spectral (Diverging)", "brewer", 30},
    {"Qorm: Min-Top", "qorm", 11},
    {"Xan: Cyanotype 01", "xan", 16},
};

PlotColorTable build(const PlotCT& table) {
  return PlotColorTable(table.number(), table.family());
}

const NSColor* at(std::int64_t index, const std::vector<NSColor>& colors) {
  const bool isInside = index >= 0 && index < static_cast<std::int64_t>(colors.size());
  return isInside ? &colors[static_cast<std::size_t>(index)] : nullptr;
}

CGColor genericRGB(const NSColor& color) {
  return CGColor::genericRGB(color.redComponent(), color.greenComponent(), color.blueComponent(),
                             color.alphaComponent());
}

}  // namespace

std::optional<PlotCT> PlotCT::fromRawValue(std::int64_t rawValue) {
  if (static_cast<std::uint64_t>(rawValue) >= std::size(kChoices)) return std::nullopt;
  return PlotCT(static_cast<Case>(rawValue));
}

std::string PlotCT::description() const {
  return kChoices[rawValue()].description;
}

std::string PlotCT::family() const {
  return kChoices[rawValue()].family;
}

std::int64_t PlotCT::number() const {
  return kChoices[rawValue()].number;
}

std::optional<NSColor> PlotCT::getColor(std::int64_t index) const {
  const PlotColorTable table = build(*this);
  const NSColor* color = at(index, table.colors());
  return color ? std::optional(*color) : std::nullopt;
}

std::optional<CGColor> PlotCT::getCGColor(std::int64_t index) const {
  const PlotColorTable table = build(*this);
  const NSColor* color = at(index, table.colors());
  return color ? std::optional(genericRGB(*color)) : std::nullopt;
}

std::optional<CPTColor> PlotCT::getCPTColor(std::int64_t index) const {
  const PlotColorTable table = build(*this);
  if (table.colors().empty()) return std::nullopt;
  if (index < 0) fatalError("PlotCT.getCPTColor: a negative colour index");
  const NSColor* color = at(index, table.colors());
  return color ? std::optional(CPTColor(genericRGB(*color))) : std::nullopt;
}

std::optional<NSImage> PlotCT::image() const {
  const auto strip = stripImage(build(*this));
  if (!strip) return std::nullopt;
  return NSImage(strip, {1.0, static_cast<CGFloat>(strip->height())});
}

std::vector<PlotCT> PlotCT::getTables() {
  std::vector<PlotCT> tables;
  for (std::size_t i = 0; i < std::size(kChoices); ++i) tables.push_back(static_cast<Case>(i));
  return tables;
}

std::map<std::int64_t, PlotCT> PlotCT::getTableDictionary() {
  std::map<std::int64_t, PlotCT> dictionary;
  for (const PlotCT table : getTables())
    dictionary.emplace(static_cast<std::int64_t>(dictionary.size()), table);
  return dictionary;
}

std::vector<std::string> PlotCT::getTableNames() {
  std::vector<std::string> names;
  for (const PlotCT table : getTables()) names.push_back(table.description());
  return names;
}

PlotCT PlotCT::getTable(std::int64_t number, const std::string& family) {
  for (const PlotCT table : getTables())
    if (table.number() == number && table.family() == family) return table;
  return idl16Level;
}

const std::string& PlotCT::colourTableDidChange() {
  static const std::string name = "PlotCT.colourTableDidChange";
  return name;
}

void PlotCT::refuse() const {
  fatalError("PlotCT: unexpected raw value " + std::to_string(case_));
}

}  // namespace vexel
