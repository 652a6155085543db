#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CsvContent.h"

namespace explorer {

/// Makes a table of cells that come one by one, the header first, by the rules of `readCsv`.
class CsvTableBuilder {
 public:
  explicit CsvTableBuilder(std::string file) : file_(std::move(file)) {}

  void addCell(std::string_view cell);
  /// Ends the row that began in line `line` of the file. Throws InputError for a header without
  /// names.
  void endRow(std::size_t line);
  /// Throws InputError when there was no header, or no row with a number.
  CsvContent finish() &&;

 private:
  void endHeader(std::size_t line);
  void complain(Location location, std::string text);

  std::string file_;
  CsvContent content_;
  bool anyNumber_ = false;

  std::vector<std::string> names_;
  std::vector<double> row_;
  std::size_t unreadableInRow_ = 0;
  /// The first unreadable cells of the row: number of the column from 0, and what the cell says.
  std::vector<std::pair<std::size_t, std::string>> unreadable_;
};

}  // namespace explorer
