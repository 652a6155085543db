#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace explorer {

/// A place in a table file. Lines count from 1 as an editor counts them, columns are those of the
/// table and count from 1 as well; a column is given only together with a line.
struct Location {
  std::string file;
  std::optional<std::size_t> line = {};
  std::optional<std::size_t> column = {};

  /// "<file>", "<file>:<line>" or "<file>:<line>:<column>", always on one line.
  std::string description() const;

  friend bool operator==(const Location&, const Location&) = default;
};

}  // namespace explorer
