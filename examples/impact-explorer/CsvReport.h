#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Location.h"

namespace explorer {

/// A row or cell that could not be used.
struct CsvComplaint {
  Location location;
  std::string text;

  friend bool operator==(const CsvComplaint&, const CsvComplaint&) = default;
};

/// How reading a file went.
struct CsvReport {
  static constexpr std::size_t mostComplaints = 5;

  /// Rows in the table.
  std::size_t rows = 0;
  /// Rows with another number of cells than the header; they are not in the table.
  std::size_t raggedRows = 0;
  /// Cells of rows in the table that hold no number; they are absent there.
  std::size_t unreadableCells = 0;
  /// The first ragged rows and unreadable cells, at most `mostComplaints`, in the order of the
  /// file.
  std::vector<CsvComplaint> complaints = {};

  /// For the user, one line each: the complaints, then the numbers if there are more than those.
  /// Empty when there is nothing to complain about.
  std::vector<std::string> warnings() const;
};

}  // namespace explorer
