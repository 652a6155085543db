#include <Vexel/SeriesArguments.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace vexel {
namespace {

// Whether an aggregate can be made of these labelled arguments.
#define VEXEL_COMPILES(Type, ...)       \
  ([]<class T>(std::type_identity<T>) { \
    return requires {                   \
      T{__VA_ARGS__};                   \
    };                                  \
  }(std::type_identity<Type>()))

// Every argument that has to be given is of a type that cannot be left out ...
static_assert(!std::is_default_constructible_v<Argument<float>>);
static_assert(!std::is_default_constructible_v<Argument<bool>>);
static_assert(!std::is_default_constructible_v<Argument<std::string>>);
static_assert(!std::is_default_constructible_v<Argument<std::optional<CPTColor>>>);
static_assert(!std::is_default_constructible_v<Argument<std::shared_ptr<CPTXYGraph>>>);

// ... and these are of such a type, in this order.
template <class Arguments, class Color>
constexpr bool hasColoredScatterLabels() {
  return std::is_same_v<decltype(Arguments::to), Argument<std::shared_ptr<CPTXYGraph>>> &&
         std::is_same_v<decltype(Arguments::identifiedBy), Argument<std::string>> &&
         std::is_same_v<decltype(Arguments::color), Argument<std::optional<Color>>> &&
         std::is_same_v<decltype(Arguments::lineWidth), Argument<float>> &&
         std::is_same_v<decltype(Arguments::dashPattern), std::optional<std::vector<double>>> &&
         std::is_same_v<decltype(Arguments::circle), Argument<bool>> &&
         std::is_same_v<decltype(Arguments::circleSize), Argument<float>> &&
         std::is_same_v<decltype(Arguments::circleFillColor), std::optional<Color>> &&
         std::is_same_v<decltype(Arguments::label), Argument<bool>> &&
         std::is_same_v<decltype(Arguments::labelOffset), Argument<float>> &&
         std::is_same_v<decltype(Arguments::labelRotation), Argument<float>> &&
         std::is_same_v<decltype(Arguments::delegate), NSObject*>;
}
static_assert(hasColoredScatterLabels<CPTColorPlotArguments, CPTColor>());
static_assert(hasColoredScatterLabels<NSColorPlotArguments, NSColor>());

static_assert(VEXEL_COMPILES(CPTColorPlotArguments, .to = nullptr, .identifiedBy = "",
                             .color = std::nullopt, .lineWidth = 1, .dashPattern = std::nullopt,
                             .circle = false, .circleSize = 1, .circleFillColor = std::nullopt,
                             .label = false, .labelOffset = 0, .labelRotation = 0,
                             .delegate = nullptr));
static_assert(VEXEL_COMPILES(CPTColorPlotArguments, .to = nullptr, .identifiedBy = "",
                             .color = std::nullopt, .lineWidth = 1, .circle = false,
                             .circleSize = 1, .label = false, .labelOffset = 0,
                             .labelRotation = 0));
static_assert(!VEXEL_COMPILES(CPTColorPlotArguments, .to = nullptr, .identifiedBy = "",
                              .lineWidth = 1, .circle = false, .circleSize = 1, .label = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(CPTColorPlotArguments, .identifiedBy = "", .color = std::nullopt,
                              .lineWidth = 1, .circle = false, .circleSize = 1, .label = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(NSColorPlotArguments, .to = nullptr, .identifiedBy = "",
                              .color = std::nullopt, .circle = false, .circleSize = 1,
                              .label = false, .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(NSColorPlotArguments, .to = nullptr, .identifiedBy = "",
                              .color = CPTColor::redColor(), .lineWidth = 1, .circle = false,
                              .circleSize = 1, .label = false, .labelOffset = 0,
                              .labelRotation = 0));

static_assert(VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                             .dashPattern = std::nullopt, .circle = false, .circleSize = 1,
                             .circleFillColor = std::nullopt, .label = false, .labelOffset = 0,
                             .labelRotation = 0, .delegate = nullptr));
static_assert(!VEXEL_COMPILES(PlotArguments, .identifiedBy = "", .lineWidth = 1, .circle = false,
                              .circleSize = 1, .label = false, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .lineWidth = 1, .circle = false,
                              .circleSize = 1, .label = false, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .circle = false,
                              .circleSize = 1, .label = false, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                              .circleSize = 1, .label = false, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                              .circle = false, .label = false, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                              .circle = false, .circleSize = 1, .labelOffset = 0,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                              .circle = false, .circleSize = 1, .label = false,
                              .labelRotation = 0));
static_assert(!VEXEL_COMPILES(PlotArguments, .to = nullptr, .identifiedBy = "", .lineWidth = 1,
                              .circle = false, .circleSize = 1, .label = false, .labelOffset = 0));

static_assert(VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                             .barBasesVary = false, .color = "red", .lineColor = std::nullopt,
                             .lineWidth = 1, .barsAreHorizontal = false, .labels = false,
                             .labelOffset = 0, .labelRotation = 0, .delegate = nullptr));
static_assert(VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                             .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                             .labels = false, .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                              .labels = false, .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .barWidth = 1, .barBasesVary = false,
                              .lineWidth = 1, .barsAreHorizontal = false, .labels = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "",
                              .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                              .labels = false, .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .lineWidth = 1, .barsAreHorizontal = false, .labels = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .barsAreHorizontal = false, .labels = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .lineWidth = 1, .labels = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                              .labelOffset = 0, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                              .labels = false, .labelRotation = 0));
static_assert(!VEXEL_COMPILES(BarPlotArguments, .to = nullptr, .identifiedBy = "", .barWidth = 1,
                              .barBasesVary = false, .lineWidth = 1, .barsAreHorizontal = false,
                              .labels = false, .labelOffset = 0));

// Text that was meant for another label is no truth value, nor is a number.
static_assert(std::is_constructible_v<Argument<bool>, bool>);
static_assert(!std::is_constructible_v<Argument<bool>, const char*>);
static_assert(!std::is_constructible_v<Argument<bool>, int>);
static_assert(!std::is_constructible_v<Argument<bool>, double>);
static_assert(!std::is_constructible_v<Argument<bool>, std::nullptr_t>);
static_assert(!std::is_constructible_v<Argument<float>, const char*>);
static_assert(!std::is_constructible_v<Argument<std::string>, int>);

TEST(Argument, HoldsWhatItIsGiven) {
  EXPECT_TRUE(*Argument<bool>(true));
  EXPECT_EQ(*Argument<std::string>("text"), "text");
  EXPECT_EQ(Argument<std::string>("text")->size(), 4u);
  EXPECT_EQ(*Argument<std::optional<CPTColor>>(std::nullopt), std::nullopt);
  EXPECT_EQ(*Argument<std::optional<CPTColor>>(CPTColor::redColor()), CPTColor::redColor());
}

TEST(Argument, TakesNumbersOfAnyType) {
  EXPECT_EQ(*Argument<float>(3), 3.0f);
  EXPECT_EQ(*Argument<float>(3u), 3.0f);
  EXPECT_EQ(*Argument<float>(0.1), 0.1f);
  EXPECT_EQ(*Argument<float>(0.1f), 0.1f);
}

TEST(Argument, IsCopiedAndAssigned) {
  const Argument<std::string> first("first");
  Argument<std::string> copy = first;
  EXPECT_EQ(*copy, "first");
  copy = "second";
  EXPECT_EQ(*copy, "second");
  EXPECT_EQ(*first, "first");
}

}  // namespace
}  // namespace vexel
