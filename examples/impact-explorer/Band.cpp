#include "Band.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Kitbase/MajorInterval.h>

#include "DailyCounts.h"
#include "InputError.h"
#include "TimeColumn.h"

namespace explorer {

namespace {

// Beyond this a range would be longer than the largest double.
constexpr double kLargest = 4e307;
constexpr double kLogarithmicFrom = 1000;
// A line moves by less than this part of its range from one row to the next, half of the time.
constexpr double kSmoothStep = 0.05;
constexpr int kDaysPerBar = 5;
// Of a range, at an end that symbols would stand across.
constexpr double kTimeRoom = 0.01;
constexpr double kValueRoom = 0.02;
// Bars leave a gap to their neighbours.
constexpr double kBarShare = 0.8;

std::vector<double> finiteOf(const std::vector<double>& numbers) {
  std::vector<double> result;
  std::copy_if(numbers.begin(), numbers.end(), std::back_inserter(result),
               [](double number) { return std::isfinite(number); });
  return result;
}

double median(std::vector<double> numbers) {
  if (numbers.empty()) return std::numeric_limits<double>::quiet_NaN();
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

bool spansDecades(const std::vector<double>& values) {
  const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
  return *least > 0 && *greatest / *least >= kLogarithmicFrom;
}

/// Moves the ends of a range that the extremes come near to.
void addRoom(double& lower, double& upper, double least, double greatest) {
  const double room = kValueRoom * (upper - lower);
  const bool isNearLower = least < lower + room;
  if (greatest > upper - room) upper += room;
  if (isNearLower) lower -= room;
}

void chooseValueAxis(Band& band) {
  const std::vector<double> values = finiteOf(band.values);
  if (values.empty()) return;
  const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
  double low = std::max(*least, -kLargest);
  double high = std::min(*greatest, kLargest);

  band.logarithmic = band.style != BandStyle::bars && spansDecades(values);
  if (band.logarithmic) {
    double lower = std::floor(std::log10(low));
    double upper = std::ceil(std::log10(high));
    addRoom(lower, upper, std::log10(low), std::log10(high));
    band.lower = std::pow(10, lower);
    band.upper = std::pow(10, upper);
    return;
  }
  if (band.style == BandStyle::bars) low = std::min(low, 0.0);
  if (low == high) {
    const double room = std::max(std::abs(low) / 10, 0.5);
    low -= room;
    high += room;
  }
  const double step = vexel::getOptimimumMajorInterval(std::vector{low, high}, 1.0);
  band.lower = std::floor(low / step) * step;
  band.upper = std::ceil(high / step) * step;
  if (band.style != BandStyle::bars) addRoom(band.lower, band.upper, low, high);
}

double usualDistance(const std::vector<double>& times) {
  std::vector<double> sorted = finiteOf(times);
  std::sort(sorted.begin(), sorted.end());
  std::vector<double> distances;
  for (std::size_t i = 1; i < sorted.size(); ++i)
    if (sorted[i] > sorted[i - 1]) distances.push_back(sorted[i] - sorted[i - 1]);
  return distances.empty() ? 1 : median(std::move(distances));
}

Band columnBand(const Table& table, std::size_t time, std::size_t column) {
  const Column& quantity = table.columns[column];
  return makeBand(quantity.name, suitableStyle(quantity.values), table.columns[time].values,
                  quantity.values);
}

}  // namespace

BandStyle suitableStyle(const std::vector<double>& values) {
  std::vector<double> present = finiteOf(values);
  if (present.empty()) return BandStyle::symbols;
  const bool counts = std::all_of(present.begin(), present.end(), [](double value) {
    return value >= 0 && value == std::floor(value);
  });
  if (counts) return BandStyle::bars;
  // What is shown logarithmically is smooth when its logarithms are.
  if (spansDecades(present))
    for (double& value : present) value = std::log10(value);
  const auto [least, greatest] = std::minmax_element(present.begin(), present.end());
  std::vector<double> steps;
  for (std::size_t i = 1; i < present.size(); ++i)
    steps.push_back(std::abs(present[i] - present[i - 1]));
  return median(std::move(steps)) <= kSmoothStep * (*greatest - *least) ? BandStyle::line
                                                                        : BandStyle::symbols;
}

Band makeBand(std::string title, BandStyle style, Numbers times, Numbers values) {
  Band band{.title = std::move(title),
            .style = style,
            .times = std::move(times),
            .values = std::move(values)};
  if (style == BandStyle::bars) band.barWidth = kBarShare * usualDistance(band.times);
  chooseValueAxis(band);
  return band;
}

std::vector<Band> bandsOf(const Table& table, std::size_t time,
                          const std::vector<std::string>& chosen, const std::string& file) {
  std::vector<Band> bands;
  for (const std::string& name : chosen)
    bands.push_back(columnBand(table, time, columnNamed(table, name, file)));
  if (!chosen.empty()) return bands;
  for (std::size_t i = 0; i < table.columns.size() && bands.size() < kMostBands; ++i)
    if (i != time && !finiteOf(table.columns[i].values).empty())
      bands.push_back(columnBand(table, time, i));
  if (bands.empty()) throw InputError({.file = file}, "no column but the time holds a number");
  return bands;
}

std::vector<Band> bandsOf(const ImpactSample& sample, std::size_t time,
                          const std::vector<std::string>& chosen, const std::string& file) {
  static const std::vector<std::string> kDefault = {"Impact charge [fC]", "Impact speed [km/s]",
                                                    "Radial distance [au]"};
  const DailyCounts counts =
      countsPerDays(sample.table.columns[time].values, kDaysPerBar, sample.instrumentOff);
  std::vector<double> middles;
  for (std::size_t i = 0; i < counts.counts.size(); ++i) middles.push_back(counts.middle(i));
  std::vector<Band> bands = {makeBand("Impacts per " + std::to_string(kDaysPerBar) + " days",
                                      BandStyle::bars, std::move(middles), counts.counts)};
  bands.front().otherUnit = {.title = "Impacts per day", .size = kDaysPerBar};
  for (Band& band : bandsOf(sample.table, time, chosen.empty() ? kDefault : chosen, file))
    bands.push_back(std::move(band));
  return bands;
}

TimeSpan timeSpan(const std::vector<Band>& bands) {
  double start = std::numeric_limits<double>::infinity();
  double end = -start;
  double firstPoint = start, lastPoint = end;
  for (const Band& band : bands) {
    const bool isBars = band.style == BandStyle::bars;
    const double room = isBars ? band.barWidth / 2 : 0;
    for (const double time : band.times) {
      if (!std::isfinite(time)) continue;
      start = std::min(start, std::max(time - room, -kLargest));
      end = std::max(end, std::min(time + room, kLargest));
      if (isBars) continue;
      firstPoint = std::min(firstPoint, time);
      lastPoint = std::max(lastPoint, time);
    }
  }
  if (start > end) return {};
  if (start == end) return {start - 0.5, end + 0.5};
  const double room = kTimeRoom / (1 - 2 * kTimeRoom) * (end - start);
  const TimeSpan roomy{std::min(start, std::max(firstPoint - room, -kLargest)),
                       std::max(end, std::min(lastPoint + room, kLargest))};
  // Not beyond the end of the calendar.
  const TimeSpan tight{start, end};
  return tight.isInCalendar() && !roomy.isInCalendar() ? tight : roomy;
}

}  // namespace explorer
