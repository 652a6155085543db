#include "Exploration.h"

#include <algorithm>
#include <cmath>

#include "DailyCounts.h"
#include "InputError.h"
#include "TimeColumn.h"

namespace explorer {

namespace {

constexpr std::size_t kUsualBands = 3;
// As many bars as can be told apart.
constexpr double kMostBars = 225;

bool holdsNumber(const Column& column) {
  return std::ranges::any_of(column.values, [](double value) { return std::isfinite(value); });
}

bool contains(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

template <class Made>
const Made& kept(std::map<std::string, Made>& all, const std::string& name, auto make) {
  const auto found = all.find(name);
  return found != all.end() ? found->second : all.emplace(name, make()).first->second;
}

}  // namespace

Exploration::Exploration(const std::optional<std::string>& file,
                         const std::optional<std::string>& timeName, const ReadWatch& watch)
    : name_(file.value_or("sample")) {
  std::vector<DaySpan> unmeasured;
  std::uint64_t bytesRead = 0;
  if (file) {
    CsvContent csv = readCsv(*file, [&](std::uint64_t bytes) { return watch(bytesRead = bytes); });
    table_ = std::move(csv.table);
    warnings_ = csv.report.warnings();
  } else {
    ImpactSample sample = impactSample();
    table_ = std::move(sample.table);
    unmeasured = std::move(sample.instrumentOff);
  }
  time_ = timeColumn(table_, timeName, name_);
  rowTimes_ = std::move(table_.columns[time_].values);
  nearestRow_ = NearestPoint(rowTimes_);
  for (std::size_t i = 0; i < table_.columns.size(); ++i)
    if (i != time_ && holdsNumber(table_.columns[i])) quantities_.push_back(table_.columns[i].name);
  if (quantities_.empty()) throw InputError({name_}, "no column but the time holds a number");

  span_ = timeSpan({Band{.title = "", .times = rowTimes_}});
  if (span_.isInCalendar()) countRows(unmeasured, file ? "Rows" : "Impacts");

  // Made here, where the window does not wait for them.
  const auto goOn = [&] {
    if (!watch(bytesRead)) throw ReadingEnded();
  };
  const Choice first = choice(std::nullopt, std::nullopt, {});
  goOn();
  valueBand(first.value);
  goOn();
  coding(first.color);
  for (const std::string& quantity : first.bands) {
    goOn();
    band(quantity);
  }
}

void Exploration::countRows(const std::vector<DaySpan>& unmeasured, const std::string& noun) {
  const int days = std::max(1, static_cast<int>(std::ceil((span_.end - span_.start) / kMostBars)));
  const DailyCounts counts = countsPerDays(rowTimes_, days, unmeasured);
  std::vector<double> middles;
  for (std::size_t i = 0; i < counts.counts.size(); ++i) middles.push_back(counts.middle(i));
  const std::string unit = days == 1 ? "day" : std::to_string(days) + " days";
  counts_ = makeBand(noun + " per " + unit, BandStyle::bars, std::move(middles), counts.counts);
  nearestCount_ = NearestPoint(counts_->times);
}

std::vector<std::string> Exploration::bandQuantities() const {
  std::vector<std::string> all = quantities_;
  if (counts_) all.insert(all.begin(), counts_->title);
  return all;
}

Choice Exploration::choice(const std::optional<std::string>& value,
                           const std::optional<std::string>& color,
                           const std::vector<std::string>& bands) const {
  // The sample's own figure is the most telling one.
  const auto orElse = [&](const std::optional<std::string>& asked, const char* usual,
                          const std::string& butNot) {
    if (asked && contains(quantities_, *asked)) return *asked;
    if (contains(quantities_, usual) && usual != butNot) return std::string(usual);
    const auto other =
        std::ranges::find_if(quantities_, [&](auto& name) { return name != butNot; });
    return other == quantities_.end() ? quantities_.front() : *other;
  };
  Choice result;
  result.value = orElse(value, "Impact charge [fC]", color.value_or(""));
  result.color = orElse(color, "Impact speed [km/s]", result.value);

  const std::vector<std::string> all = bandQuantities();
  std::ranges::copy_if(bands, std::back_inserter(result.bands),
                       [&](const std::string& name) { return contains(all, name); });
  if (!result.bands.empty()) return result;
  for (const char* usual : {"Impact speed [km/s]", "Radial distance [au]"})
    if (contains(all, usual)) result.bands.emplace_back(usual);
  if (counts_) result.bands.insert(result.bands.begin(), counts_->title);
  for (const std::string& name : all)
    if (result.bands.size() < kUsualBands && !contains(result.bands, name) &&
        name != result.value && name != result.color)
      result.bands.push_back(name);
  if (result.bands.empty()) result.bands = {result.value};
  return result;
}

const Numbers& Exploration::values(const std::string& quantity) const {
  return kept(values_, quantity,
              [&] { return table_.columns[columnNamed(table_, quantity, name_)].values; });
}

const Band& Exploration::valueBand(const std::string& quantity) const {
  const std::scoped_lock lock(mutex_);
  return kept(valueBands_, quantity,
              [&] { return makeBand(quantity, BandStyle::symbols, rowTimes_, values(quantity)); });
}

const Band& Exploration::band(const std::string& quantity) const {
  if (counts_ && quantity == counts_->title) return *counts_;
  const std::scoped_lock lock(mutex_);
  return kept(bands_, quantity, [&] {
    const Numbers& shown = values(quantity);
    return makeBand(quantity, suitableStyle(shown), rowTimes_, shown);
  });
}

const ColorCoding& Exploration::coding(const std::string& quantity) const {
  const std::scoped_lock lock(mutex_);
  return kept(codings_, quantity, [&] { return codingOf(quantity, values(quantity)); });
}

const NearestPoint& Exploration::nearest(const std::string& quantity) const {
  return counts_ && quantity == counts_->title ? nearestCount_ : nearestRow_;
}

}  // namespace explorer
