#include "CsvTableBuilder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Ascii.h"
#include "CellValue.h"
#include "ColumnNames.h"
#include "Excerpt.h"
#include "InputError.h"

namespace explorer {

void CsvTableBuilder::addCell(std::string_view cell) {
  if (content_.table.columns.empty()) {
    names_.emplace_back(cell);
    return;
  }
  const auto value = cellValue(cell);
  if (!value) {
    ++unreadableInRow_;
    if (unreadable_.size() < CsvReport::mostComplaints)
      unreadable_.emplace_back(row_.size(), excerpt(cell));
  }
  row_.push_back(value.value_or(std::numeric_limits<double>::quiet_NaN()));
}

void CsvTableBuilder::endRow(std::size_t line) {
  auto& columns = content_.table.columns;
  if (columns.empty()) {
    endHeader(line);
    return;
  }
  auto& report = content_.report;
  if (row_.size() != columns.size()) {
    ++report.raggedRows;
    complain({file_, line}, fmt::format("row left out: {} cells where the header has {}",
                                        row_.size(), columns.size()));
  } else {
    ++report.rows;
    report.unreadableCells += unreadableInRow_;
    for (const auto& [column, cell] : unreadable_)
      complain({file_, line, column + 1},
               fmt::format("{} is no number, in column {}", cell, excerpt(columns[column].name)));
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i].values.push_back(row_[i]);
    anyNumber_ = anyNumber_ || !std::ranges::all_of(row_, [](double v) { return std::isnan(v); });
  }
  row_.clear();
  unreadable_.clear();
  unreadableInRow_ = 0;
}

void CsvTableBuilder::endHeader(std::size_t line) {
  bool anyName = false;
  bool anyWord = false;
  for (const auto& name : names_) {
    const bool empty = withoutBlanks(name).empty();
    anyName = anyName || !empty;
    anyWord = anyWord || (!empty && !cellValue(name));
  }
  if (!anyName) throw InputError({file_, line}, "the header names no column");
  if (!anyWord)
    throw InputError({file_, line}, "there is no header: numbers where the column names should be");
  for (auto& name : columnNames(names_)) content_.table.columns.push_back({std::move(name), {}});
  names_.clear();
}

CsvContent CsvTableBuilder::finish() && {
  if (content_.table.columns.empty()) throw InputError({file_}, "there is no header line");
  const auto& report = content_.report;
  if (report.rows + report.raggedRows == 0)
    throw InputError({file_}, "there is no row below the header");
  if (!anyNumber_)
    throw InputError(
        report.complaints.empty() ? Location{file_} : report.complaints.front().location,
        fmt::format("no row can be read: {} ragged rows, {} unreadable cells in {} others",
                    report.raggedRows, report.unreadableCells, report.rows));
  return std::move(content_);
}

void CsvTableBuilder::complain(Location location, std::string text) {
  auto& complaints = content_.report.complaints;
  if (complaints.size() < CsvReport::mostComplaints)
    complaints.push_back({std::move(location), std::move(text)});
}

}  // namespace explorer
