#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include <AppKit/NSColor.h>

#include <PlotColorTable/ColorTableCatalogue.h>

namespace vexel {

/// One table of the catalogue with its colours, as a value of its own. Every one that is built
/// is logged.
class PlotColorTable {
 public:
  /// The table of that number and family ("IDL", "gmt", "brewer", "qorm" or "xan", exactly). Where
  /// there is none, IDL 13, after an error in the log; without that one either it is a fatal error.
  PlotColorTable(std::int64_t ct, std::string_view family);

  const std::vector<NSColor>& colors() const { return colors_; }
  /// As many as there are colours, in the same order.
  const std::vector<ColorTableEntry>& entries() const { return entries_; }

 private:
  void loadDefaultTable();
  void convert(const ColorTable& table);

  std::vector<NSColor> colors_;
  std::vector<ColorTableEntry> entries_;
};

}  // namespace vexel
