#include "ColoredSeries.h"

#include <algorithm>
#include <cmath>

#include "InputError.h"
#include "TimeColumn.h"

namespace explorer {

namespace {

bool holdsNumber(const Column& column) {
  return std::ranges::any_of(column.values, [](double value) { return std::isfinite(value); });
}

std::size_t firstBut(const Table& table, std::size_t time, std::optional<std::size_t> other,
                     const std::string& file) {
  for (std::size_t i = 0; i < table.columns.size(); ++i)
    if (i != time && i != other && holdsNumber(table.columns[i])) return i;
  throw InputError({.file = file}, "two columns besides the time have to hold numbers");
}

}  // namespace

ColoredSeries coloredSeries(const Table& table, std::size_t time,
                            const std::optional<std::string>& value,
                            const std::optional<std::string>& color, const std::string& file) {
  std::optional<std::size_t> colored;
  if (color) colored = columnNamed(table, *color, file);
  const std::size_t shown =
      value ? columnNamed(table, *value, file) : firstBut(table, time, colored, file);
  if (!colored) colored = firstBut(table, time, shown, file);

  const Column& column = table.columns[shown];
  const Column& coloring = table.columns[*colored];
  return {makeBand(column.name, BandStyle::symbols, table.columns[time].values, column.values),
          codingOf(coloring.name, coloring.values)};
}

}  // namespace explorer
