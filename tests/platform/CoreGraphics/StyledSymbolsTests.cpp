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

/// Draws so many symbols that most are hidden by others, and the same in parts in which few are.
/// Expects the same.
void expectSameOfMany(CGBitmapContext& atOnce, CGBitmapContext& inParts, const CGPath& symbol,
                      std::vector<CGSymbolStyle> styles, double size, std::size_t count,
                      const char* what) {
  constexpr std::size_t kPart = 10;
  Symbols symbols = randomSymbols(std::move(styles), static_cast<int>(count), size);
  // A heap that others lie around, and places that are none.
  for (std::size_t i = 0; i < count; i += 5) symbols.centers[i] = {size / 2, size / 2};
  for (std::size_t i = 1; i < count; i += 100)
    symbols.centers[i].y = i % 200 == 1 ? kNaN : kInfinity;
  atOnce.drawStyledSymbols(symbol, symbols.styles, symbols.styleOfCenter, symbols.centers);
  for (std::size_t first = 0; first < count; first += kPart)
    inParts.drawStyledSymbols(symbol, symbols.styles,
                              std::span(symbols.styleOfCenter).subspan(first, kPart),
                              std::span(symbols.centers).subspan(first, kPart));
  EXPECT_GT(inkedPixels(atOnce), 100) << what;
  EXPECT_EQ(maximumDifference(atOnce, inParts), 0) << what;
}

TEST(StyledSymbols, HideEachOtherInTheOrderOfTheirCentresHoweverMany) {
  const CGStrokeStyle broad{.color = CGColor::genericRGB(0, 0.6, 0), .width = 3};
  struct Case {
    const char* what;
    std::vector<CGSymbolStyle> styles;
    CGPath symbol;
    double size;
    std::size_t count;
  };
  const CGPath circle = ellipsePath(-3, -3, 6, 6);
  const Case cases[] = {
      {"alike but for their fill", {{&kRed, &kThin}, {&kBlue, &kThin}}, circle, 150, 50000},
      {"without outline", {{&kRed, nullptr}, {&kBlue, nullptr}}, circle, 150, 50000},
      {"outlines", {{nullptr, &kThin}, {nullptr, &broad}}, circle, 60, 20000},
      {"of several styles",
       {{&kRed, &kThin}, {&kBlue, &broad}, {&kRed, nullptr}, {nullptr, &kThin}},
       circle,
       60,
       20000},
      {"translucent", {{&kFaint, nullptr}}, circle, 60, 20000},
      {"with translucent fills", {{&kFaint, &kThin}}, circle, 60, 20000},
      {"with translucent outlines", {{&kRed, &kBroad}}, circle, 60, 20000},
      {"opaque and translucent", fewStyles(), circle, 60, 20000},
      {"far apart", {{&kRed, &kThin}}, circle, 900, 1000},
      {"tiny", {{&kRed, nullptr}, {&kBlue, nullptr}}, rectPath(-0.2, -0.2, 0.4, 0.4), 40, 100000},
      {"of one pixel",
       {{&kRed, nullptr}, {&kBlue, nullptr}},
       rectPath(-0.5, -0.5, 1, 1),
       40,
       50000},
      {"a slanted line", {{nullptr, &kThin}}, linePath({-9, -5}, {9, 5}), 40, 20000},
      {"across several bands", {{&kRed, &kThin}}, ellipsePath(-17, -17, 34, 34), 200, 5000},
      {"with the widest stamps", {{&kRed, &kThin}}, ellipsePath(-19, -19, 38, 38), 200, 5000},
      {"larger than stamps", {{&kRed, &kThin}}, ellipsePath(-22, -22, 44, 44), 100, 200},
  };
  for (const Case& c : cases)
    expectSameOfMany(*whiteBitmap(c.size, c.size, 1.5), *whiteBitmap(c.size, c.size, 1.5), c.symbol,
                     c.styles, c.size, c.count, c.what);
}

TEST(StyledSymbols, HideEachOtherInsideTheClipOnly) {
  const auto clipped = [](const CGRect& clip) {
    auto bitmap = whiteBitmap(200, 200);
    bitmap->translate(10, 10);
    bitmap->clip(clip);
    return bitmap;
  };
  for (const CGRect& clip : {CGRect::make(20, 30, 101, 77), CGRect::make(20.3, 30.4, 101, 77),
                             CGRect::make(-50, -50, 53, 53)})
    expectSameOfMany(*clipped(clip), *clipped(clip), ellipsePath(-3, -3, 6, 6),
                     {{&kRed, &kThin}, {&kBlue, nullptr}}, 180, 100000, "clipped");
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
