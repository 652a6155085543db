#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ImpactSample.h"
#include "Numbers.h"
#include "Table.h"

namespace explorer {

enum class BandStyle { bars, line, symbols };

/// What a quantity is read in besides its own unit.
struct OtherUnit {
  std::string title;
  /// In units of the quantity.
  double size = 1;
};

/// One quantity over time, and how it is shown.
struct Band {
  std::string title;
  BandStyle style = BandStyle::symbols;
  /// Julian days and values; NaN where there is none.
  Numbers times = {};
  Numbers values = {};
  /// Width of a bar in days.
  double barWidth = 1;
  /// The value axis: positive quantities over three decades or more are shown logarithmically. Its
  /// ends are ticks; 2 % beyond those that a value comes near to, so that no symbol is cut.
  bool logarithmic = false;
  double lower = 0;
  double upper = 1;
  /// On an axis of its own on the right.
  std::optional<OtherUnit> otherUnit = std::nullopt;
};

struct TimeSpan {
  double start = 0;
  double end = 1;

  /// Whether the calendar of time axes knows all of it.
  bool isInCalendar() const { return start >= 0 && end <= 5373484; }

  friend bool operator==(const TimeSpan&, const TimeSpan&) = default;
};

/// A band with the value axis that suits its values.
Band makeBand(std::string title, BandStyle style, Numbers times, Numbers values);

/// Bars for counts (whole numbers that are not negative), a line for values that move little from
/// row to row, symbols for others.
BandStyle suitableStyle(const std::vector<double>& values);

/// One band per chosen column, in order; without a choice the first `kMostBands` columns that are
/// not the time and hold a number. Throws InputError, about `file`, for unknown names.
std::vector<Band> bandsOf(const Table& table, std::size_t time,
                          const std::vector<std::string>& chosen, const std::string& file);
inline constexpr std::size_t kMostBands = 4;

/// What the embedded sample is shown as: impacts per five days, then the chosen columns, or
/// charge, speed and distance from the Sun.
std::vector<Band> bandsOf(const ImpactSample& sample, std::size_t time,
                          const std::vector<std::string>& chosen, const std::string& file);

/// Around all finite times of the bands: bars whole, and 1 % of the span beyond each end of what is
/// not shown as bars, so that no symbol is cut; at least a day around a single moment.
TimeSpan timeSpan(const std::vector<Band>& bands);

}  // namespace explorer
