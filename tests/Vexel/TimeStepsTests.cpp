#include "TimeSteps.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace vexel {
namespace {

/// Spans from one number on have a step, up to the next row.
struct Row {
  std::int64_t firstSpan;
  std::int64_t step;
};

template <class Step>
void expectSteps(Step step, const std::vector<Row>& rows, std::int64_t endSpan) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::int64_t end = i + 1 < rows.size() ? rows[i + 1].firstSpan : endSpan;
    for (std::int64_t span = rows[i].firstSpan; span < end; ++span)
      EXPECT_EQ(step(span), rows[i].step) << span;
  }
}

TEST(TimeSteps, OfDaysAreOneToTwentyFive) {
  expectSteps([](std::int64_t span) { return dayStep(static_cast<int>(span)); },
              {{0, 1}, {10, 5}, {50, 10}, {100, 20}, {200, 25}, {1001, 1}}, 1200);
}

TEST(TimeSteps, OfHoursAreATenthOfTheSpanAndEvenFromTwoOn) {
  expectSteps(
      hourStep,
      {{-100, 1}, {0, 1}, {20, 2}, {30, 4}, {50, 6}, {70, 8}, {90, 10}, {110, 12}, {130, 12}},
      1000);
}

TEST(TimeSteps, OfMinutesAreOneToFifteen) {
  expectSteps(minuteStep, {{-10, 1}, {0, 1}, {11, 5}, {31, 10}, {40, 15}, {1001, 1}}, 1200);
}

TEST(TimeSteps, OfDaysStartAtAMultipleOfTheStepAlsoInTheNextYear) {
  const struct {
    int dayOfYear;
    int year;
    int step;
    DayOfYear first;
  } rows[] = {
      {1, 2001, 1, {1, 2001}},     {365, 2001, 1, {365, 2001}}, {366, 2000, 1, {366, 2000}},
      {360, 2001, 5, {360, 2001}}, {361, 2001, 5, {365, 2001}}, {365, 2001, 5, {365, 2001}},
      {365, 2000, 5, {365, 2000}}, {366, 2000, 5, {4, 2001}},   {361, 2001, 10, {5, 2002}},
      {361, 2000, 10, {4, 2001}},  {364, 1900, 2, {364, 1900}}, {365, 1900, 2, {1, 1901}},
      {365, 2001, 3, {1, 2002}},   {360, 2001, 25, {10, 2002}}, {365, -1, 2, {1, 0}},
      {365, -4, 2, {366, -4}},
  };
  for (const auto& [dayOfYear, year, step, first] : rows) {
    const DayOfYear found = firstTickDay({dayOfYear, year}, step);
    EXPECT_EQ(found.dayOfYear, first.dayOfYear) << dayOfYear << " " << year << " " << step;
    EXPECT_EQ(found.year, first.year) << dayOfYear << " " << year << " " << step;
  }
}

}  // namespace
}  // namespace vexel
