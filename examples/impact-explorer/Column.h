#pragma once

#include <string>
#include <vector>

namespace explorer {

/// One quantity of a table.
struct Column {
  /// Not empty, on one line, and no other column of the table has it.
  std::string name;
  /// Finite numbers, NaN where a cell is absent.
  std::vector<double> values;

  friend bool operator==(const Column&, const Column&) = default;
};

}  // namespace explorer
