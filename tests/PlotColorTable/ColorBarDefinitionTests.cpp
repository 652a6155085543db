#include <PlotColorTable/ColorBarDefinition.h>

#include <Kitbase/EmptyFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>
#include <unordered_set>

namespace vexel {
namespace {

using AxisType = ColorBarDefinition::AxisType;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(ColorBarDefinition, IsALinearBarOverTheUnitWithoutColours) {
  const ColorBarDefinition definition;
  EXPECT_THAT(definition.colors.elements(), IsEmpty());
  EXPECT_EQ(definition.colorTable.description(), "IDL: 16 Level");
  EXPECT_EQ(definition.type, AxisType::linear);
  EXPECT_THAT(definition.range, ElementsAre(0.0, 1.0));
  EXPECT_EQ(definition.formatter, nullptr);
  EXPECT_EQ(definition.title, "");
}

ColorBarDefinition example() {
  static const auto formatter = std::make_shared<EmptyFormatter>();
  return {{CPTColor::redColor(), std::nullopt},
          PlotCT::gmtHot,
          AxisType::log,
          {1, 100},
          formatter,
          "Title"};
}

TEST(ColorBarDefinition, TakesItsFieldsInOrder) {
  const ColorBarDefinition definition = example();
  EXPECT_THAT(definition.colors.elements(), ElementsAre(CPTColor::redColor(), std::nullopt));
  EXPECT_EQ(definition.colorTable, PlotCT::gmtHot);
  EXPECT_EQ(definition.type, AxisType::log);
  EXPECT_THAT(definition.range, ElementsAre(1, 100));
  EXPECT_NE(definition.formatter, nullptr);
  EXPECT_EQ(definition.title, "Title");
}

TEST(ColorBarDefinition, HasNoDefaultsWhenFieldsAreGiven) {
  static_assert(
      !std::is_constructible_v<ColorBarDefinition, std::vector<std::optional<CPTColor>>, PlotCT,
                               AxisType, std::vector<double>, std::shared_ptr<NSFormatter>>);
}

TEST(ColorBarDefinition, IsAValue) {
  const ColorBarDefinition original = example();
  EXPECT_EQ(original, example());
  const std::function<void(ColorBarDefinition&)> changes[] = {
      [](auto& d) { d.colors = {}; },
      [](auto& d) { d.colorTable = PlotCT::gmtPolar; },
      [](auto& d) { d.type = AxisType::discrete; },
      [](auto& d) {
        d.range = {1, 10};
      },
      [](auto& d) { d.formatter = nullptr; },
      [](auto& d) { d.title = ""; },
  };
  for (const auto& change : changes) {
    ColorBarDefinition copy = original;
    change(copy);
    EXPECT_NE(copy, original);
  }
  EXPECT_EQ(original, example());
}

TEST(ColorBarDefinition, HasThreeHashableAxisTypesInOrder) {
  EXPECT_LT(AxisType::discrete, AxisType::linear);
  EXPECT_LT(AxisType::linear, AxisType::log);
  EXPECT_EQ((std::unordered_set{AxisType::discrete, AxisType::linear, AxisType::log}).size(), 3u);
}

}  // namespace
}  // namespace vexel
