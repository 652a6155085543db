#include <LabelChoice.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
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
                           bool logarithmic = false) {
  std::vector<double> result;
  for (const std::size_t i : chooseLabels(row(numbers, width), gap, logarithmic))
    result.push_back(numbers[i]);
  return result;
}

TEST(LabelChoice, OfNoneIsNoneAndOfOneIsThatOne) {
  EXPECT_THAT(chooseLabels({}, 4, false), IsEmpty());
  EXPECT_THAT(chosen({kNaN}, 1000).size(), 1u);
  EXPECT_THAT(chosen({7}, 1000, 0, true), ElementsAre(7));
}

TEST(LabelChoice, KeepsAllThatFit) {
  EXPECT_THAT(chosen({3, 1, kNaN}, 10).size(), 3u);
  EXPECT_THAT(chosen({1, 2, 3}, 6, 4), ElementsAre(1, 2, 3));
  EXPECT_THAT(chosen({0.3, 0.5, 1}, 6, 4, true), ElementsAre(0.3, 0.5, 1));
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
  EXPECT_THAT(chosen(exponents, 15, 0, true), ElementsAre(0, 1, 2));
  EXPECT_THAT(chosen({0.30103, 0.69897}, 15, 0, true).size(), 1u);
  EXPECT_THAT(chosen({-3, -2, -1, 0, 1, 2, 3}, 25, 0, true), ElementsAre(0));
  EXPECT_THAT(chosen({-7, -6, -5, -4, -3, -2, -1, 0}, 25, 0, true), ElementsAre(-5, 0));
  EXPECT_THAT(chosen({-3, -2, -1, 0, 1, 2, 3}, 15, 0, true), ElementsAre(-2, 0, 2));
}

RC_GTEST_PROP(LabelChoiceProperties, NoTwoOfManyLabelsTouchAndTheyAreEven, ()) {
  const int first = *rc::gen::inRange(-10000, 10000);
  const int count = *rc::gen::inRange(1, 300);
  const double width = *rc::gen::inRange(0, 2000) / 10.0;
  const double gap = *rc::gen::inRange(0, 50) / 10.0;
  std::vector<double> numbers;
  for (int i = 0; i < count; ++i) numbers.push_back((first + i) * 0.5);
  const auto indices = chooseLabels(row(numbers, width), gap, *rc::gen::arbitrary<bool>());
  RC_ASSERT(!indices.empty());
  for (std::size_t i = 1; i < indices.size(); ++i) {
    RC_ASSERT(10.0 * static_cast<double>(indices[i] - indices[i - 1]) >= width + gap - 1e-9);
    RC_ASSERT(indices[i] - indices[i - 1] == indices[1] - indices[0]);
  }
}

}  // namespace
}  // namespace vexel
