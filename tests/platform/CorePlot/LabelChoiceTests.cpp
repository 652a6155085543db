#include <LabelChoice.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Labels 10 apart, of a width.
std::vector<LabelStretch> row(const std::vector<double>& numbers, double width) {
  std::vector<LabelStretch> labels;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const double center = 10 * static_cast<double>(i);
    labels.push_back({numbers[i], center - width / 2, center + width / 2});
  }
  return labels;
}

std::vector<double> chosen(const std::vector<double>& numbers, double width, double gap = 0,
                           LabelNumbers kind = LabelNumbers::plain) {
  std::vector<double> result;
  for (const std::size_t i : chooseLabels(row(numbers, width), gap, kind))
    result.push_back(numbers[i]);
  return result;
}

TEST(LabelChoice, OfNoneIsNoneAndOfOneIsThatOne) {
  EXPECT_THAT(chooseLabels({}, 4, LabelNumbers::plain), IsEmpty());
  EXPECT_THAT(chosen({kNaN}, 1000).size(), 1u);
  EXPECT_THAT(chosen({7}, 1000, 0, LabelNumbers::exponentsOfTen), ElementsAre(7));
}

TEST(LabelChoice, KeepsAllThatFit) {
  EXPECT_THAT(chosen({3, 1, kNaN}, 10).size(), 3u);
  EXPECT_THAT(chosen({1, 2, 3}, 6, 4), ElementsAre(1, 2, 3));
  EXPECT_THAT(chosen({0.3, 0.5, 1}, 6, 4, LabelNumbers::exponentsOfTen), ElementsAre(0.3, 0.5, 1));
}

TEST(LabelChoice, KeepsOneWhereNoTwoFit) {
  EXPECT_THAT(chosen({1, 2, 3}, 1000), ElementsAre(2));
  EXPECT_THAT(chosen({kNaN, kNaN}, 1000).size(), 1u);
}

TEST(LabelChoice, KeepsRoundNumbers) {
  EXPECT_THAT(chosen({1, 2, 3, 4, 5}, 15), ElementsAre(2, 4));
  EXPECT_THAT(chosen({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}, 25), ElementsAre(0, 5, 10));
  EXPECT_THAT(chosen({-3, -2, -1, 0, 1, 2, 3}, 15), ElementsAre(-2, 0, 2));
  EXPECT_THAT(chosen({0.25, 0.5, 0.75, 1, 1.25}, 15), ElementsAre(0.5, 1));
  EXPECT_THAT(chosen({20, 40, 60, 80, 100}, 15), ElementsAre(40, 80));
  EXPECT_THAT(chosen({7.25, 7.5, 7.75, 8, 8.25, 8.5, 8.75, 9}, 25), ElementsAre(8, 9));
  EXPECT_THAT(chosen({25, 50, 75, 100, 125, 150, 175}, 25), ElementsAre(100));
  EXPECT_THAT(chosen({1727, 1728, 1729, 1730, 1731, 1732, 1733, 1734, 1735}, 45),
              ElementsAre(1730, 1735));
}

TEST(LabelChoice, TakesAnyStepOfNumbersThatAreNotRound) {
  EXPECT_THAT(chosen({3, 6, 9, 12, 15, 18}, 25), ElementsAre(9, 18));
  EXPECT_THAT(chosen({kNaN, kNaN, kNaN, kNaN, kNaN}, 25).size(), 2u);
  EXPECT_THAT(chosen({5, 4, 3, 2, 1}, 15), ElementsAre(5, 3, 1));
}

TEST(LabelChoice, OnLogScalesDropsWhatLiesBetweenDecadesFirst) {
  const std::vector<double> exponents = {-0.30103, 0, 0.30103, 0.69897, 1, 1.30103, 1.69897, 2};
  EXPECT_THAT(chosen(exponents, 15, 0, LabelNumbers::exponentsOfTen), ElementsAre(0, 1, 2));
  EXPECT_THAT(chosen({0.30103, 0.69897}, 15, 0, LabelNumbers::exponentsOfTen).size(), 1u);
  EXPECT_THAT(chosen({-3, -2, -1, 0, 1, 2, 3}, 25, 0, LabelNumbers::exponentsOfTen),
              ElementsAre(0));
  EXPECT_THAT(chosen({-7, -6, -5, -4, -3, -2, -1, 0}, 25, 0, LabelNumbers::exponentsOfTen),
              ElementsAre(-5, 0));
  EXPECT_THAT(chosen({-3, -2, -1, 0, 1, 2, 3}, 15, 0, LabelNumbers::exponentsOfTen),
              ElementsAre(-2, 0, 2));
}

/// Times of day with an even distance in minutes, as hours.
std::vector<double> times(int first, int distance, int count) {
  std::vector<double> hours;
  for (int i = 0; i < count; ++i) hours.push_back((first + i * distance) % 1440 / 60.0);
  return hours;
}

std::vector<double> chosenTimes(const std::vector<double>& hours, double width) {
  return chosen(hours, width, 0, LabelNumbers::hoursOfDay);
}

TEST(LabelChoice, OfTimesOfDayPartsTheDayOrTheHour) {
  const auto eighteenHours = times(11 * 60, 60, 19);
  EXPECT_THAT(chosenTimes(eighteenHours, 15), ElementsAre(12, 14, 16, 18, 20, 22, 0, 2, 4));
  EXPECT_THAT(chosenTimes(eighteenHours, 25), ElementsAre(12, 15, 18, 21, 0, 3));
  EXPECT_THAT(chosenTimes(eighteenHours, 35), ElementsAre(12, 16, 20, 0, 4));
  EXPECT_THAT(chosenTimes(eighteenHours, 45), ElementsAre(12, 18, 0));
  EXPECT_THAT(chosenTimes(eighteenHours, 65), ElementsAre(16, 0));
  EXPECT_THAT(chosenTimes(eighteenHours, 85), ElementsAre(12, 0));
  EXPECT_THAT(chosenTimes(eighteenHours, 125), ElementsAre(0));
  EXPECT_THAT(chosenTimes(times(0, 240, 12), 25), ElementsAre(0, 12, 0, 12));
  EXPECT_THAT(chosenTimes(times(0, 240, 12), 35), ElementsAre(0, 0));
  const auto quarters = times(10 * 60 + 15, 15, 15);
  EXPECT_THAT(chosenTimes(quarters, 15), ElementsAre(10.5, 11, 11.5, 12, 12.5, 13, 13.5));
  EXPECT_THAT(chosenTimes(quarters, 25), ElementsAre(11, 12, 13));
  EXPECT_THAT(chosenTimes(quarters, 45), ElementsAre(12));
  const auto minutes = times(10 * 60 + 1, 1, 10);
  EXPECT_THAT(chosenTimes(minutes, 15).front(), 10 + 2 / 60.0);
  EXPECT_THAT(chosenTimes(minutes, 45), ElementsAre(10 + 5 / 60.0, 10 + 10 / 60.0));
  EXPECT_THAT(chosenTimes(times(10 * 60 + 10, 10, 4), 15),
              ElementsAre(10 + 20 / 60.0, 10 + 40 / 60.0));
}

TEST(LabelChoice, OfTimesOfDayMayBeginBeforeMidnight) {
  EXPECT_THAT(chosenTimes(times(23 * 60, 60, 12), 25), ElementsAre(0, 3, 6, 9));
  EXPECT_THAT(chosenTimes({23.75, 0, 0.25, 0.5}, 15), ElementsAre(0, 0.5));
  EXPECT_THAT(chosenTimes({0, 0, 0}, 15), ElementsAre(0, 0));
}

TEST(LabelChoice, OfOddTimesOfDayIsEvenAllTheSame) {
  EXPECT_THAT(chosenTimes(times(0, 7, 6), 15), ElementsAre(0, 14 / 60.0, 28 / 60.0));
  EXPECT_THAT(chosenTimes({kNaN, kNaN, kNaN}, 15).size(), 2u);
}

RC_GTEST_PROP(LabelChoiceProperties, TimesOfDayThatAreLeftPartTheDayOrTheHour, ()) {
  const int distance = *rc::gen::element(1, 5, 10, 15, 60, 120, 240);
  const int first = *rc::gen::inRange(0, 1440 / distance) * distance;
  const int count = *rc::gen::inRange(2, 30);
  const double width = *rc::gen::inRange(0, 2000) / 10.0;
  const auto hours = times(first, distance, count);
  const auto indices = chooseLabels(row(hours, width), 0, LabelNumbers::hoursOfDay);
  RC_ASSERT(!indices.empty());
  if (indices.size() < 2) return;
  const auto stride = static_cast<int>(indices[1] - indices[0]) * distance;
  RC_ASSERT(60 % stride == 0 || (stride % 60 == 0 && 1440 % stride == 0) || stride % 1440 == 0);
  for (const std::size_t i : indices)
    RC_ASSERT(static_cast<int>(std::lround(hours[i] * 60)) % std::min(stride, 1440) == 0);
}

RC_GTEST_PROP(LabelChoiceProperties, NoTwoOfManyLabelsTouchAndTheyAreEven, ()) {
  const int first = *rc::gen::inRange(-10000, 10000);
  const int count = *rc::gen::inRange(1, 300);
  const double width = *rc::gen::inRange(0, 2000) / 10.0;
  const double gap = *rc::gen::inRange(0, 50) / 10.0;
  std::vector<double> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back((first + i) * 0.5);
  const auto indices =
      chooseLabels(row(numbers, width), gap,
                   *rc::gen::element(LabelNumbers::plain, LabelNumbers::exponentsOfTen));
  RC_ASSERT(!indices.empty());
  for (std::size_t i = 1; i < indices.size(); ++i) {
    RC_ASSERT(10.0 * static_cast<double>(indices[i] - indices[i - 1]) >= width + gap - 1e-9);
    RC_ASSERT(indices[i] - indices[i - 1] == indices[1] - indices[0]);
  }
}

}  // namespace
}  // namespace vexel
