#include <CoreGraphics/CGText.h>

#include <gtest/gtest.h>

#include <numbers>

#include "Bitmaps.h"
#include "PangoText.h"

namespace vexel {
namespace {

CGText plain(std::string text, CGFont font = {}) {
  return {{{std::move(text), std::move(font)}}};
}

CGSize measured(const CGText& text) {
  return sharedTextMeasure().measure(text);
}

TEST(CGText, MeasuresNothingWhereNothingIsDrawn) {
  for (const double size : {kNaN, kInfinity, -kInfinity, -12.0, 0.0, 5e-324, 0.999e-3})
    EXPECT_EQ(measured(plain("text", {.size = size})), CGSize{}) << size;
  EXPECT_EQ(measured({}), CGSize{});
  EXPECT_EQ(measured(plain("")), CGSize{});
}

TEST(CGText, SurvivesHostileInput) {
  for (const CGText& text :
       {plain("text", {.size = 1e308}), plain("text", {.size = 5e-324}),
        plain("text", {.family = "No Such Family Anywhere"}), plain("text", {.family = ""}),
        plain("text", {.family = std::string("\xff\0x", 3)}), plain(std::string(3, '\0')),
        plain("\xff\xfe\x80"), plain("\r\n\u2028\t\u202e\u200f"), plain("\U0010ffff\ue000"),
        plain(std::string(20000, 'x'))}) {
    const CGSize size = measured(text);
    EXPECT_TRUE(std::isfinite(size.width) && size.width >= 0);
    EXPECT_TRUE(std::isfinite(size.height) && size.height >= 0);
    whiteBitmap(20, 20)->drawText(text, {1, 1});
  }
}

TEST(CGText, DrawsBytesThatAreNotTextAsReplacementCharacters) {
  EXPECT_EQ(measured(plain("a\xffz")), measured(plain("a\uFFFDz")));
}

TEST(CGText, GrowsInProportionToTheFontSize) {
  const CGSize small = measured(plain("Temperature", {.size = 7}));
  EXPECT_GT(small.width, 20);
  for (const double factor : {1e-3, 0.3, 10.0, 500.0}) {
    const CGSize other = measured(plain("Temperature", {.size = 7 * factor}));
    EXPECT_DOUBLE_EQ(other.width, factor * small.width);
    EXPECT_DOUBLE_EQ(other.height, factor * small.height);
  }
}

TEST(CGText, HasASmallestAndALargestSize) {
  EXPECT_GT(measured(plain("x", {.size = 1e-3})).width, 0);
  EXPECT_LT(measured(plain("x", {.size = 4095})).width, measured(plain("x", {.size = 4096})).width);
  EXPECT_EQ(measured(plain("x", {.size = 1e308})), measured(plain("x", {.size = 4096})));
}

TEST(CGText, GrowsInProportionToItsLengthHoweverLong) {
  for (const double size : {12.0, 4096.0}) {
    const CGFont font{.size = size};
    const CGSize one = measured(plain("W", font));
    const CGSize wide = measured(plain(std::string(80000, 'W'), font));
    EXPECT_NEAR(wide.width, 8e4 * one.width, 8e2 * one.width);
    EXPECT_NEAR(wide.height, one.height, 0.01 * one.height);
  }
}

TEST(CGText, LooksForAFontOnceForAllItsSizes) {
  const auto fontOf = [](double size) {
    return PangoText::layout(plain("x", {.size = size}))->glyphs()[0].font;
  };
  for (const double size : {1.0, 8.5, 700.0}) EXPECT_EQ(fontOf(size), fontOf(12)) << size;
}

TEST(CGText, MayMixTheSmallestSizesWithTheLargest) {
  const CGText tiny{{{"x", {.size = 1e-3}}}}, huge{{{"x", {.size = 4096}}}};
  const CGText both{{{"x", {.size = 1e-3}}, {"x", {.size = 4096}}}};
  EXPECT_NEAR(measured(both).width, measured(huge).width + measured(tiny).width, 1);
  EXPECT_NEAR(measured(both).height, measured(huge).height, 1);
}

TEST(CGText, IsAsHighAsItsLinesAndAsWideAsTheWidest) {
  const CGSize one = measured(plain("wide line")), other = measured(plain("x"));
  const CGSize both = measured(plain("wide line\nx"));
  EXPECT_DOUBLE_EQ(both.width, one.width);
  EXPECT_NEAR(both.height, one.height + other.height, 0.01);
  EXPECT_NEAR(measured(plain("\n")).height, 2 * one.height, 0.01);
}

TEST(CGText, SetsScriptsSmallerRaisedAndLowered) {
  const auto withScript = [](int script) { return CGText{{{"x", {}}, {"2", {}, kBlack, script}}}; };
  const double digit = measured(plain("2")).width;
  const double width = measured(withScript(1)).width - measured(plain("x")).width;
  EXPECT_NEAR(width, 0.7 * digit, 0.01);
  const auto inkOf = [&](int script) {
    const Bitmap bitmap = whiteBitmap(40, 40, 4);
    bitmap->drawText({{{"|", {}, kWhite}, {"2", {.size = 20}, kBlack, script}}}, {5, 10});
    return inkBounds(*bitmap);
  };
  const PixelBounds raised = inkOf(1), lowered = inkOf(-1);
  EXPECT_EQ(raised.bottom - raised.top, lowered.bottom - lowered.top);
}

TEST(CGText, RaisesByTwoFifthsAndLowersByOneFifthOfTheSize) {
  // Beside a dash on the line that is the same in all three.
  const auto baselineOf = [](int script) {
    const Bitmap bitmap = whiteBitmap(60, 60, 4);
    const CGText text{{{"H", {.size = 20}, kRed}, {"H", {.size = 20}, kBlack, script}}};
    bitmap->drawText(text, {5, 15});
    int red = 0, black = 0;
    for (int y = 0; y < 240; ++y) {
      for (int x = 0; x < 240; ++x) {
        if (pixel(*bitmap, x, y) == kRedPixel) red = y;
        if (pixel(*bitmap, x, y) == kBlackPixel) black = y;
      }
    }
    return (red - black) / 4.0;
  };
  EXPECT_NEAR(baselineOf(0), 0, 0.01);
  EXPECT_NEAR(baselineOf(1), 8, 0.5);
  EXPECT_NEAR(baselineOf(-1), -4, 0.5);
}

TEST(CGText, BoldAndItalicAreFontsOfTheirOwn) {
  const CGSize regular = measured(plain("minimum"));
  EXPECT_GT(measured(plain("minimum", {.bold = true})).width, regular.width);
  const Bitmap upright = whiteBitmap(80, 20), slanted = whiteBitmap(80, 20);
  upright->drawText(plain("minimum"), {2, 2});
  slanted->drawText(plain("minimum", {.italic = true}), {2, 2});
  EXPECT_GT(maximumDifference(*upright, *slanted), 100);
}

TEST(CGText, IsTheSameObjectOfMeasureInOneThread) {
  EXPECT_EQ(&sharedTextMeasure(), &sharedTextMeasure());
}

TEST(CGText, MeasureIsNotConfusedByManyTexts) {
  const CGSize first = measured(plain("label 1"));
  for (int i = 0; i < 2000; ++i) measured(plain("other " + std::to_string(i)));
  EXPECT_EQ(measured(plain("label 1")), first);
}

// Drawing.

TEST(DrawText, FillsTheMeasuredBoxFromItsBottomLeftCorner) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const CGText text = plain("HÅg|", {.size = 20});
    const CGSize size = measured(text);
    const Bitmap bitmap = whiteBitmap(100, 60, scale);
    bitmap->drawText(text, {10, 20});
    const PixelBounds ink = inkBounds(*bitmap);
    EXPECT_GE(ink.left, std::floor(10 * scale));
    EXPECT_LE(ink.left, (10 + 4) * scale);
    EXPECT_LE(ink.right, std::ceil((10 + size.width) * scale));
    EXPECT_GE(ink.right, (10 + size.width - 4) * scale);
    EXPECT_LE(ink.bottom, std::ceil((60 - 20) * scale) + 1);
    EXPECT_GE(ink.top, std::floor((60 - 20 - size.height) * scale) - 1);
  }
}

TEST(DrawText, StandsUpright) {
  // The bar of a T is at its top.
  const Bitmap bitmap = whiteBitmap(40, 40);
  bitmap->drawText(plain("T", {.size = 30}), {5, 2});
  const PixelBounds ink = inkBounds(*bitmap);
  const auto inkInRow = [&](int y) {
    int count = 0;
    for (int x = 0; x < 40; ++x) count += pixel(*bitmap, x, y) != kWhitePixel;
    return count;
  };
  EXPECT_GT(inkInRow(ink.top + 1), 3 * inkInRow(ink.bottom - 2));
}

TEST(DrawText, RunsUpwardWhenTurnedByAQuarter) {
  // Turning the text turns the picture.
  const CGText text = plain("Temperature");
  const Bitmap level = whiteBitmap(100, 100), upward = whiteBitmap(100, 100);
  level->drawText(text, {10, 20});
  upward->translate(100, 0);
  upward->rotate(std::numbers::pi / 2);
  upward->drawText(text, {10, 20});
  int greatest = 0;
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 100; ++x)
      greatest = std::max(greatest, std::abs(static_cast<int>(pixel(*level, x, y) & 255) -
                                             static_cast<int>(pixel(*upward, y, 99 - x) & 255)));
  // The rasteriser is finer in one direction than in the other.
  EXPECT_LE(greatest, 20);
  EXPECT_GT(inkedPixels(*upward), 100);
}

TEST(DrawText, AlignsLinesAmongThemselves) {
  const auto left = [](CGTextAlignment alignment) {
    const Bitmap bitmap = whiteBitmap(120, 40);
    bitmap->drawText({{{"wide wide wide\n", {}, kWhite}, {"I", {}}}, alignment}, {10, 5});
    return inkBounds(*bitmap).left;
  };
  const double room = measured(plain("wide wide wide")).width - measured(plain("I")).width;
  const int atLeft = left(CGTextAlignment::left);
  EXPECT_NEAR(left(CGTextAlignment::center), atLeft + room / 2, 1.01);
  EXPECT_NEAR(left(CGTextAlignment::right), atLeft + room, 1.01);
}

TEST(DrawText, TakesTheColoursAndAlphaOfItsRuns) {
  const Bitmap bitmap = whiteBitmap(60, 30);
  bitmap->drawText({{{"█", {.size = 20}, kRed},
                     {"█", {.size = 20}, CGColor::genericGray(0, 0.5)},
                     {"█", {.size = 20}, CGColor::genericGray(0, 0)}}},
                   {2, 3});
  const double step = measured(plain("█", {.size = 20})).width;
  const auto at = [&](int i) { return pixel(*bitmap, static_cast<int>(2 + (i + 0.5) * step), 15); };
  EXPECT_EQ(at(0), kRedPixel);
  EXPECT_EQ(at(1), 0xff7f7f7fu);
  EXPECT_EQ(at(2), kWhitePixel);
}

TEST(DrawText, LooksTheSameAfterOtherText) {
  const CGText text = plain("Charge", {.size = 13});
  const auto draw = [&](bool withOthers) {
    Bitmap bitmap = whiteBitmap(80, 80, 1.5);
    if (withOthers) {
      const CGSavedState state(*bitmap);
      bitmap->clip(CGRect::make(0, 0, 0, 0));
      bitmap->drawText(text, {3.3, 4.4});
      bitmap->rotate(0.3);
      bitmap->drawText(text, {3.3, 4.4});
    }
    bitmap->rotate(0.7);
    bitmap->drawText(text, {20, 10});
    return bitmap;
  };
  EXPECT_EQ(maximumDifference(*draw(false), *draw(true)), 0);
}

TEST(DrawText, LooksTheSameThroughAnyKindOfClip) {
  const CGText text{{{"Charge ", {.size = 13}}, {"10", {}, kRed}, {"-3", {}, kRed, 1}}};
  const auto draw = [&](const CGPath& clip) {
    Bitmap bitmap = whiteBitmap(120, 40);
    bitmap->clip(clip);
    bitmap->drawText(text, {8.7, 9.4});
    return bitmap;
  };
  const Bitmap open = draw(rectPath(0, 0, 120, 40));
  CGMutablePath notARect = rectPath(0, 0, 120, 40);
  notARect.addRect(CGRect::make(1, 1, 2, 2));
  // Masks hold coverage in whole levels; Cairo rounds once less.
  EXPECT_LE(maximumDifference(*open, *draw(notARect)), 1);
  EXPECT_LE(maximumDifference(*open, *draw(rectPath(0.3, 0.3, 119, 39))), 1);
}

TEST(DrawText, ShowsCharactersThatNoFontHasAsBoxes) {
  const Bitmap bitmap = whiteBitmap(40, 30);
  bitmap->drawText(plain("\U0010fffd", {.size = 20}), {2, 2});
  EXPECT_GT(inkedPixels(*bitmap), 10);
}

TEST(DrawText, DrawsNothingAtPlacesThatAreNotNumbers) {
  const Bitmap bitmap = whiteBitmap(40, 30);
  for (const CGPoint p : {CGPoint{kNaN, 5}, {5, kNaN}, {kInfinity, 5}, {1e300, 5}, {5, -1e9}})
    bitmap->drawText(plain("text"), p);
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(DrawText, DrawsNothingAtSizesThatCannotBeSeen) {
  for (const double scale : {1e-9, 1e9}) {
    const Bitmap bitmap = whiteBitmap(40, 30);
    bitmap->scale(scale, scale);
    bitmap->drawText(plain("text"), {0, 0});
    EXPECT_EQ(inkedPixels(*bitmap), 0);
  }
}

TEST(DrawText, FillsLargeGlyphsToo) {
  const Bitmap bitmap = whiteBitmap(400, 300);
  bitmap->drawText(plain("I", {.size = 300}), {100, -20});
  const PixelBounds ink = inkBounds(*bitmap);
  EXPECT_NEAR(ink.bottom - ink.top, 300 * 0.69, 6);
}

}  // namespace
}  // namespace vexel
