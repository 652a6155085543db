#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A day by its number in the year; 1 is 1 January, 365 or 366 is 31 December.
struct VEXEL_API DayOfYear {
  /// From 1, and the astronomical year.
  int dayOfYear;
  int year;

  friend bool operator==(const DayOfYear&, const DayOfYear&) = default;
};

}  // namespace vexel
