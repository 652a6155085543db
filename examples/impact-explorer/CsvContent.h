#pragma once

#include "CsvReport.h"
#include "Table.h"

namespace explorer {

/// What a CSV file holds, and how well it could be read.
struct CsvContent {
  Table table;
  CsvReport report;
};

}  // namespace explorer
