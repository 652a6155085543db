#pragma once

namespace vexel {

/// A day by its number in the month, in a year that is known otherwise. Both count from 1.
struct DayOfMonth {
  int day;
  int month;

  friend bool operator==(const DayOfMonth&, const DayOfMonth&) = default;
};

}  // namespace vexel
