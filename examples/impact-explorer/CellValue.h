#pragma once

#include <optional>
#include <string_view>

namespace explorer {

/// The number a cell holds: decimal, with a point whatever the locale is, with or without sign and
/// exponent, between blanks (spaces and tabs). NaN for a cell that is empty or says "nan" in any
/// case. Absent when the cell is unreadable: anything else, and numbers that no finite double
/// other than 0 comes near ("1e400", "1e-400").
std::optional<double> cellValue(std::string_view cell);

}  // namespace explorer
