#pragma once

#include <Astrel/CalendarDate.h>
#include <Astrel/DayOfMonth.h>
#include <Astrel/DayOfYear.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Conversions between calendar dates and Julian days.
///
/// A Julian day counts days of 86400 seconds, without leap seconds or time zones, from noon of
/// 24 November -4713: 2451545.0 is noon of 1 January 2000, and midnights end in .5. Dates are
/// those of the Gregorian calendar, also before it was in use, and years are astronomical: 0 is a
/// year, and a leap year.
///
/// The conversions are meant for the years -4712 to 9999 and hold beyond them. They are exact but
/// for one rounding at the end; what limits them is the double that holds a Julian day. Its
/// neighbours are 40 microseconds apart today (from 1029 to 6771), 80 after that, and 20 or fewer
/// before. So a date comes back from its Julian day to within half of that, and every Julian day
/// of 64 or more comes back from its date unchanged.
///
/// Dates that the calendar does not have are carried over into the next larger unit, as on a clock:
/// month 13 is January of the next year, month 0 December of the one before, 31 February 2 or
/// 3 March, hour 24 the next midnight, second -1 one second before the minute.
class VEXEL_API EventTime {
 public:
  EventTime() = delete;

  /// The date of a Julian day, to the nearest nanosecond; a half goes to the later one.
  /// A fatal error for NaN and for Julian days of 2^31 and more to either side.
  static CalendarDate julianDay2Date(double julianDay);

  /// The Julian day, whatever the name says: the double that is nearest to the date. Any numbers
  /// will do.
  static double date2JulianYear(const CalendarDate& date);

  /// The year is another one only where the date is carried over into it; a fatal error when no
  /// int can hold it.
  static DayOfYear date2DayOfYear(int day, int month, int year);

  /// Carried over as well: day 366 is 1 January after a year of 365 days, day 0 is 31 December.
  static DayOfMonth dayOfYear2date(int dayOfYear, int year);

  /// By the Gregorian rule, also before it was in use.
  static bool isLeapYear(int year);
};

}  // namespace vexel
