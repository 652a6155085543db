#include "BitmapSymbols.h"

#include <gtest/gtest.h>

#include <random>

#include "Bitmaps.h"

namespace vexel {
namespace {

const CGColor kFill = CGColor::genericRGB(0, 0.5, 1);
const CGStrokeStyle kOutline;

// Each symbol by plain calls.
void drawPlainly(CGContext& context, const CGPath& symbol, const CGColor* fill,
                 const CGStrokeStyle* stroke, std::span<const CGPoint> centers) {
  context.CGContext::drawSymbols(symbol, fill, stroke, centers);
}

std::vector<CGPoint> randomCenters(int count, double size) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(-5, size + 5);
  std::vector<CGPoint> centers;
  for (int i = 0; i < count; ++i) centers.push_back({place(random), place(random)});
  return centers;
}

// Whole eighths of a pixel, each symbol for itself.
std::vector<CGPoint> centersOnPhases(double scale) {
  std::vector<CGPoint> centers;
  for (int i = 0; i < 8; ++i)
    for (int k = 0; k < 8; ++k)
      centers.push_back({(12 + 12 * i + k / 8.0) / scale, (12 + 12 * k + i / 8.0) / scale});
  return centers;
}

int difference(const CGPath& symbol, const CGColor* fill, const CGStrokeStyle* stroke,
               std::span<const CGPoint> centers, double scale, double side = 110) {
  const Bitmap stamped = whiteBitmap(side, side, scale), plain = whiteBitmap(side, side, scale);
  stamped->drawSymbols(symbol, fill, stroke, centers);
  drawPlainly(*plain, symbol, fill, stroke, centers);
  EXPECT_GT(inkedPixels(*stamped), 100);
  return maximumDifference(*stamped, *plain);
}

TEST(BitmapSymbols, EqualPlainDrawingAtWholePhases) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const auto centers = centersOnPhases(scale);
    // Coverage and colour are rounded one after the other.
    EXPECT_LE(difference(ellipsePath(-3, -3, 6, 6), &kFill, nullptr, centers, scale), 1);
    EXPECT_LE(difference(ellipsePath(-3, -3, 6, 6), nullptr, &kOutline, centers, scale), 1);
    EXPECT_LE(difference(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers, scale), 1);
    EXPECT_LE(difference(rectPath(-2, -2, 4, 4), &kFill, &kOutline, centers, scale), 1);
  }
}

TEST(BitmapSymbols, StandWithinASixteenthOfAPixelOfTheirCentres) {
  // Apart from each other, so that differences do not add up. Moved by a sixteenth of a pixel in
  // both directions, a slanted edge changes its pixels by 0.09, 23 of 255; the rasteriser, which
  // looks at 15 rows of a pixel, adds one of them.
  std::vector<CGPoint> centers;
  std::mt19937 random(1);
  std::uniform_real_distribution<double> place(0, 1);
  for (int i = 0; i < 45; ++i)
    for (int k = 0; k < 45; ++k)
      centers.push_back({8 + 12 * i + place(random), 8 + 12 * k + place(random)});
  for (const double scale : {1.0, 2.0}) {
    EXPECT_LE(difference(ellipsePath(-3, -3, 6, 6), &kFill, nullptr, centers, scale, 560), 23 + 17);
    EXPECT_LE(difference(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers, scale, 560),
              23 + 17);
  }
}

TEST(BitmapSymbols, OverlapInTheOrderOfTheirCentres) {
  const std::vector<CGPoint> centers{{10, 10}, {13, 10}};
  const CGColor translucent = CGColor::genericRGB(1, 0, 0, 0.5);
  // Four edges lie over each other.
  EXPECT_LE(difference(ellipsePath(-6, -6, 12, 12), &translucent, &kOutline, centers, 1), 2);
}

TEST(BitmapSymbols, AreCutByTheClip) {
  const auto centers = randomCenters(300, 40);
  for (const CGRect& clip : {CGRect::make(10, 12, 20, 15), CGRect::make(10.3, 12.7, 20, 15)}) {
    const Bitmap open = whiteBitmap(40, 40), cut = whiteBitmap(40, 40);
    open->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
    cut->clip(clip);
    cut->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
    // Inside the same, outside nothing.
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) {
        const double bottom = 39 - y;
        const bool isInside = x >= clip.minX() && x + 1 <= clip.maxX() && bottom >= clip.minY() &&
                              bottom + 1 <= clip.maxY();
        const bool isOutside = x + 1 <= clip.minX() || x >= clip.maxX() ||
                               bottom + 1 <= clip.minY() || bottom >= clip.maxY();
        if (isOutside) {
          ASSERT_EQ(pixel(*cut, x, y), kWhitePixel) << x << ", " << y;
        }
        // Near the cut edges plain drawing takes over, which has no phases.
        const bool isDeep = x >= clip.minX() + 8 && x + 9 <= clip.maxX() &&
                            bottom >= clip.minY() + 8 && bottom + 9 <= clip.maxY();
        if (isDeep || (isInside && clip.minX() == 10)) {
          ASSERT_EQ(pixel(*cut, x, y), pixel(*open, x, y)) << x << ", " << y;
        }
      }
    }
  }
}

TEST(BitmapSymbols, FollowAClipThatIsNoRectangle) {
  const auto centers = randomCenters(300, 40);
  const Bitmap stamped = whiteBitmap(40, 40), plain = whiteBitmap(40, 40);
  for (CGContext* c :
       {static_cast<CGContext*>(stamped.get()), static_cast<CGContext*>(plain.get())})
    c->clip(ellipsePath(5, 5, 30, 30));
  stamped->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
  drawPlainly(*plain, ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
  EXPECT_EQ(maximumDifference(*stamped, *plain), 0);
}

TEST(BitmapSymbols, LargerThanStampsAreDrawnPlainly) {
  const std::vector<CGPoint> centers{{50.3, 50.7}};
  EXPECT_EQ(difference(ellipsePath(-40, -40, 80, 80), &kFill, &kOutline, centers, 1), 0);
}

TEST(BitmapSymbols, WithSharpCornersAreWhole) {
  CGMutablePath needle = linePath({-10, -2}, {10, 0});
  needle.addLine({-10, 2});
  needle.closeSubpath();
  const CGStrokeStyle style{.width = 2};
  const std::vector<CGPoint> centers{{50, 50}};
  EXPECT_LE(difference(needle, &kFill, &style, centers, 1), 1);
}

TEST(BitmapSymbols, HaveStampsForWhatTheyInkAndNotForWhatAPenMightReach) {
  const CGStrokeStyle broad{.width = 6};
  const CGPath circle = ellipsePath(-10, -10, 20, 20);
  EXPECT_NE(SymbolStamps::create({circle, &kFill, &broad}, {}), nullptr);
  EXPECT_EQ(SymbolStamps::create({circle, &kFill, &broad}, CGAffineTransform::scale(4, 4)),
            nullptr);
}

TEST(BitmapSymbols, TurnAndStretchWithTheTransform) {
  const std::vector<CGPoint> centers{{40, 10}};
  const Bitmap stamped = whiteBitmap(60, 60), plain = whiteBitmap(60, 60);
  for (CGContext* c :
       {static_cast<CGContext*>(stamped.get()), static_cast<CGContext*>(plain.get())}) {
    c->rotate(0.5);
    c->scale(1, 2);
  }
  stamped->drawSymbols(rectPath(-4, -4, 8, 8), &kFill, nullptr, centers);
  drawPlainly(*plain, rectPath(-4, -4, 8, 8), &kFill, nullptr, centers);
  EXPECT_GT(inkedPixels(*stamped), 100);
  EXPECT_LE(maximumDifference(*stamped, *plain), 24);
}

TEST(BitmapSymbols, SkipCentresThatAreNotNumbersOrFarAway) {
  const std::vector<CGPoint> centers{{kNaN, 5},  {5, kNaN},  {kInfinity, 5}, {5, -kInfinity},
                                     {1e300, 5}, {-1e12, 5}, {5, 3e9},       {200, 5}};
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(BitmapSymbols, DrawNothingWithoutPathFillAndStroke) {
  const std::vector<CGPoint> centers{{10, 10}};
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->drawSymbols(CGPath(), &kFill, &kOutline, centers);
  bitmap->drawSymbols(ellipsePath(-3, -3, 6, 6), nullptr, nullptr, centers);
  bitmap->drawSymbols(ellipsePath(kNaN, -3, 6, 6), &kFill, nullptr, centers);
  const CGStrokeStyle none{.width = kNaN};
  bitmap->drawSymbols(ellipsePath(-3, -3, 6, 6), nullptr, &none, centers);
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(BitmapSymbols, OneDrawnAloneEqualsTheSameAmongMany) {
  // Repainting a part of a plot shows no seams.
  const auto centers = randomCenters(200, 40);
  const Bitmap together = whiteBitmap(40, 40), oneByOne = whiteBitmap(40, 40);
  together->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
  for (const CGPoint& center : centers)
    oneByOne->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, {&center, 1});
  EXPECT_EQ(maximumDifference(*together, *oneByOne), 0);
}

TEST(BitmapSymbols, MoveByWholePixelsWithoutChange) {
  // A panned plot does not shimmer. 1024ths of a pixel are moved exactly.
  auto centers = randomCenters(200, 40);
  for (CGPoint& c : centers) c = {std::round(c.x * 1024) / 1024, std::round(c.y * 1024) / 1024};
  const auto draw = [&] {
    Bitmap bitmap = whiteBitmap(60, 60);
    bitmap->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, &kOutline, centers);
    return bitmap;
  };
  const Bitmap before = draw();
  for (CGPoint& c : centers) c = {c.x + 11, c.y - 7};
  const Bitmap after = draw();
  EXPECT_GT(inkedPixels(*before), 1000);
  for (int y = 0; y + 7 < 60; ++y)
    for (int x = 0; x + 11 < 60; ++x)
      ASSERT_EQ(pixel(*after, x + 11, y + 7), pixel(*before, x, y)) << x << ", " << y;
}

TEST(BitmapSymbols, DrawIntoLayersAsIntoTheirParent) {
  const auto centers = randomCenters(200, 40);
  const Bitmap direct = whiteBitmap(40, 40), layered = whiteBitmap(40, 40);
  direct->drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, nullptr, centers);
  direct->fill(rectPath(0, 0, 7, 40), kWhite);
  const auto layer = layered->makeLayer(CGRect::make(7, 0, 33, 40));
  layer->context().drawSymbols(ellipsePath(-3, -3, 6, 6), &kFill, nullptr, centers);
  layered->drawLayer(*layer);
  // Where edges lie over each other, their roundings add up.
  EXPECT_LE(maximumDifference(*direct, *layered), 2);
}

}  // namespace
}  // namespace vexel
