#pragma once

#include <cstddef>
#include <vector>

#include "Column.h"

namespace explorer {

/// Columns of equal length, in the order of the file.
struct Table {
  std::vector<Column> columns;

  std::size_t rowCount() const { return columns.empty() ? 0 : columns.front().values.size(); }

  friend bool operator==(const Table&, const Table&) = default;
};

}  // namespace explorer
