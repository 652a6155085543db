#pragma once

namespace explorer {

/// From `start` up to but not including `end`, Julian days.
struct DaySpan {
  double start;
  double end;

  bool contains(double day) const { return day >= start && day < end; }

  friend bool operator==(const DaySpan&, const DaySpan&) = default;
};

}  // namespace explorer
