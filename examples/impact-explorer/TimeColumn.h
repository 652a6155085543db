#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Table.h"

namespace explorer {

/// The column called `name`, exactly or else without regard to the case of ASCII letters and to
/// blanks around it. Throws InputError, about `file`, with the names that would do.
std::size_t columnNamed(const Table& table, const std::string& name, const std::string& file);

/// The column that holds Julian days. With `requested` it is the column of that name; otherwise the
/// first whose name speaks of a Julian date or day or has the word "JD" in it, or else the first
/// with "Julian" in it, in any case.
/// Throws InputError, about `file`, when there is none or when the column holds no number.
std::size_t timeColumn(const Table& table, const std::optional<std::string>& requested,
                       const std::string& file);

}  // namespace explorer
