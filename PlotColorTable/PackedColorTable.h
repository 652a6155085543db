#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>

#include <PlotColorTable/ColorTableCatalogue.h>

namespace vexel {

/// A table as the sources hold it: 0xrrggbb per entry.
using PackedColorTable = std::array<std::uint32_t, 256>;

struct NumberedColorTable {
  std::int64_t number;
  const PackedColorTable& table;
};

ColorTableFamily unpacked(std::initializer_list<NumberedColorTable> tables);

}  // namespace vexel
