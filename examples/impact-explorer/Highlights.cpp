#include "Highlights.h"

#include <algorithm>
#include <cmath>

#include "TimeColumn.h"

namespace explorer {

namespace {

// A neighbour of the fullest bar belongs to the same stream from this share of it on.
constexpr double kShareOfFullest = 0.25;

const std::vector<double>& column(const Table& table, const char* name) {
  return table.columns[columnNamed(table, name, "sample")].values;
}

}  // namespace

std::optional<Highlights> highlightsOf(const ImpactSample& sample, const Band& counts) {
  const auto& days = column(sample.table, "Julian date");
  const auto& distances = column(sample.table, "Radial distance [au]");
  if (days.empty() || counts.values.empty()) return std::nullopt;

  const auto closest = std::min_element(distances.begin(), distances.end()) - distances.begin();
  std::size_t fullest = 0;
  for (std::size_t i = 0; i < counts.values.size(); ++i)
    if (std::isnan(counts.values[fullest]) || counts.values[i] > counts.values[fullest])
      fullest = i;
  const double most = counts.values[fullest];
  std::size_t first = fullest, last = fullest;
  while (first > 0 && counts.values[first - 1] >= kShareOfFullest * most) --first;
  while (last + 1 < counts.values.size() && counts.values[last + 1] >= kShareOfFullest * most)
    ++last;

  const double half = counts.barWidth / 2;
  return Highlights{
      .perihelionDay = days[static_cast<std::size_t>(closest)],
      .perihelionDistance = distances[static_cast<std::size_t>(closest)],
      .strongestStream = {counts.times[first] - half, counts.times[last] + half},
      .mostImpacts = most,
  };
}

}  // namespace explorer
