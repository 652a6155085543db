#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Numbers.h"

namespace explorer {

/// A Julian day as date and time of the calendar, "2023-04-05 06:07:08"; without seconds when half
/// of `resolution`, in days, is more than one of them, without a time when it is more than a day.
/// Days that the calendar does not know, and other quantities, are given as a number.
std::string timeText(double time, double resolution, bool isInCalendar);

/// With four digits that count, whatever the locale is: "12.35", "1.235e+09"; "-" for NaN.
std::string valueText(double value);

/// Points in the order of their times, to find the one near a pointer.
class NearestPoint {
 public:
  explicit NearestPoint(Numbers times = {});

  /// The number of the point with one of the values, which are as many as the times, whose time is
  /// nearest, at most `reach` away; of equally near ones any. Absent when there is none among the
  /// nearest kMostTried points on either side.
  std::optional<std::size_t> at(double time, double reach, const Numbers& values) const;
  static constexpr std::size_t kMostTried = 1000;

 private:
  double time(std::size_t place) const { return times_[order_[place]]; }

  Numbers times_;
  /// Numbers of the points with a finite time.
  std::vector<std::size_t> order_;
};

}  // namespace explorer
