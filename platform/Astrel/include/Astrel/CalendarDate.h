#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A date of the proleptic Gregorian calendar and a time of that day. Every field has to be given.
struct VEXEL_API CalendarDate {
  /// Astronomical: the year before 1 is 0, the one before that -1.
  int year;
  /// From 1, January.
  int month;
  /// Of the month, from 1.
  int day;
  /// From midnight.
  int hour;
  int minute;
  int second;
  int nanosecond;

  friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
};

}  // namespace vexel
