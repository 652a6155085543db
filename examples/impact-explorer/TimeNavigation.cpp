#include "TimeNavigation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace explorer {

namespace {

// The ends of a span can be told apart by so many steps of a double.
constexpr double kLeastSteps = 1e4;

double stepOf(double number) {
  return std::nextafter(std::abs(number), std::numeric_limits<double>::infinity()) -
         std::abs(number);
}

TimeSpan usable(const TimeSpan& span) {
  const double length = span.end - span.start;
  return std::isfinite(length) && length > 0 ? span : TimeSpan{0, 1};
}

}  // namespace

TimeNavigation::TimeNavigation(TimeSpan whole, double shortest)
    : whole_(usable(whole)), history_{whole_} {
  const double length = whole_.end - whole_.start;
  const double steps = kLeastSteps * std::max(stepOf(whole_.start), stepOf(whole_.end));
  shortest_ = std::min(length, std::max({steps, kShortest * length, shortest}));
}

TimeSpan TimeNavigation::accepted(TimeSpan wanted) const {
  if (wanted.start > wanted.end) std::swap(wanted.start, wanted.end);
  const double longest = whole_.end - whole_.start;
  const double asked = wanted.end - wanted.start;
  if (asked >= longest) return whole_;
  const double length = std::max(asked, shortest_);
  const double start = wanted.start - (length - asked) / 2;
  if (start < whole_.start) return {whole_.start, whole_.start + length};
  if (start + length > whole_.end) return {whole_.end - length, whole_.end};
  return {start, start + length};
}

bool TimeNavigation::show(TimeSpan wanted) {
  if (!std::isfinite(wanted.start) || !std::isfinite(wanted.end)) return false;
  const TimeSpan next = accepted(wanted);
  if (next == shown()) return false;
  if (std::exchange(isNewGesture_, false)) {
    history_.resize(place_ + 1);
    history_.push_back(next);
    if (history_.size() > kLongestHistory) history_.erase(history_.begin());
    place_ = history_.size() - 1;
  } else {
    history_[place_] = next;
  }
  return true;
}

bool TimeNavigation::zoom(double about, double factor) {
  if (!std::isfinite(about) || !std::isfinite(factor) || factor <= 0) return false;
  const auto [start, end] = shown();
  const double length = end - start;
  const double wanted = std::clamp(length * factor, shortest_, whole_.end - whole_.start);
  const double left = (std::clamp(about, start, end) - start) / length;
  const double from = start + left * (length - wanted);
  return show({from, from + wanted});
}

bool TimeNavigation::pan(double by) {
  return show({shown().start + by, shown().end + by});
}

bool TimeNavigation::showAll() {
  beginGesture();
  return show(whole_);
}

bool TimeNavigation::back() {
  if (!canGoBack()) return false;
  --place_;
  beginGesture();
  return true;
}

bool TimeNavigation::forward() {
  if (!canGoForward()) return false;
  ++place_;
  beginGesture();
  return true;
}

}  // namespace explorer
