#include "CsvReport.h"

#include <fmt/format.h>

namespace explorer {

std::vector<std::string> CsvReport::warnings() const {
  std::vector<std::string> lines;
  for (const auto& complaint : complaints)
    lines.push_back(complaint.location.description() + ": " + complaint.text);
  if (raggedRows + unreadableCells > complaints.size())
    lines.push_back(fmt::format(
        "{}: in all {} ragged rows left out and {} unreadable cells left empty",
        Location{complaints.front().location.file}.description(), raggedRows, unreadableCells));
  return lines;
}

}  // namespace explorer
