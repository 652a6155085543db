#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <string>

#include "CsvReader.h"
#include "InputError.h"
#include "MemoryFile.h"
#include "Require.h"
#include "TimeColumn.h"

namespace {

using namespace explorer;
using vexel::require;

bool isOneLine(const std::string& text) {
  return text.find_first_of("\r\n") == text.npos;
}

void checkTable(const Table& table) {
  std::set<std::string> names;
  bool anyNumber = false;
  for (const Column& column : table.columns) {
    require(!column.name.empty(), "a column has a name");
    require(isOneLine(column.name), "a column's name is one line");
    require(names.insert(column.name).second, "no two columns have the same name");
    require(column.values.size() == table.rowCount(), "columns have equal lengths");
    for (const double value : column.values) {
      require(!std::isinf(value), "no value is infinite");
      anyNumber = anyNumber || !std::isnan(value);
    }
  }
  require(anyNumber, "there is a number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const vexel::MemoryFile file(data, size);
  try {
    const CsvContent csv = readCsv(file.name());
    checkTable(csv.table);
    require(csv.report.rows == csv.table.rowCount(), "the report counts the rows");
    require(csv.report.complaints.size() <= CsvReport::mostComplaints, "complaints are few");
    require(std::ranges::all_of(csv.report.warnings(), isOneLine), "a warning is one line");
    const std::size_t time = timeColumn(csv.table, std::nullopt, file.name());
    require(time < csv.table.columns.size(), "the time column is one of the table's");
  } catch (const InputError& error) {
    require(isOneLine(error.what()), "an error is one line");
  }
  return 0;
}
