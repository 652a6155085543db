#include "PackedColorTable.h"

namespace vexel {

namespace {

ColorTable unpacked(const PackedColorTable& packed) {
  ColorTable table;
  table.reserve(packed.size());
  for (const std::uint32_t rgb : packed)
    table.push_back({static_cast<CGFloat>(rgb >> 16), static_cast<CGFloat>(rgb >> 8 & 0xff),
                     static_cast<CGFloat>(rgb & 0xff)});
  return table;
}

}  // namespace

ColorTableFamily unpacked(std::initializer_list<NumberedColorTable> tables) {
  ColorTableFamily family;
  for (const auto& [number, table] : tables) family.emplace(number, unpacked(table));
  return family;
}

}  // namespace vexel
