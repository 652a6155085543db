#include <CoreGraphics/CGRecordingContext.h>
#include <gtest/gtest.h>

#include <random>

#include "Bitmaps.h"

namespace vexel {
namespace {

const CGColor kBlue = CGColor::genericRGB(0, 0, 1);
const CGColor kFaint = CGColor::genericRGB(0, 0.5, 0, 0.4);
const CGStrokeStyle kThin;
const CGStrokeStyle kBroad{.color = CGColor::genericRGB(1, 0.5, 0, 0.7), .width = 2.5};

struct Symbols {
  std::vector<CGSymbolStyle> styles;
  std::vector<std::uint32_t> styleOfCenter;
  std::vector<CGPoint> centers;
};

/// Symbols in random styles at random places, some of them outside.
Symbols randomSymbols(std::vector<CGSymbolStyle> styles, int count, double size) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(-5, size + 5);
  Symbols symbols{std::move(styles), {}, {}};
  for (int i = 0; i < count; ++i) {
    symbols.styleOfCenter.push_back(static_cast<std::uint32_t>(random() % symbols.styles.size()));
    symbols.centers.push_back({place(random), place(random)});
  }
  return symbols;
}

std::vector<CGSymbolStyle> fewStyles() {
  return {{&kRed, &kThin}, {&kBlue, nullptr}, {&kFaint, &kBroad}, {nullptr, &kThin}, {}};
}

/// Draws them together and one after the other, and expects the same.
void expectSame(CGBitmapContext& together, CGBitmapContext& oneByOne, const CGPath& symbol,
                const Symbols& symbols) {
  together.drawStyledSymbols(symbol, symbols.styles, symbols.styleOfCenter, symbols.centers);
  for (std::size_t i = 0; i < symbols.centers.size(); ++i) {
    const CGSymbolStyle& style = symbols.styles[symbols.styleOfCenter[i]];
    oneByOne.drawSymbols(symbol, style.fillColor, style.strokeStyle, {&symbols.centers[i], 1});
  }
  EXPECT_GT(inkedPixels(together), 100);
  EXPECT_EQ(maximumDifference(together, oneByOne), 0);
}

TEST(StyledSymbols, AreDrawnWithOneCallForNeighboursOfOneStyle) {
  CGRecordingContext context;
  const std::vector<CGSymbolStyle> styles{{&kRed, nullptr}, {nullptr, &kThin}};
  const std::vector<std::uint32_t> styleOfCenter{1, 0, 0, 1};
  const std::vector<CGPoint> centers{{1, 1}, {2, 2}, {3, 3}, {4, 4}};
  context.drawStyledSymbols(linePath({0, 0}, {1, 0}), styles, styleOfCenter, centers);

  CGRecordingContext expected;
  const std::span all(centers);
  expected.drawSymbols(linePath({0, 0}, {1, 0}), nullptr, &kThin, all.first(1));
  expected.drawSymbols(linePath({0, 0}, {1, 0}), &kRed, nullptr, all.subspan(1, 2));
  expected.drawSymbols(linePath({0, 0}, {1, 0}), nullptr, &kThin, all.last(1));
  EXPECT_EQ(context.text(), expected.text());
}

TEST(StyledSymbols, AreNoneWithoutCentres) {
  CGRecordingContext context;
  context.drawStyledSymbols(linePath({0, 0}, {1, 0}), {}, {}, {});
  EXPECT_EQ(context.text(), "");
  const Bitmap bitmap = whiteBitmap(10, 10);
  bitmap->drawStyledSymbols(linePath({0, 0}, {1, 0}), {}, {}, {});
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(StyledSymbols, LookLikeSymbolsDrawnOneAfterTheOther) {
  for (const double scale : {1.0, 1.5, 2.0})
    expectSame(*whiteBitmap(100, 100, scale), *whiteBitmap(100, 100, scale),
               ellipsePath(-3, -3, 6, 6), randomSymbols(fewStyles(), 500, 100));
}

TEST(StyledSymbols, LookLikeThatWhateverTheClip) {
  const Symbols symbols = randomSymbols(fewStyles(), 500, 100);
  for (const CGPath& clip : {rectPath(10.3, 10.3, 70.4, 70.4), ellipsePath(10, 10, 80, 80)}) {
    const Bitmap together = whiteBitmap(100, 100), oneByOne = whiteBitmap(100, 100);
    together->clip(clip);
    oneByOne->clip(clip);
    expectSame(*together, *oneByOne, ellipsePath(-3, -3, 6, 6), symbols);
  }
}

TEST(StyledSymbols, LookLikeThatWhenTheyAreTooLargeForStamps) {
  expectSame(*whiteBitmap(100, 100), *whiteBitmap(100, 100), ellipsePath(-40, -40, 80, 80),
             randomSymbols(fewStyles(), 30, 100));
}

TEST(StyledSymbols, LookLikeThatWhenThereAreManyStyles) {
  std::vector<CGColor> colors;
  for (int i = 0; i < 200; ++i) colors.push_back(CGColor::genericRGB(i / 200.0, 0, 0.5, 0.8));
  std::vector<CGSymbolStyle> styles;
  for (const CGColor& color : colors) styles.push_back({&color, &kThin});
  expectSame(*whiteBitmap(100, 100), *whiteBitmap(100, 100), ellipsePath(-25, -25, 50, 50),
             randomSymbols(styles, 400, 100));
}

/// Draws so many symbols at once that they are drawn from front to back, and in parts that are
/// not. The largest difference.
int differenceOfMany(CGBitmapContext& atOnce, CGBitmapContext& inParts,
                     std::vector<CGSymbolStyle> styles, double size) {
  constexpr std::size_t kPart = 50000;
  const Symbols symbols = randomSymbols(std::move(styles), 5 * kPart, size);
  const CGPath circle = ellipsePath(-3, -3, 6, 6);
  atOnce.drawStyledSymbols(circle, symbols.styles, symbols.styleOfCenter, symbols.centers);
  for (std::size_t first = 0; first < symbols.centers.size(); first += kPart)
    inParts.drawStyledSymbols(circle, symbols.styles,
                              std::span(symbols.styleOfCenter).subspan(first, kPart),
                              std::span(symbols.centers).subspan(first, kPart));
  return maximumDifference(atOnce, inParts);
}

TEST(StyledSymbols, HideEachOtherInTheOrderOfTheirCentresHoweverMany) {
  const std::vector<CGSymbolStyle> opaque = {
      {&kRed, &kThin}, {&kBlue, &kThin}, {&kRed, nullptr}, {nullptr, &kThin}};
  // Rounding once per layer adds up at edges that many others lie below.
  const auto size = {37.0, 150.0, 900.0};
  for (const double side : size)
    EXPECT_LE(differenceOfMany(*whiteBitmap(side, side, 1.5), *whiteBitmap(side, side, 1.5), opaque,
                               side),
              4);
}

TEST(StyledSymbols, HideEachOtherInsideTheClipOnly) {
  const auto clipped = [] {
    auto bitmap = whiteBitmap(200, 200);
    bitmap->translate(10, 10);
    bitmap->clip(CGRect::make(20, 30, 101, 77));
    return bitmap;
  };
  EXPECT_LE(differenceOfMany(*clipped(), *clipped(), {{&kRed, &kThin}, {&kBlue, nullptr}}, 180), 4);
}

TEST(StyledSymbols, LetOthersShineThroughHoweverMany) {
  EXPECT_EQ(differenceOfMany(*whiteBitmap(80, 80), *whiteBitmap(80, 80), fewStyles(), 80), 0);
}

TEST(BitmapSymbols, HideEachOtherHoweverMany) {
  const Symbols symbols = randomSymbols({{&kRed, &kThin}}, 250000, 100);
  const Bitmap alike = whiteBitmap(100, 100), styled = whiteBitmap(100, 100);
  const CGPath circle = ellipsePath(-3, -3, 6, 6);
  alike->drawSymbols(circle, &kRed, &kThin, symbols.centers);
  styled->drawStyledSymbols(circle, symbols.styles, symbols.styleOfCenter, symbols.centers);
  EXPECT_EQ(maximumDifference(*alike, *styled), 0);
  EXPECT_EQ(inkedPixels(*alike), 100 * 100);
}

}  // namespace
}  // namespace vexel
