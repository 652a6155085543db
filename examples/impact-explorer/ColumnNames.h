#pragma once

#include <string>
#include <vector>

namespace explorer {

/// Names for columns with the headings `headings`: on one line, not empty, no two alike. See
/// `readCsv` for how they come about.
std::vector<std::string> columnNames(const std::vector<std::string>& headings);

}  // namespace explorer
