#include <PlotColorTable/SymbolValues.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace vexel {
namespace {

std::optional<double> numberIn(std::any object) {
  const std::vector<std::any> objects{std::move(object)};
  return SymbolValues(objects).number(0);
}

TEST(SymbolValues, AreNoneByDefault) {
  EXPECT_EQ(SymbolValues().count(), 0u);
  EXPECT_EQ(SymbolValues(std::vector<double>()).count(), 0u);
  EXPECT_EQ(SymbolValues(std::vector<std::any>()).count(), 0u);
}

TEST(SymbolValues, LendDoublesAsTheyStand) {
  const std::array<double, 3> numbers{1, -0.5, std::numeric_limits<double>::infinity()};
  const SymbolValues values(numbers);
  EXPECT_EQ(values.count(), 3u);
  EXPECT_EQ(values.numbers().data(), numbers.data());
  EXPECT_TRUE(values.objects().empty());
  EXPECT_EQ(values.number(1), -0.5);
}

TEST(SymbolValues, LendObjectsAsTheyStand) {
  const std::vector<std::any> objects{1, std::string("iron")};
  const SymbolValues values(objects);
  EXPECT_EQ(values.count(), 2u);
  EXPECT_EQ(values.objects().data(), objects.data());
  EXPECT_TRUE(values.numbers().empty());
}

TEST(SymbolValues, KnowNoNumberInOtherObjects) {
  EXPECT_EQ(numberIn({}), std::nullopt);
  EXPECT_EQ(numberIn(std::string("1")), std::nullopt);
  EXPECT_EQ(numberIn("1"), std::nullopt);
  EXPECT_EQ(numberIn(nullptr), std::nullopt);
  EXPECT_EQ(numberIn(std::optional(1.0)), std::nullopt);
}

template <class Number>
class SymbolValuesOf : public testing::Test {};

using Numbers = testing::Types<double, float, long double, bool, char, signed char, unsigned char,
                               short, unsigned short, int, unsigned, long, unsigned long, long long,
                               unsigned long long>;
TYPED_TEST_SUITE(SymbolValuesOf, Numbers);

TYPED_TEST(SymbolValuesOf, KnowNumbersOfEveryType) {
  EXPECT_EQ(numberIn(static_cast<TypeParam>(1)), 1.0);
  EXPECT_EQ(numberIn(static_cast<TypeParam>(0)), 0.0);
}

TEST(SymbolValues, GiveTheDoubleOfANumber) {
  EXPECT_EQ(numberIn(-7), -7.0);
  EXPECT_EQ(numberIn(0.1f), static_cast<double>(0.1f));
  EXPECT_EQ(numberIn(std::numeric_limits<long long>::max()), 9223372036854775808.0);
  EXPECT_TRUE(std::isnan(*numberIn(std::nan(""))));
}

}  // namespace
}  // namespace vexel
