// Arithmetic that everything else rests on: intervals, ticks, scales, dates and number texts.

#include <Astrel/EventTime.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kernels/AxisScale.h>
#include <Kernels/Ticks.h>
#include <Kitbase/MajorInterval.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "FuzzInput.h"
#include "Require.h"

namespace {

using namespace vexel;

void checkTicks(const Ticks& ticks, double lower, double upper, std::size_t most) {
  require(ticks.major.size() <= most && ticks.minor.size() <= most, "ticks are capped");
  for (const auto* list : {&ticks.major, &ticks.minor}) {
    require(std::ranges::adjacent_find(*list, std::greater_equal()) == list->end(),
            "ticks ascend without repetitions");
    require(list->empty() ||
                (list->front() >= std::min(lower, upper) && list->back() <= std::max(lower, upper)),
            "ticks lie inside the range");
  }
}

void ticks(FuzzInput& input) {
  const double lower = input.number();
  const double upper = input.number();
  const int minor = input.flag() ? input.byte() : input.raw<std::int32_t>();
  const int most = input.raw<std::uint16_t>();
  const auto cap = static_cast<std::size_t>(most);
  const int about = input.flag() ? input.byte() : input.raw<std::int32_t>();
  const double interval = input.number();
  checkTicks(fixedIntervalTicks(lower, upper, interval, input.number(), minor, most), lower, upper,
             cap);
  checkTicks(logarithmicTicks(lower, upper, most), lower, upper, cap);
  checkTicks(automaticTicks(lower, upper, about, minor, most), lower, upper, cap);
  constexpr std::size_t kMostDivisions = 10001;
  checkTicks(equalDivisionTicks(lower, upper, about, minor), lower, upper, kMostDivisions);
  const double nice = niceInterval(lower, about);
  require(nice > 0 && std::isfinite(nice), "a nice interval is above 0 and finite");
}

void intervals(FuzzInput& input) {
  const double range[] = {input.number(), input.number()};
  const double interval = getOptimimumMajorInterval(range, input.number());
  require(interval > 0 && std::isfinite(interval), "a major interval is above 0 and finite");
  const float singleRange[] = {input.single(), input.single()};
  const float single = getOptimimumMajorInterval(singleRange, input.single());
  require(single > 0 && std::isfinite(single), "a major interval is above 0 and finite");
}

void numberText(FuzzInput& input) {
  NSNumberFormatter formatter;
  formatter.setMinimumIntegerDigits(input.raw<std::int16_t>());
  formatter.setMinimumFractionDigits(input.raw<std::int16_t>());
  formatter.setMaximumFractionDigits(input.raw<std::int16_t>());
  const std::string text = formatter.string(input.number());
  require(text.size() <= 2 + 2 * NSNumberFormatter::kMaximumDigits, "a number's text is bounded");
}

void scales(FuzzInput& input) {
  AxisScale scale;
  scale.location = input.number();
  scale.length = input.number();
  scale.logarithmic = input.flag();
  scale.extent = input.number();
  const double value = input.number();
  const double place = scale.position(value);
  if (!scale.isDrawable() || std::isnan(value)) {
    require(std::isnan(place), "what is no number has no place");
    return;
  }
  require(std::isinf(value) || !std::isinf(place), "a finite value is not infinitely far away");
  require(!std::isnan(place) || (scale.logarithmic && !(value > 0)), "a number has a place");
  const double position = input.number();
  require(std::isnan(position) || !std::isnan(scale.value(position)), "a place has a value");
}

void dates(FuzzInput& input) {
  const double julianDay = input.number();
  // Others are no dates, which is a broken invariant.
  if (!(std::abs(julianDay) < 0x1p31)) return;
  const CalendarDate date = EventTime::julianDay2Date(julianDay);
  require(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= 31,
          "a day of a year");
  require(date.hour >= 0 && date.hour < 24 && date.minute >= 0 && date.minute < 60 &&
              date.second >= 0 && date.second < 60,
          "a time of day");
  const DayOfYear day = EventTime::date2DayOfYear(date.day, date.month, date.year);
  require(day.year == date.year && day.dayOfYear >= 1 && day.dayOfYear <= 366, "a day of its year");
  const DayOfMonth again = EventTime::dayOfYear2date(day.dayOfYear, day.year);
  require(again.day == date.day && again.month == date.month, "a date comes back");
  if (std::abs(julianDay) >= 64)
    require(EventTime::date2JulianYear(date) == julianDay, "a Julian day comes back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  switch (input.choice(5)) {
    case 0:
      ticks(input);
      break;
    case 1:
      intervals(input);
      break;
    case 2:
      numberText(input);
      break;
    case 3:
      scales(input);
      break;
    default:
      dates(input);
  }
  return 0;
}
