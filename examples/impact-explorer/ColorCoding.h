#pragma once

#include <optional>
#include <string>
#include <vector>

#include <PlotColorTable/SymbolColorCode.h>

#include "Numbers.h"

namespace explorer {

/// The quantity that symbols are coloured by.
struct ColorCoding {
  vexel::SymbolColorCode quantity = vexel::SymbolColorCode::none;
  /// Of the colour bar.
  std::string title;
  /// One per symbol; NaN where there is none.
  Numbers values;

  /// Absent: the one that the quantity has.
  std::optional<vexel::PlotCT> table = std::nullopt;

  /// What the colour bar shows, with a colour per value that is there.
  vexel::ColorBarDefinition definition() const;
};

/// The coding that suits values: as the quantity that their title speaks of (charge, speed, size,
/// mass or energy), else by what they are like. Values that are not all above 0, or span
/// less than a decade, are shown linearly whatever they are called.
ColorCoding codingOf(std::string title, Numbers values);

}  // namespace explorer
