#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A day by its number in the month, in a year that is known otherwise. Both count from 1.
struct VEXEL_API DayOfMonth {
  /// From 1.
  int day;
  int month;

  friend bool operator==(const DayOfMonth&, const DayOfMonth&) = default;
};

}  // namespace vexel
