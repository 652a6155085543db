#include "ReadOut.h"

#include <Astrel/EventTime.h>
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace explorer {

namespace {

constexpr double kSecond = 1.0 / 86400;

}  // namespace

std::string timeText(double time, double resolution, bool isInCalendar) {
  if (!isInCalendar) return fmt::format("{:.7g}", time);
  // Rounded to whole seconds beforehand, so that no time ends with 60 of them.
  const double rounded = std::floor(time / kSecond + 0.5) * kSecond + kSecond / 1000;
  const auto date = vexel::EventTime::julianDay2Date(rounded);
  std::string day = fmt::format("{:04}-{:02}-{:02}", date.year, date.month, date.day);
  if (resolution > 1) return day;
  if (resolution / 2 > kSecond) return fmt::format("{} {:02}:{:02}", day, date.hour, date.minute);
  return fmt::format("{} {:02}:{:02}:{:02}", day, date.hour, date.minute, date.second);
}

std::string valueText(double value) {
  return std::isnan(value) ? "-" : fmt::format("{:.4g}", value);
}

NearestPoint::NearestPoint(Numbers times) : times_(std::move(times)), order_(times_.size()) {
  std::iota(order_.begin(), order_.end(), std::size_t{0});
  std::erase_if(order_, [&](std::size_t i) { return !std::isfinite(times_[i]); });
  const auto earlier = [&](std::size_t a, std::size_t b) { return times_[a] < times_[b]; };
  if (!std::is_sorted(order_.begin(), order_.end(), earlier))
    std::stable_sort(order_.begin(), order_.end(), earlier);
}

std::optional<std::size_t> NearestPoint::at(double when, double reach,
                                            const Numbers& values) const {
  const auto first = std::lower_bound(order_.begin(), order_.end(), when,
                                      [&](std::size_t i, double t) { return times_[i] < t; });
  const auto start = static_cast<std::size_t>(first - order_.begin());
  std::optional<std::size_t> nearest;
  double distance = reach;
  const auto isNearer = [&](std::size_t place) {
    const double away = std::abs(time(place) - when);
    if (!(away <= distance)) return false;
    if (!std::isnan(values[order_[place]])) {
      nearest = order_[place];
      distance = away;
    }
    return true;
  };
  for (std::size_t i = 0; i < kMostTried && start + i < order_.size(); ++i)
    if (!isNearer(start + i) || nearest) break;
  for (std::size_t i = 1; i <= kMostTried && i <= start; ++i) {
    const auto before = nearest;
    if (!isNearer(start - i) || nearest != before) break;
  }
  return nearest;
}

}  // namespace explorer
