#include "TableSheet.h"

#include <PlotColorTable/ColorTableCatalogue.h>
#include <PlotColorTable/PlotCT.h>

namespace explorer {

using namespace vexel;

namespace {

constexpr CGFloat kMargin = 16;
constexpr CGFloat kNameWidth = 230;
// The part of a row that its strip takes.
constexpr CGFloat kStripShare = 0.8;
// In points, unless rows are too low for it.
constexpr CGFloat kLargestFont = 13;
constexpr CGFloat kFontShare = 0.6;
constexpr CGFloat kOutlineWidth = 0.5;

struct Row {
  std::string name;
  const ColorTable& table;
};

/// The name of a table that can be chosen, or of one that is only in the catalogue.
std::string nameOf(std::int64_t number, const std::string& family) {
  const PlotCT table = PlotCT::getTable(number, family);
  if (table.number() == number && table.family() == family) return table.description();
  return family + " " + std::to_string(number);
}

std::vector<Row> rows() {
  const std::pair<const char*, const ColorTableFamily&> families[] = {
      {"IDL", idlColorTables()},   {"gmt", gmtColorTables()}, {"brewer", brewerColorTables()},
      {"qorm", qormColorTables()}, {"xan", xanColorTables()},
  };
  std::vector<Row> result;
  for (const auto& [key, family] : families)
    for (const auto& [number, table] : family) result.push_back({nameOf(number, key), table});
  return result;
}

std::shared_ptr<const CGImage> strip(const ColorTable& table) {
  std::vector<std::uint8_t> bytes;
  for (const ColorTableEntry& entry : table) {
    bytes.push_back(0);
    for (const CGFloat component : entry) bytes.push_back(static_cast<std::uint8_t>(component));
  }
  return CGImage::create({.width = table.size(), .height = 1, .bytesPerRow = 4 * table.size()},
                         std::move(bytes));
}

}  // namespace

void TableSheet::draw(CGContext& context, CGRect) {
  const NSColor background =
      theme_ == PlotTheme::black ? NSColor::blackColor() : NSColor::whiteColor();
  context.fillAligned(bounds(), background.cgColor());

  const std::vector<Row> all = rows();
  const CGRect area = bounds().insetBy(kMargin, kMargin);
  const CGFloat height = area.size.height / static_cast<CGFloat>(all.size());
  const CGFont font{.size = std::min(kLargestFont, kFontShare * height)};
  CGFloat top = area.maxY();
  for (const auto& [name, table] : all) {
    const CGFloat middle = top - height / 2;
    const CGText text{{{name, font, theme_.plotColor().cgColor()}}};
    context.drawText(text, {area.minX(), middle - context.measure(text).height / 2});
    const CGFloat left = area.minX() + kNameWidth;
    const CGRect box = CGRect::make(left, middle - kStripShare * height / 2, area.maxX() - left,
                                    kStripShare * height);
    context.drawImage(*strip(table), box);
    CGMutablePath outline;
    outline.addRect(box);
    context.stroke(outline, {.color = theme_.labelColor().cgColor(), .width = kOutlineWidth});
    top -= height;
  }
}

}  // namespace explorer
