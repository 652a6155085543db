#pragma once

#include <optional>
#include <string>

#include "Band.h"
#include "ColorCoding.h"
#include "Table.h"

namespace explorer {

/// One quantity over time, and another that colours it.
struct ColoredSeries {
  Band band;
  ColorCoding coding;
};

/// The columns called `value` and `color`. Without a name it is the first column that holds a
/// number and is neither the time nor the other one. Throws InputError, about `file`, for unknown
/// names and when there is no such column.
ColoredSeries coloredSeries(const Table& table, std::size_t time,
                            const std::optional<std::string>& value,
                            const std::optional<std::string>& color, const std::string& file);

}  // namespace explorer
