#include <CoreGraphics/CGBitmapContext.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "Bitmaps.h"
#include "CairoBitmapContext.h"

namespace vexel {
namespace {

/// A canvas of 10 x 10 pixels whose surface has failed.
CairoCanvas brokenCanvas() {
  CairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 10, 10));
  cairo_surface_finish(surface.get());
  const CGRect page = CGRect::make(0, 0, 10, 10);
  return {std::move(surface), CairoCanvas::Surface::pixels, {1, 0, 0, -1, 0, 10}, page, page};
}

CGStrokeStyle aligned(CGFloat width = 1) {
  return {.width = width, .alignsToPixels = true};
}

TEST(CGBitmapContext, RefusesSizesThatItCannotHold) {
  struct Row {
    CGSize size;
    CGFloat scale;
  };
  for (const Row& row :
       {Row{{kNaN, 10}, 1}, Row{{10, kNaN}, 1}, Row{{10, 10}, kNaN}, Row{{kInfinity, 10}, 1},
        Row{{10, 10}, kInfinity}, Row{{0, 10}, 1}, Row{{10, 0}, 1}, Row{{-10, 10}, 1},
        Row{{10, 10}, 0}, Row{{10, 10}, -1}, Row{{-10, 10}, -1}, Row{{32768, 1}, 1},
        Row{{1, 16384}, 2}, Row{{1e300, 1e300}, 1e300}, Row{{16385, 16384}, 1}})
    EXPECT_THROW(CGBitmapContext::create(row.size, row.scale), CGContextError)
        << row.size.width << " x " << row.size.height << " at " << row.scale;
}

TEST(CGBitmapContext, GivesNoFileWhenSomethingCouldNotBeDrawn) {
  // As the drawing library behaves when it runs out of memory: from then on it does nothing.
  CairoBitmapContext context(brokenCanvas(), 1, CGBitmapContext::Use::file);
  context.fill(rectPath(0, 0, 10, 10), kRed);
  EXPECT_THROW(context.pngData(), CGContextError);
}

TEST(CGBitmapContext, HasTheRoundedProductOfPixelsAndAtLeastOne) {
  struct Row {
    CGSize size;
    CGFloat scale;
    int width, height;
  };
  for (const Row& row :
       {Row{{0.001, 1e-300}, 1, 1, 1}, Row{{32767, 1}, 1, 32767, 1}, Row{{100, 50}, 1, 100, 50},
        Row{{100, 50}, 2, 200, 100}, Row{{101, 33}, 1.5, 152, 50}, Row{{10, 10}, 1.1, 11, 11}}) {
    const Bitmap bitmap = transparentBitmap(row.size.width, row.size.height, row.scale);
    EXPECT_EQ(bitmap->pixelWidth(), row.width);
    EXPECT_EQ(bitmap->pixelHeight(), row.height);
    EXPECT_EQ(bitmap->backingScale(), row.scale);
    EXPECT_EQ(bitmap->pixels().size(), static_cast<std::size_t>(row.width * row.height));
  }
}

TEST(CGBitmapContext, StartsTransparent) {
  const Bitmap bitmap = transparentBitmap(3, 2);
  for (const std::uint32_t p : bitmap->pixels()) EXPECT_EQ(p, 0u);
}

TEST(CGBitmapContext, IsTransparentWhereNothingWasDrawnWhateverTheMemoryHeldBefore) {
  for (const int side : {40, 1100, 1700}) {
    static_cast<void>(whiteBitmap(side, side));
    const Bitmap bitmap = transparentBitmap(side, side);
    bitmap->fillAligned(CGRect::make(7, 5, 20, 10), kBlack);
    const auto isDrawn = [](std::uint32_t p) { return p != 0; };
    EXPECT_EQ(std::ranges::count_if(bitmap->pixels(), isDrawn), 200) << side;
    EXPECT_EQ(pixel(*bitmap, 7, side - 6), kBlackPixel);
  }
}

TEST(CGBitmapContext, GrowsUpwards) {
  const Bitmap bitmap = whiteBitmap(10, 20);
  bitmap->fill(rectPath(2, 3, 4, 5), kRed);
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{2, 12, 6, 17}));
}

TEST(CGBitmapContext, KeepsAlphaPremultiplied) {
  const Bitmap bitmap = transparentBitmap(1, 1);
  bitmap->fill(rectPath(0, 0, 1, 1), CGColor::genericRGB(1, 0.5, 0, 0.5));
  EXPECT_EQ(pixel(*bitmap, 0, 0), 0x80804000u);
}

TEST(CGBitmapContext, FillsByTheNonZeroRule) {
  const Bitmap bitmap = whiteBitmap(10, 10);
  CGMutablePath path = rectPath(0, 0, 10, 10);
  path.addRect(CGRect::make(3, 3, 4, 4));
  bitmap->fill(path, kBlack);
  EXPECT_EQ(pixel(*bitmap, 5, 5), kBlackPixel);
}

TEST(CGBitmapContext, BoundsColourComponents) {
  const Bitmap bitmap = whiteBitmap(1, 1);
  bitmap->fill(rectPath(0, 0, 1, 1), CGColor::genericRGB(kInfinity, kNaN, -5, 9));
  EXPECT_EQ(pixel(*bitmap, 0, 0), kRedPixel);
}

// Aligned strokes.

struct AlignedRow {
  CGFloat scale, width, at;
  int first, last;
};

TEST(CGBitmapContext, AlignedLinesCoverWholePixels) {
  // A vertical line at x = `at` blackens the columns from `first` to before `last`.
  for (const AlignedRow& row :
       {AlignedRow{1, 1, 5, 5, 6}, AlignedRow{1, 1, 5.3, 5, 6}, AlignedRow{1, 1, 5.99, 5, 6},
        AlignedRow{1, 2, 5.3, 4, 6}, AlignedRow{1, 2, 5.6, 5, 7}, AlignedRow{1, 3, 5.3, 4, 7},
        AlignedRow{2, 1, 5.1, 9, 11}, AlignedRow{2, 0.5, 5.1, 10, 11},
        AlignedRow{1.5, 2, 5, 6, 9}}) {
    const Bitmap bitmap = whiteBitmap(20, 20, row.scale);
    bitmap->stroke(linePath({row.at, 2}, {row.at, 18}), aligned(row.width));
    for (int x = 0; x < bitmap->pixelWidth(); ++x)
      EXPECT_EQ(pixel(*bitmap, x, 12), x >= row.first && x < row.last ? kBlackPixel : kWhitePixel)
          << "scale " << row.scale << ", width " << row.width << ", at " << row.at << ", column "
          << x;
  }
}

TEST(CGBitmapContext, AlignedHorizontalLinesCoverWholePixels) {
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->stroke(linePath({2.4, 5.3}, {17.6, 5.3}), aligned());
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{2, 14, 18, 15}));
  EXPECT_EQ(inkedPixels(*bitmap), 16);
  EXPECT_EQ(pixel(*bitmap, 2, 14), kBlackPixel);
  EXPECT_EQ(pixel(*bitmap, 17, 14), kBlackPixel);
}

TEST(CGBitmapContext, AlignedLinesOfAPathLookLikeLinesOfTheDrawingLibrary) {
  CGMutablePath columns, rows;
  for (int i = 0; i < 6; ++i) {
    columns.move({4.3 + 6 * i, 5.2});
    columns.addLine({4.3 + 6 * i, 31.7});
    rows.move({-5, 3.9 + 6 * i});
    rows.addLine({31.4, 3.9 + 6 * i});
  }
  for (const CGPath& path : {columns, rows})
    for (const CGLineCap cap : {CGLineCap::butt, CGLineCap::square, CGLineCap::round})
      for (const CGFloat width : {0.25, 0.5, 1.0, 1.6, 3.0, 9.0})
        for (const CGFloat alpha : {1.0, 0.4}) {
          const CGStrokeStyle style{.color = CGColor::genericRGB(0.8, 0.2, 0, alpha),
                                    .width = width,
                                    .cap = cap,
                                    .alignsToPixels = true};
          const Bitmap plain = whiteBitmap(40, 40);
          plain->stroke(path, style);
          // Lines that meet are left to the drawing library.
          CGMutablePath twice;
          for (const CGPathElement& e : path.elements())
            e.type == CGPathElement::Type::move ? twice.move(e.point) : twice.addLine(e.point);
          twice.move(path.elements()[0].point);
          twice.addLine(path.elements()[1].point);
          const Bitmap expected = whiteBitmap(40, 40);
          expected->stroke(twice, style);
          EXPECT_LE(maximumDifference(*plain, *expected), 1)
              << width << " " << alpha << " " << static_cast<int>(cap);
          EXPECT_GT(maximumDifference(*plain, *whiteBitmap(40, 40)), 9);
        }
}

TEST(CGBitmapContext, AlignedLinesAtOneCoordinateLieInTheSamePixelsHoweverItWasReached) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const Bitmap plain = whiteBitmap(20, 20, scale), moved = whiteBitmap(20, 20, scale);
    plain->stroke(linePath({7, 0}, {7, 20}), aligned());
    moved->translate(0.1, 0);
    moved->translate(0.2, 0);
    moved->stroke(linePath({7 - 0.3, 0}, {7 - 0.3, 20}), aligned());
    EXPECT_EQ(maximumDifference(*plain, *moved), 0) << scale;
  }
}

TEST(CGBitmapContext, AlignedLinesOnTheBorderStayVisible) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    for (const double width : {0.25, 1.0, 2.0, 3.0}) {
      const Bitmap bitmap = whiteBitmap(20, 10, scale);
      bitmap->stroke(rectPath(0, 0, 20, 10), aligned(width));
      const int right = bitmap->pixelWidth() - 1, bottom = bitmap->pixelHeight() - 1;
      const std::uint32_t corner = pixel(*bitmap, 0, 0);
      EXPECT_NE(corner, kWhitePixel) << scale << " " << width;
      const bool isWhole = std::round(width * scale) == width * scale;
      if (isWhole) {
        EXPECT_EQ(corner, kBlackPixel) << scale << " " << width;
      }
      for (const auto& [x, y] : {std::pair{right, 0}, {0, bottom}, {right, bottom}})
        EXPECT_EQ(pixel(*bitmap, x, y), corner) << scale << " " << width;
      if (isWhole) {
        EXPECT_EQ(bitmap->pixels()[static_cast<std::size_t>(std::lround(width * scale)) *
                                   static_cast<std::size_t>(right + 2)],
                  kWhitePixel)
            << scale << " " << width;
      }
    }
  }
}

TEST(CGBitmapContext, AlignedLinesThroughAClipBesideTheBitmapDrawNothing) {
  for (const CGPoint corner : {CGPoint{50, 5}, CGPoint{-50, 5}, CGPoint{5, 50}, CGPoint{5, -50}}) {
    const Bitmap bitmap = whiteBitmap(40, 40);
    const auto layer = bitmap->makeLayer(CGRect::make(10, 10, 20, 20));
    for (CGContext* context : {static_cast<CGContext*>(bitmap.get()), &layer->context()}) {
      context->clip({corner, {9, 9}});
      context->stroke(linePath({-90, 15}, {90, 15}), aligned());
      context->stroke(linePath({15, -90}, {15, 90}), aligned());
      context->fillAligned(CGRect::make(-90, -90, 200, 200), kBlack);
    }
    bitmap->drawLayer(*layer);
    EXPECT_EQ(inkedPixels(*bitmap), 0) << corner.x << ' ' << corner.y;
  }
}

TEST(CGBitmapContext, AlignedLinesBeyondTheBorderStayAway) {
  const Bitmap bitmap = whiteBitmap(20, 10);
  bitmap->stroke(linePath({-3, 0}, {-3, 10}), aligned());
  bitmap->stroke(linePath({23, 0}, {23, 10}), aligned());
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(CGBitmapContext, LeavesOtherPathsWhereTheyAreWhenAligning) {
  CGMutablePath slanted = linePath({1.3, 1.3}, {15.7, 1.3});
  slanted.addLine({16.7, 9.3});
  for (const CGPath& path : {CGPath(slanted), CGPath(ellipsePath(2.3, 2.3, 10, 6))}) {
    const Bitmap plain = whiteBitmap(20, 10), moved = whiteBitmap(20, 10);
    plain->stroke(path, {});
    moved->stroke(path, aligned());
    EXPECT_EQ(maximumDifference(*plain, *moved), 0);
  }
}

TEST(CGBitmapContext, NeighbouringAlignedFillsLeaveNoSeam) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const Bitmap bitmap = whiteBitmap(30, 7, scale);
    const CGColor half = CGColor::genericGray(0, 0.5);
    for (int i = 0; i < 27; ++i)
      bitmap->fillAligned(CGRect::make(1.37 + i * 1.03, 0, 1.03, 7), half);
    const int row = 3;
    const std::uint32_t inside = pixel(*bitmap, bitmap->pixelWidth() / 2, row);
    EXPECT_NE(inside, kWhitePixel);
    const PixelBounds ink = inkBounds(*bitmap);
    for (int x = ink.left; x < ink.right; ++x) EXPECT_EQ(pixel(*bitmap, x, row), inside) << x;
  }
}

TEST(CGBitmapContext, PlainFillsLieOnOneAnotherInTheirOrder) {
  constexpr int kSide = 6;
  struct Box {
    int left, low, right, high;
    std::uint32_t pixelAt(int x, int y, std::uint32_t inside, std::uint32_t outside) const {
      return x >= left && x < right && y >= low && y < high ? inside : outside;
    }
    CGRect rect() const { return CGRect::make(left, low, right - left, high - low); }
  };
  const Box lower{1, 1, 5, 4};
  // Every box, empty and outside ones too, over another, each with and without a look in between,
  // through the whole and a smaller clip.
  for (int left = -1; left <= kSide; ++left)
    for (int low = -1; low <= kSide; ++low)
      for (int right = left; right <= kSide + 1; ++right)
        for (int high = low; high <= kSide + 1; ++high)
          for (const bool looks : {false, true})
            for (const Box& clip : {Box{-9, -9, 9, 9}, Box{2, 0, 4, 5}}) {
              const Box upper{left, low, right, high};
              const Bitmap bitmap = whiteBitmap(kSide, kSide);
              bitmap->fillAligned(lower.rect(), kBlack);
              if (looks) bitmap->pixels();
              bitmap->saveState();
              bitmap->clip(clip.rect());
              bitmap->fillAligned(upper.rect(), kRed);
              bitmap->restoreState();
              bool isRight = true;
              for (int x = 0; x < kSide; ++x)
                for (int y = 0; y < kSide; ++y) {
                  const std::uint32_t below = lower.pixelAt(x, y, kBlackPixel, kWhitePixel);
                  const std::uint32_t above = upper.pixelAt(x, y, kRedPixel, below);
                  isRight = isRight &&
                            pixel(*bitmap, x, kSide - 1 - y) == clip.pixelAt(x, y, above, below);
                }
              ASSERT_TRUE(isRight) << left << ' ' << low << ' ' << right << ' ' << high;
            }
}

TEST(CGBitmapContext, AFillWithoutAnAlphaThatIsANumberIsTransparent) {
  const Bitmap bitmap = whiteBitmap(8, 8);
  bitmap->fillAligned(CGRect::make(2, 2, 4, 4), CGColor::genericRGB(0, 0, 0, kNaN));
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(CGBitmapContext, WhateverIsDrawnLiesOnThePlainFillBefore) {
  const auto layered = [](CGContext& context) {
    const auto layer = context.makeLayer(CGRect::make(0, 0, 30, 30));
    layer->context().fill(rectPath(5, 5, 8, 8), kRed);
    context.drawLayer(*layer);
  };
  const std::vector<CGPoint> centers{{15, 15}};
  const std::function<void(CGContext&)> drawings[] = {
      [](CGContext& c) { c.fill(rectPath(5.5, 5, 10, 10), kRed); },
      [](CGContext& c) { c.fillAligned(CGRect::make(5, 5, 10, 10), CGColor::genericGray(0, 0.5)); },
      [](CGContext& c) {
        c.stroke(linePath({3, 3}, {20, 9}), {});
      },
      [](CGContext& c) {
        c.stroke(linePath({3, 3}, {20, 3}), aligned());
      },
      [](CGContext& c) {
        c.drawText({{{"Text", {}}}}, {5, 5});
      },
      [](CGContext& c) { c.drawImage(*columnImage({0xff0000}), CGRect::make(5, 5, 9, 9)); },
      [&](CGContext& c) { c.drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, nullptr, centers); },
      [](CGContext& c) {
        c.drawOnPixels([](const CGPixels& pixels) { pixels.buffer.row(3)[4] = kRedPixel; });
      },
      layered,
  };
  const auto filled = [] {
    Bitmap bitmap = transparentBitmap(30, 30);
    bitmap->fillAligned(CGRect::make(2, 2, 26, 26), kWhite);
    return bitmap;
  };
  for (const auto& draw : drawings) {
    const Bitmap direct = filled(), seen = filled();
    const auto before = pixelsOf(*seen);
    draw(*direct);
    draw(*seen);
    EXPECT_EQ(pixelsOf(*direct), pixelsOf(*seen)) << &draw - drawings;
    EXPECT_NE(pixelsOf(*seen), before) << &draw - drawings;
  }
}

// Hostile coordinates and styles.

TEST(CGBitmapContext, DrawsNothingForStrokesWithoutAUsableWidth) {
  const Bitmap bitmap = whiteBitmap(10, 10);
  for (const double width : {kNaN, kInfinity, -1.0, 0.0})
    bitmap->stroke(linePath({0, 5}, {10, 5}), {.width = width});
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(CGBitmapContext, TakesUnusableDashesForSolidLines) {
  const Bitmap solid = whiteBitmap(20, 10);
  solid->stroke(linePath({0, 5}, {20, 5}), {.width = 2});
  for (const std::vector<CGFloat>& dashes :
       {std::vector<CGFloat>{kNaN, 1}, {kInfinity}, {-1, 2}, {0, 0}, {0}, {1e308, 1e308}}) {
    const Bitmap bitmap = whiteBitmap(20, 10);
    bitmap->stroke(linePath({0, 5}, {20, 5}), {.width = 2, .dashPattern = dashes});
    EXPECT_EQ(maximumDifference(*solid, *bitmap), 0);
  }
}

TEST(CGBitmapContext, DashesKeepTheirPhaseWhereALineWasCut) {
  const Bitmap near = whiteBitmap(100, 10), far = whiteBitmap(100, 10);
  const std::vector<CGFloat> dashes{10, 10};
  near->stroke(linePath({-20, 5}, {100, 5}), {.width = 2, .dashPattern = dashes});
  far->stroke(linePath({-2e7, 5}, {2e7, 5}), {.width = 2, .dashPattern = dashes});
  EXPECT_EQ(maximumDifference(*near, *far), 0);
  EXPECT_GT(inkedPixels(*near), 0);
}

TEST(CGBitmapContext, TinyDashesOfALongLineTakeNoTime) {
  const Bitmap bitmap = whiteBitmap(100, 10);
  bitmap->stroke(linePath({-1e12, 5}, {1e12, 5}),
                 {.width = 2, .dashPattern = {1e-9}, .dashPhase = kInfinity});
  EXPECT_GT(inkedPixels(*bitmap), 0);
}

TEST(CGBitmapContext, FarAwayEndsDrawTheSameLineAsNearOnes) {
  // The line through both points, seen between them.
  const CGPoint from{10, 3}, direction{1, 0.5};
  const Bitmap near = whiteBitmap(100, 80);
  const auto along = [&](double t) {
    return CGPoint{from.x + t * direction.x, from.y + t * direction.y};
  };
  near->stroke(linePath(along(-1000), along(1000)), {.width = 3});
  for (const double t : {1e4, 1e5, 1e6, 1e7, 1e9, 1e12}) {
    const Bitmap far = whiteBitmap(100, 80);
    far->stroke(linePath(along(-t), along(t)), {.width = 3});
    // Cairo's coordinates are multiples of 1/256 pixel: the ends turn the line a little.
    EXPECT_LE(maximumDifference(*near, *far), 8) << t;
  }
}

TEST(CGBitmapContext, FarAwayCornersFillLikeNearOnes) {
  const Bitmap near = whiteBitmap(40, 30);
  near->fill(rectPath(10, 12, 500, 500), kRed);
  for (const double size : {1e5, 1e7, 1e12, 1e300}) {
    const Bitmap far = whiteBitmap(40, 30);
    far->fill(rectPath(10, 12, size, size), kRed);
    EXPECT_EQ(maximumDifference(*near, *far), 0) << size;
  }
}

TEST(CGBitmapContext, HugeCirclesKeepTheirEdge) {
  const Bitmap bitmap = whiteBitmap(40, 30);
  // The left edge of the circle is at x = 10; near it the circle is a straight line.
  bitmap->fill(ellipsePath(10, 15 - 1e8, 2e8, 2e8), kRed);
  bitmap->stroke(ellipsePath(10, 15 - 1e8, 2e8, 2e8), {.width = 2});
  for (int y = 0; y < 30; ++y) {
    EXPECT_EQ(pixel(*bitmap, 8, y), kWhitePixel);
    EXPECT_EQ(pixel(*bitmap, 9, y), kBlackPixel);
    EXPECT_EQ(pixel(*bitmap, 10, y), kBlackPixel);
    EXPECT_EQ(pixel(*bitmap, 11, y), kRedPixel);
  }
}

TEST(CGBitmapContext, BreaksALineWhereACoordinateIsNotFinite) {
  for (const CGPoint gap : {CGPoint{kNaN, 5}, {15, kNaN}, {kInfinity, 5}, {15, -kInfinity}}) {
    const Bitmap expected = whiteBitmap(30, 10), bitmap = whiteBitmap(30, 10);
    expected->stroke(linePath({2, 5}, {10, 5}), {.width = 2});
    expected->stroke(linePath({20, 5}, {28, 5}), {.width = 2});
    CGMutablePath path = linePath({2, 5}, {10, 5});
    path.addLine(gap);
    path.addLine({20, 5});
    path.addLine({28, 5});
    bitmap->stroke(path, {.width = 2});
    EXPECT_EQ(maximumDifference(*expected, *bitmap), 0);
  }
}

TEST(CGBitmapContext, DrawsOnAfterATransformWithoutInverse) {
  for (const CGAffineTransform& t :
       {CGAffineTransform::scale(0, 1), CGAffineTransform::scale(kNaN, 1),
        CGAffineTransform::translation(kInfinity, 0), CGAffineTransform::scale(1e200, 1e200),
        CGAffineTransform::scale(1e-200, 1e-200)}) {
    const Bitmap bitmap = whiteBitmap(20, 20);
    {
      const CGSavedState state(*bitmap);
      bitmap->concatenate(t);
      bitmap->clip(CGRect::make(0, 0, 5, 5));
      bitmap->stroke(rectPath(1, 1, 10, 10), {});
      bitmap->fill(rectPath(1, 1, 10, 10), kBlack);
      bitmap->fillAligned(CGRect::make(1, 1, 10, 10), kBlack);
      bitmap->drawText({{{"text", {}}}}, {1, 1});
      bitmap->drawImage(*columnImage({1, 2}), CGRect::make(1, 1, 5, 5));
      const std::vector<CGPoint> centers{{1, 1}};
      bitmap->drawSymbols(ellipsePath(-1, -1, 2, 2), &kRed, nullptr, centers);
    }
    EXPECT_EQ(inkedPixels(*bitmap), 0);
    bitmap->fill(rectPath(0, 0, 20, 20), kBlack);
    EXPECT_EQ(inkedPixels(*bitmap), 400);
  }
}

TEST(CGBitmapContext, IgnoresARestoreWithoutSave) {
  const Bitmap bitmap = whiteBitmap(10, 10);
  bitmap->translate(5, 0);
  bitmap->restoreState();
  bitmap->fill(rectPath(0, 0, 1, 10), kBlack);
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{5, 0, 6, 10}));
}

// A path of any doubles must neither crash, hang nor stop later drawing.
RC_GTEST_PROP(CGBitmapContext, SurvivesAnyCoordinates, ()) {
  const auto coordinate = rc::gen::oneOf(
      rc::gen::arbitrary<double>(),
      rc::gen::element(kNaN, kInfinity, -kInfinity, 1e308, -1e308, 1e9, -1e9, 8388608.0, 0.0),
      rc::gen::map(rc::gen::inRange(-500, 500), [](int v) { return v / 7.0; }));
  const auto at = [&] { return CGPoint{*coordinate, *coordinate}; };
  CGMutablePath path;
  const int count = *rc::gen::inRange(1, 12);
  for (int i = 0; i < count; ++i) {
    switch (*rc::gen::inRange(0, 4)) {
      case 0:
        path.move(at());
        break;
      case 1:
        path.addCurve(at(), at(), at());
        break;
      case 2:
        path.closeSubpath();
        break;
      default:
        path.addLine(at());
    }
  }
  const Bitmap bitmap = whiteBitmap(30, 30);
  {
    const CGSavedState state(*bitmap);
    bitmap->concatenate({*coordinate, *coordinate, *coordinate, *coordinate, 0, 0});
    bitmap->stroke(path, {.width = std::abs(*coordinate), .dashPattern = {3, *coordinate}});
  }
  {
    const CGSavedState state(*bitmap);
    bitmap->clip(path);
    bitmap->fillAligned({at(), {*coordinate, *coordinate}}, kRed);
    bitmap->fill(path, kRed);
    bitmap->drawImage(*columnImage({1, 2, 3}, true), {at(), {*coordinate, *coordinate}});
    bitmap->drawImage(*columnImage({1, 2, 3}), {at(), {*coordinate, *coordinate}});
    bitmap->drawText({{{"x", {.size = *coordinate}}}}, at());
  }
  bitmap->stroke(path, {.width = 3, .join = CGLineJoin::round, .alignsToPixels = true});
  bitmap->fill(rectPath(0, 0, 30, 30), kBlack);
  for (const std::uint32_t p : bitmap->pixels()) RC_ASSERT(p == kBlackPixel);
}

// Images.

TEST(CGBitmapContext, DrawsImageRowsAsSharpBandsFromTheTopDown) {
  const auto image = columnImage({0x00ff0000u, 0x0000ff00u, 0x000000ffu, 0x00ffff00u});
  for (const double scale : {1.0, 1.5, 2.0}) {
    const Bitmap bitmap = whiteBitmap(20, 60, scale);
    bitmap->drawImage(*image, CGRect::make(4, 8, 10, 40));
    const int left = static_cast<int>(4 * scale), right = static_cast<int>(14 * scale);
    const int top = static_cast<int>(12 * scale), band = static_cast<int>(10 * scale);
    const std::uint32_t bands[] = {0xffff0000u, 0xff00ff00u, 0xff0000ffu, 0xffffff00u};
    for (int y = 0; y < bitmap->pixelHeight(); ++y) {
      for (int x = 0; x < bitmap->pixelWidth(); ++x) {
        const bool isInside = x >= left && x < right && y >= top && y < top + 4 * band;
        ASSERT_EQ(pixel(*bitmap, x, y), isInside ? bands[(y - top) / band] : kWhitePixel)
            << "scale " << scale << ", " << x << ", " << y;
      }
    }
  }
}

TEST(CGBitmapContext, MovesTheEdgesOfImagesToPixels) {
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->drawImage(*columnImage({0x00ff0000u}), CGRect::make(3.4, 5.3, 10, 9));
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{3, 6, 13, 15}));
  EXPECT_EQ(pixel(*bitmap, 3, 6), kRedPixel);
  EXPECT_EQ(pixel(*bitmap, 12, 14), kRedPixel);
}

TEST(CGBitmapContext, SmoothsEnlargedPixelsOnlyWhenTheImageInterpolates) {
  const Bitmap sharp = whiteBitmap(10, 40), smooth = whiteBitmap(10, 40);
  sharp->drawImage(*columnImage({0, 0xffffffu}), CGRect::make(0, 0, 10, 40));
  smooth->drawImage(*columnImage({0, 0xffffffu}, true), CGRect::make(0, 0, 10, 40));
  EXPECT_EQ(pixel(*sharp, 5, 19), kBlackPixel);
  EXPECT_EQ(pixel(*sharp, 5, 20), kWhitePixel);
  EXPECT_NE(pixel(*smooth, 5, 19), kBlackPixel);
  EXPECT_NE(pixel(*smooth, 5, 19), kWhitePixel);
  // No seam: the border pixels are the image's own.
  EXPECT_EQ(pixel(*smooth, 0, 0), kBlackPixel);
  EXPECT_EQ(pixel(*smooth, 9, 39), kWhitePixel);
}

TEST(CGBitmapContext, DrawsTheSeenPartOfAnEnormousImage) {
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->drawImage(*columnImage({0x00ff0000u, 0}), CGRect::make(-1e9, -1e9 + 10, 2e9, 2e9));
  EXPECT_EQ(pixel(*bitmap, 0, 0), kRedPixel);
  EXPECT_EQ(pixel(*bitmap, 19, 9), kRedPixel);
  EXPECT_EQ(pixel(*bitmap, 19, 10), kBlackPixel);
}

TEST(CGBitmapContext, ClipsToWholePixels) {
  struct Row {
    CGRect clip;
    PixelBounds ink;
  };
  for (const Row& row : {Row{CGRect::make(5, 5, 3, 3), {5, 12, 8, 15}},
                         Row{CGRect::make(5.3, 5.9, 2.5, 2.05), {5, 12, 8, 15}},
                         Row{CGRect::make(5 - 1e-9, 5 + 1e-9, 3 + 2e-9, 3), {5, 12, 8, 15}},
                         Row{CGRect::make(5.4, 5.4, 0.2, 0.2), {5, 14, 6, 15}}}) {
    const Bitmap bitmap = whiteBitmap(20, 20);
    bitmap->clip(row.clip);
    bitmap->fill(rectPath(0, 0, 20, 20), kRed);
    EXPECT_EQ(inkBounds(*bitmap), row.ink) << row.clip.minX() << " " << row.clip.minY();
    for (const std::uint32_t p : bitmap->pixels()) EXPECT_TRUE(p == kWhitePixel || p == kRedPixel);
  }
}

TEST(CGBitmapContext, DrawsNothingThroughAnEmptyClip) {
  for (const CGRect clip : {CGRect::make(5.5, 5.5, 0, 0), CGRect::make(5.5, 5.5, 3, 0)}) {
    const Bitmap bitmap = whiteBitmap(20, 20);
    bitmap->clip(clip);
    bitmap->fill(rectPath(0, 0, 20, 20), kRed);
    EXPECT_EQ(pixelsOf(*bitmap), pixelsOf(*whiteBitmap(20, 20)));
  }
}

TEST(CGBitmapContext, DrawsImagesThroughTheClip) {
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->clip(CGRect::make(5, 5, 3, 3));
  bitmap->drawImage(*columnImage({0x00ff0000u}), CGRect::make(0, 0, 20, 20));
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{5, 12, 8, 15}));
}

TEST(CGBitmapContext, BlendsTranslucentImages) {
  CGImageLayout layout;
  layout.width = layout.height = 1;
  layout.bytesPerRow = 4;
  layout.alphaInfo = CGImageAlphaInfo::premultipliedFirst;
  const auto image = CGImage::create(layout, {0x80, 0x80, 0, 0});
  const Bitmap bitmap = whiteBitmap(2, 2);
  bitmap->drawImage(*image, CGRect::make(0, 0, 2, 2));
  EXPECT_EQ(pixel(*bitmap, 0, 0), 0xffff7f7fu);
}

TEST(CGBitmapContext, TurnsImagesByQuarters) {
  const Bitmap bitmap = whiteBitmap(20, 20);
  bitmap->translate(20, 0);
  bitmap->rotate(std::acos(-1.0) / 2);
  bitmap->drawImage(*columnImage({0x00ff0000u, 0}), CGRect::make(0, 0, 20, 20));
  // The top of the image is on the left now.
  EXPECT_EQ(pixel(*bitmap, 9, 10), kRedPixel);
  EXPECT_EQ(pixel(*bitmap, 10, 10), kBlackPixel);
}

// PNG.

TEST(CGBitmapContext, WritesItsPixelsAsPng) {
  for (const auto& [width, height] : {std::pair{1.0, 1.0}, {7.0, 3.0}, {31.0, 40.0}}) {
    const Bitmap bitmap = transparentBitmap(width, height);
    bitmap->fill(ellipsePath(0, 0, width, height), CGColor::genericRGB(0.2, 0.6, 1));
    const DecodedPng png = decodedPng(bitmap->pngData());
    EXPECT_EQ(png.width, bitmap->pixelWidth());
    EXPECT_EQ(png.height, bitmap->pixelHeight());
    ASSERT_EQ(png.pixels.size(), bitmap->pixels().size());
    for (std::size_t i = 0; i < png.pixels.size(); ++i) {
      // PNG does not premultiply: thin colours come back within a rounding error.
      const std::uint32_t alpha = bitmap->pixels()[i] >> 24;
      ASSERT_EQ(png.pixels[i] >> 24, alpha);
      if (alpha == 255) {
        ASSERT_EQ(png.pixels[i], bitmap->pixels()[i]);
      }
    }
  }
}

TEST(CGBitmapContext, PngOfTwiceTheScaleHasExactlyTwiceTheSize) {
  const DecodedPng once = decodedPng(whiteBitmap(37, 23, 1)->pngData());
  const DecodedPng twice = decodedPng(whiteBitmap(37, 23, 2)->pngData());
  EXPECT_EQ(twice.width, 2 * once.width);
  EXPECT_EQ(twice.height, 2 * once.height);
}

TEST(CGBitmapContext, EqualPixelsGiveEqualPngs) {
  EXPECT_EQ(whiteBitmap(20, 20)->pngData(), whiteBitmap(20, 20)->pngData());
}

}  // namespace
}  // namespace vexel
