#include <TickLabels.h>

#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <set>
#include <string>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const CPTTextStyle kStyle{.fontSize = 14, .color = CPTColor::redColor()};

std::shared_ptr<NSNumberFormatter> digits(int fraction) {
  auto formatter = std::make_shared<NSNumberFormatter>();
  formatter->setMinimumIntegerDigits(1);
  formatter->setMinimumFractionDigits(fraction);
  return formatter;
}

/// What is read: "x" for the times sign, "^" before superscripts, a plain minus.
std::string readable(const CPTTextLayer& layer) {
  std::string text;
  if (!layer.attributedText()) {
    text = layer.text();
  } else {
    for (const auto& run : layer.attributedText()->runs())
      text += (run.attributes.superscript == 1 ? "^" : "") + run.text;
  }
  const auto replace = [&](const std::string& from, const std::string& to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from))
      text.replace(at, from.size(), to);
  };
  replace("\u00d7", "x");
  replace("\u2212", "-");
  return text;
}

std::vector<std::string> labels(const std::vector<double>& ticks, const NSFormatter& formatter,
                                bool logarithmic = false, CGFloat room = kInfinity) {
  std::vector<std::string> result;
  for (const auto& layer : tickLabels(ticks, formatter, kStyle, logarithmic, room))
    result.push_back(layer ? readable(*layer) : "");
  return result;
}

TEST(TickLabels, OfNoTicksAreNone) {
  EXPECT_THAT(labels({}, *digits(1)), IsEmpty());
}

TEST(TickLabels, AreWhatTheFormatterWritesInTheStyleOfTheAxis) {
  const auto layers = tickLabels({-0.5, 0, 0.5}, *digits(1), kStyle, false, kInfinity);
  ASSERT_EQ(layers.size(), 3u);
  EXPECT_EQ(layers[0]->text(), "-0.5");
  EXPECT_EQ(layers[1]->text(), "0.0");
  EXPECT_EQ(layers[2]->text(), "0.5");
  EXPECT_EQ(layers[0]->textStyle(), kStyle);
  EXPECT_EQ(layers[0]->attributedText(), std::nullopt);
}

TEST(TickLabels, AreAbsentWhereTheFormatterWritesNothing) {
  class Odd : public NSFormatter {
    std::string string(double value) const override {
      return std::fmod(value, 2) == 0 ? "" : std::to_string(static_cast<int>(value));
    }
  };
  EXPECT_THAT(labels({0, 1, 2, 3, 4}, Odd()), ElementsAre("", "1", "", "3", ""));
}

TEST(TickLabels, NeverShowATickAsZeroThatIsNot) {
  EXPECT_THAT(labels({0, 0.001, 0.002, 0.003}, *digits(1)),
              ElementsAre("0", "1x10^-3", "2x10^-3", "3x10^-3"));
  EXPECT_THAT(labels({-2e-9, -1e-9, 0, 1e-9}, *digits(3)),
              ElementsAre("-2x10^-9", "-1x10^-9", "0", "1x10^-9"));
  EXPECT_THAT(labels({0.01}, *digits(1)), ElementsAre("1x10^-2"));
}

TEST(TickLabels, NeverShowTwoNeighboursAlike) {
  EXPECT_THAT(labels({0, 0.05, 0.1, 0.15}, *digits(1)),
              ElementsAre("0", "0.5x10^-1", "1.0x10^-1", "1.5x10^-1"));
  EXPECT_THAT(labels({0.0005, 0.0010, 0.0015, 0.0020, 0.0025}, *digits(3)),
              ElementsAre("0.5x10^-3", "1.0x10^-3", "1.5x10^-3", "2.0x10^-3", "2.5x10^-3"));
  EXPECT_THAT(labels({1000.001, 1000.002, 1000.003}, *digits(1)),
              ElementsAre("1.000001x10^3", "1.000002x10^3", "1.000003x10^3"));
  EXPECT_THAT(labels({0, 0.5, 1, 1.5, 2}, *digits(0)),
              ElementsAre("0", "0.5", "1.0", "1.5", "2.0"));
}

TEST(TickLabels, NeverShowEvenStepsAsUneven) {
  EXPECT_THAT(labels({0, 2.5, 5, 7.5}, *digits(0)), ElementsAre("0.0", "2.5", "5.0", "7.5"));
  EXPECT_THAT(labels({-25, -12.5, 0}, *digits(0)), ElementsAre("-25.0", "-12.5", "0.0"));
  EXPECT_THAT(labels({0, 0.125, 0.25, 0.375}, *digits(2)),
              ElementsAre("0.000", "0.125", "0.250", "0.375"));
  EXPECT_THAT(labels({100.5, 201, 301.5}, *digits(0)), ElementsAre("100.5", "201.0", "301.5"));
  EXPECT_THAT(labels({2451545.25, 2451545.5, 2451545.75}, *digits(1)),
              ElementsAre("2451545.25", "2451545.50", "2451545.75"));
  EXPECT_THAT(labels({2.5, 5, 10}, *digits(0), true), ElementsAre("2.5", "5.0", "10.0"));
  EXPECT_THAT(labels({2.4}, *digits(0)), ElementsAre("2.4"));
  const auto upToThree = digits(0);
  upToThree->setMaximumFractionDigits(3);
  EXPECT_THAT(labels({0, 2.5, 5}, *upToThree), ElementsAre("0", "2.5", "5"));
  EXPECT_THAT(labels({0, 0.0125, 0.025}, *upToThree), ElementsAre("0.0000", "0.0125", "0.0250"));
}

TEST(TickLabels, OfOneLinearAxisHaveOneExponent) {
  EXPECT_THAT(labels({0.90, 0.95, 1.00, 1.05, 1.10}, *digits(1)),
              ElementsAre("0.90", "0.95", "1.00", "1.05", "1.10"));
  EXPECT_THAT(labels({-0.005, 0, 0.005, 0.010}, *digits(1)),
              ElementsAre("-0.5x10^-2", "0", "0.5x10^-2", "1.0x10^-2"));
  EXPECT_THAT(labels({8e12, 9e12, 1e13, 1.1e13}, *digits(0), false, 60),
              ElementsAre("0.8x10^13", "0.9x10^13", "1.0x10^13", "1.1x10^13"));
}

TEST(TickLabels, WithoutADigitForTheLeastHaveExponentsOfTheirOwn) {
  EXPECT_THAT(labels({1e-18, 3e-18, 1}, *digits(1)), ElementsAre("1x10^-18", "3x10^-18", "1"));
}

TEST(TickLabels, OfStepsWithoutEndHaveAsManyDigitsAsCanBeSeen) {
  EXPECT_THAT(labels({0, 10 / 3.0, 20 / 3.0, 10}, *digits(0)),
              ElementsAre("0.00", "3.33", "6.67", "10.00"));
  EXPECT_THAT(labels({10 / 3.0, 20 / 3.0}, *digits(3)), ElementsAre("3.333", "6.667"));
}

TEST(TickLabels, OfStepsThatNeedTooManyDigitsAreInScientificNotation) {
  EXPECT_THAT(labels({2.5e-17, 5e-17, 7.5e-17}, *digits(17)),
              ElementsAre("2.5x10^-17", "5.0x10^-17", "7.5x10^-17"));
}

TEST(TickLabels, OfAFormatterWithNumbersOfItsOwnAreLeftToIt) {
  class Thousands : public NSNumberFormatter {
    std::string string(double value) const override {
      return NSNumberFormatter::string(value / 1000);
    }
  };
  EXPECT_THAT(labels({1500, 2600, 3700}, Thousands()), ElementsAre("2", "3", "4"));
}

TEST(TickLabels, TellNeighboursApartUpToTheLastDigit) {
  const double next = std::nextafter(0.1, 1);
  const auto texts = labels({0.1, next}, *digits(1));
  EXPECT_NE(texts[0], texts[1]);
  EXPECT_EQ(texts[1], "1.0000000000000002x10^-1");
}

TEST(TickLabels, TakeRoundingAsTheNumberThatIsMeant) {
  EXPECT_THAT(labels({-0.3, 5.6e-17, 0.3}, *digits(1)), ElementsAre("-0.3", "0.0", "0.3"));
  EXPECT_THAT(labels({-0.003, 5.6e-19, 0.003}, *digits(1)),
              ElementsAre("-3x10^-3", "0", "3x10^-3"));
  EXPECT_THAT(labels({0.1 + 0.2, 0.35}, *digits(0)), ElementsAre("3.0x10^-1", "3.5x10^-1"));
}

TEST(TickLabels, OfHugeAndTinyTicksHaveExponentsToo) {
  EXPECT_THAT(labels({1e300, 1e300 + 1e285}, *digits(1)).size(), 2u);
  EXPECT_THAT(labels({5e-324, 1e-323}, *digits(1)), ElementsAre("0.5x10^-323", "1.0x10^-323"));
  EXPECT_THAT(labels({-1e308, 1e-15, 1e308}, *digits(1)).size(), 3u);
}

TEST(TickLabels, OfLogarithmicAxesArePowersOfTenWhereNumbersWouldMislead) {
  EXPECT_THAT(labels({1e-15, 1e-14, 1e-13, 1e-12, 1e-11}, *digits(1), true),
              ElementsAre("10^-15", "10^-14", "10^-13", "10^-12", "10^-11"));
  EXPECT_THAT(labels({0.01, 0.02, 0.05, 0.1}, *digits(1), true),
              ElementsAre("10^-2", "2x10^-2", "5x10^-2", "10^-1"));
  EXPECT_THAT(labels({0.1, 1, 10}, *digits(0), true), ElementsAre("10^-1", "10^0", "10^1"));
  EXPECT_THAT(labels({1e-300, 1e-200, 1e-100}, *digits(3), true),
              ElementsAre("10^-300", "10^-200", "10^-100"));
}

TEST(TickLabels, OfLogarithmicAxesArePowersOfTenWhereNumbersWouldBeLong) {
  EXPECT_THAT(labels({1, 100, 10000}, *digits(0), true), ElementsAre("1", "100", "10000"));
  EXPECT_THAT(labels({1, 100, 100000}, *digits(0), true), ElementsAre("10^0", "10^2", "10^5"));
  EXPECT_THAT(labels({1, 100, 10000000}, *digits(0)), ElementsAre("1", "100", "10000000"));
  class Words : public NSFormatter {
    std::string string(double value) const override {
      return value < 10 ? "a few of them" : "a lot of them";
    }
  };
  EXPECT_THAT(labels({1, 1000}, Words(), true), ElementsAre("a few of them", "a lot of them"));
}

TEST(TickLabels, AreAttributedTextInTheStyleOfTheAxis) {
  const auto layer = tickLabels({2.5e-3}, *digits(1), kStyle, false, kInfinity).at(0);
  EXPECT_EQ(layer->text(), "2.5\u00d710\u22123");
  const auto& runs = layer->attributedText()->runs();
  ASSERT_EQ(runs.size(), 2u);
  for (const auto& run : runs) {
    EXPECT_EQ(run.attributes.fontName, "Helvetica");
    EXPECT_EQ(run.attributes.fontSize, 14);
    EXPECT_EQ(run.attributes.color, NSColor::redColor());
  }
  EXPECT_EQ(runs[0].attributes.superscript, 0);
  EXPECT_EQ(runs[1].attributes.superscript, 1);
  EXPECT_EQ(runs[1].text, "\u22123");
}

CGFloat widest(const std::vector<std::shared_ptr<CPTTextLayer>>& layers) {
  CGFloat width = 0;
  for (const auto& layer : layers) width = std::max(width, layer->frame().size.width);
  return width;
}

TEST(TickLabels, ThatAreTooWideAreSmaller) {
  const std::vector<double> ticks = {0, 1000000, 2000000};
  const CGFloat full = widest(tickLabels(ticks, *digits(0), kStyle, false, kInfinity));
  for (const double part : {0.99, 0.85, 0.71}) {
    const auto layers = tickLabels(ticks, *digits(0), kStyle, false, part * full);
    EXPECT_EQ(layers[2]->text(), "2000000");
    EXPECT_LE(widest(layers), part * full + 0.5);
    EXPECT_GE(widest(layers), (part - 1.0 / 64) * full - 0.5);
    EXPECT_EQ(layers[0]->textStyle(), layers[2]->textStyle());
  }
}

TEST(TickLabels, HaveFewSizesOfTypeHoweverMuchRoomThereIs) {
  const std::vector<double> ticks = {0, 1000000, 2000000};
  const CGFloat full = widest(tickLabels(ticks, *digits(0), kStyle, false, kInfinity));
  std::set<CGFloat> sizes;
  for (int i = 0; i <= 1000; ++i) {
    const CGFloat room = (0.7 + 0.3 * i / 1000) * full;
    const auto layers = tickLabels(ticks, *digits(0), kStyle, false, room);
    EXPECT_LE(widest(layers), room + 0.5);
    sizes.insert(layers[0]->textStyle()->fontSize);
  }
  EXPECT_GE(sizes.size(), 15u);
  EXPECT_LE(sizes.size(), 21u);
}

TEST(TickLabels, ThatAreFarTooWideAreShortenedWhereThatHelps) {
  const std::vector<double> ticks = {0, 1e12, 2e12};
  EXPECT_THAT(labels(ticks, *digits(0), false, 47), ElementsAre("0", "1x10^12", "2x10^12"));
  EXPECT_LE(widest(tickLabels(ticks, *digits(0), kStyle, false, 40)), 40.5);
  EXPECT_THAT(labels(ticks, *digits(0), false, 10),
              ElementsAre("0", "1000000000000", "2000000000000"));
  class Words : public NSFormatter {
    std::string string(double value) const override {
      return "a number of about " + std::to_string(static_cast<int>(value / 1e12));
    }
  };
  EXPECT_THAT(labels({1e12, 2e12}, Words(), false, 47),
              ElementsAre("a number of about 1", "a number of about 2"));
}

RC_GTEST_PROP(TickLabelsProperties, OfEvenTicksAreAllDifferentAndClose, ()) {
  const double interval = std::pow(10.0, *rc::gen::inRange(-300, 300)) * *rc::gen::element(1, 2, 5);
  const int first = *rc::gen::inRange(-1000000, 1000000);
  const int fraction = *rc::gen::inRange(0, 4);
  std::vector<double> ticks;
  for (int i = 0; i < 8; ++i) ticks.push_back((first + i) * interval);
  std::set<std::string> texts;
  const auto all = labels(ticks, *digits(fraction));
  for (std::size_t i = 0; i < all.size(); ++i) {
    texts.insert(all[i]);
    std::string number = all[i];
    if (const auto times = number.find("x10^"); times != std::string::npos)
      number.replace(times, 4, "e");
    double shown = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(number.data(), number.data() + number.size(), shown);
    RC_ASSERT(std::abs(shown - ticks[i]) <= 0.0021 * interval);
  }
  RC_ASSERT(texts.size() == ticks.size());
}

}  // namespace
}  // namespace vexel
