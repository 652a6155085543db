#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

void drawScene(CGContext& context) {
  context.stroke(rectPath(10.3, 8.4, 60, 40), {.width = 1, .alignsToPixels = true});
  context.stroke(linePath({5, 5}, {80, 50}), {.color = kRed, .width = 2.5});
  context.fill(ellipsePath(30, 20, 25, 25), CGColor::genericRGB(0, 0.5, 0));
  context.drawText({{{"Layer", {}}}}, {20.3, 30.7});
  const std::vector<CGPoint> centers{{20, 20}, {21.3, 22.7}, {60.1, 45.9}};
  const CGStrokeStyle style;
  context.drawSymbols(ellipsePath(-3, -3, 6, 6), &kRed, &style, centers);
}

TEST(CGLayer, ShowsTheSameAsDrawingDirectly) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    const Bitmap direct = whiteBitmap(90, 60, scale), layered = whiteBitmap(90, 60, scale);
    drawScene(*direct);
    const auto layer = layered->makeLayer(CGRect::make(0, 0, 90, 60));
    ASSERT_NE(layer, nullptr);
    drawScene(layer->context());
    layered->drawLayer(*layer);
    // Two roundings instead of one where something is translucent.
    EXPECT_LE(maximumDifference(*direct, *layered), 1) << scale;
    EXPECT_GT(inkedPixels(*layered), 100);
  }
}

TEST(CGLayer, CoversTheWholePixelsAroundItsRect) {
  const Bitmap direct = whiteBitmap(90, 60), layered = whiteBitmap(90, 60);
  direct->clip(CGRect::make(12, 15, 40, 20));
  drawScene(*direct);
  const auto layer = layered->makeLayer(CGRect::make(12.6, 15.3, 38.6, 19.2));
  drawScene(layer->context());
  layered->drawLayer(*layer);
  EXPECT_LE(maximumDifference(*direct, *layered), 1);
}

TEST(CGLayer, HasTheCoordinatesOfItsParent) {
  const Bitmap direct = whiteBitmap(90, 60, 2), layered = whiteBitmap(90, 60, 2);
  for (CGContext* context :
       {static_cast<CGContext*>(direct.get()), static_cast<CGContext*>(layered.get())}) {
    context->translate(7.3, -4.1);
    context->scale(0.5, 0.7);
  }
  drawScene(*direct);
  const auto layer = layered->makeLayer(CGRect::make(-50, -50, 300, 300));
  drawScene(layer->context());
  EXPECT_TRUE(layer->fits(*layered));
  layered->drawLayer(*layer);
  EXPECT_LE(maximumDifference(*direct, *layered), 1);
}

TEST(CGLayer, KeepsLinesOnTheBorderWhereDirectDrawingHasThem) {
  // The edge of a layer is no edge of the page.
  const Bitmap direct = whiteBitmap(40, 40), layered = whiteBitmap(40, 40);
  const CGStrokeStyle style{.width = 1, .alignsToPixels = true};
  direct->stroke(rectPath(10, 10, 20, 20), style);
  const auto layer = layered->makeLayer(CGRect::make(5, 5, 25, 25));
  layer->context().stroke(rectPath(10, 10, 20, 20), style);
  layered->drawLayer(*layer);
  direct->fill(rectPath(30, 0, 10, 40), kWhite);
  direct->fill(rectPath(0, 30, 40, 10), kWhite);
  EXPECT_EQ(maximumDifference(*direct, *layered), 0);
}

TEST(CGLayer, LooksTheSameWhetherOpaqueOrNot) {
  struct Row {
    CGFloat dx, dy;
    CGRect clip;
  };
  const CGRect everything = CGRect::make(-100, -100, 300, 300);
  for (const auto& [dx, dy, clip] :
       {Row{1e300, 0, everything}, Row{0, -4e9, everything}, Row{-25, 30, everything},
        Row{70, 0, everything}, Row{3, -4, CGRect::make(11, 12, 20, 13)}, Row{0, 0, everything},
        Row{0, 0, {}}}) {
    const Bitmap opaque = whiteBitmap(60, 50), translucent = whiteBitmap(60, 50);
    for (const Bitmap& bitmap : {std::cref(opaque), std::cref(translucent)}) {
      bitmap->stroke(linePath({0, 0}, {60, 50}), {.color = kRed});
      const auto layer = bitmap->makeLayer(CGRect::make(5, 5, 40, 40));
      // Two halves are not known to cover everything.
      layer->context().fillAligned(CGRect::make(5, 5, bitmap == opaque ? 40 : 20, 40), kBlack);
      if (bitmap == translucent) layer->context().fillAligned(CGRect::make(25, 5, 20, 40), kBlack);
      layer->context().fill(ellipsePath(10, 10, 22, 15), kRed);
      bitmap->clip(clip);
      bitmap->translate(dx, dy);
      bitmap->drawLayer(*layer);
    }
    EXPECT_EQ(pixelsOf(*opaque), pixelsOf(*translucent)) << dx << ' ' << dy;
  }
}

TEST(CGLayer, RestoresExactlyTheColumnsOfANarrowClip) {
  for (int width = 1; width <= 18; ++width) {
    const Bitmap direct = whiteBitmap(60, 50), layered = whiteBitmap(60, 50);
    const auto layer = layered->makeLayer(CGRect::make(0, 0, 60, 50));
    for (CGContext* context : {static_cast<CGContext*>(direct.get()), &layer->context()}) {
      if (context == direct.get()) context->clip(CGRect::make(21, 5, width, 33));
      context->fillAligned(CGRect::make(0, 0, 60, 50), kBlack);
      for (int x = 0; x < 50; ++x)
        context->fillAligned(CGRect::make(x, x, 1, 50), CGColor::genericRGB(x / 50.0, 1, 0));
    }
    layered->clip(CGRect::make(21, 5, width, 33));
    layered->drawLayer(*layer);
    EXPECT_EQ(pixelsOf(*direct), pixelsOf(*layered)) << width;
  }
}

TEST(CGLayer, IsDrawnThroughARoundClip) {
  const Bitmap bitmap = whiteBitmap(40, 40);
  const auto layer = bitmap->makeLayer(CGRect::make(0, 0, 40, 40));
  layer->context().fillAligned(CGRect::make(0, 0, 40, 40), kBlack);
  bitmap->clip(ellipsePath(0, 0, 40, 40));
  bitmap->drawLayer(*layer);
  EXPECT_EQ(pixel(*bitmap, 20, 20), kBlackPixel);
  EXPECT_EQ(pixel(*bitmap, 1, 1), kWhitePixel);
}

TEST(CGLayer, IsDrawnThroughTheClip) {
  const Bitmap bitmap = whiteBitmap(40, 40);
  const auto layer = bitmap->makeLayer(CGRect::make(0, 0, 40, 40));
  layer->context().fill(rectPath(0, 0, 40, 40), kBlack);
  bitmap->clip(CGRect::make(10, 10, 5, 5));
  bitmap->drawLayer(*layer);
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{10, 25, 15, 30}));
}

TEST(CGLayer, FitsWhereItsPixelsFallOnPixels) {
  const Bitmap bitmap = whiteBitmap(40, 40, 1.5);
  const auto layer = bitmap->makeLayer(CGRect::make(0, 0, 40, 40));
  struct Row {
    const char* what;
    CGAffineTransform transform;
    bool fits;
  };
  for (const Row& row :
       {Row{"as it was", {}, true}, Row{"three pixels", CGAffineTransform::translation(2, 0), true},
        Row{"one and a half", CGAffineTransform::translation(1, 0), false},
        Row{"scaled", CGAffineTransform::scale(2, 2), false},
        Row{"turned", CGAffineTransform::rotation(0.1), false},
        Row{"without inverse", CGAffineTransform::scale(0, 0), false},
        Row{"nowhere", CGAffineTransform::translation(kNaN, 0), false}}) {
    const CGSavedState state(*bitmap);
    bitmap->concatenate(row.transform);
    EXPECT_EQ(layer->fits(*bitmap), row.fits) << row.what;
  }
  EXPECT_FALSE(layer->fits(*whiteBitmap(40, 40, 1)));
  EXPECT_TRUE(layer->fits(*whiteBitmap(40, 40, 1.5)));
  // Pixels count from the bottom.
  EXPECT_TRUE(layer->fits(*whiteBitmap(70, 50, 1.5)));
  EXPECT_FALSE(layer->fits(*CGDocumentContext::create(CGDocumentContext::Format::svg, {40, 40})));
}

TEST(CGLayer, DrawsNothingWhereItDoesNotFit) {
  const Bitmap bitmap = whiteBitmap(40, 40);
  const auto layer = bitmap->makeLayer(CGRect::make(0, 0, 40, 40));
  layer->context().fill(rectPath(0, 0, 40, 40), kBlack);
  bitmap->translate(0.5, 0);
  bitmap->drawLayer(*layer);
  EXPECT_EQ(inkedPixels(*bitmap), 0);
}

TEST(CGLayer, MovesWithTheCoordinatesByWholePixels) {
  const Bitmap bitmap = whiteBitmap(40, 40, 2);
  const auto layer = bitmap->makeLayer(CGRect::make(0, 0, 40, 40));
  layer->context().fill(rectPath(0, 0, 2, 2), kBlack);
  bitmap->translate(10.5, 3);
  bitmap->drawLayer(*layer);
  EXPECT_EQ(inkBounds(*bitmap), (PixelBounds{21, 70, 25, 74}));
}

TEST(CGLayer, MayBeEmpty) {
  const Bitmap bitmap = whiteBitmap(40, 40);
  for (const CGRect& rect : {CGRect::make(kNaN, 0, 1, 1), CGRect::make(100, 100, 5, 5),
                             CGRect::make(0, 0, 0, 0), CGRect::make(kInfinity, 0, 1, 1)}) {
    const auto layer = bitmap->makeLayer(rect);
    ASSERT_NE(layer, nullptr);
    drawScene(layer->context());
    bitmap->drawLayer(*layer);
    EXPECT_EQ(inkedPixels(*bitmap), 0);
  }
}

TEST(CGLayer, IsAbsentInTurnedCoordinates) {
  const Bitmap bitmap = whiteBitmap(40, 40);
  bitmap->rotate(0.1);
  EXPECT_EQ(bitmap->makeLayer(CGRect::make(0, 0, 10, 10)), nullptr);
}

TEST(CGLayer, HasLayersOfItsOwn) {
  const Bitmap direct = whiteBitmap(90, 60), layered = whiteBitmap(90, 60);
  drawScene(*direct);
  const auto outer = layered->makeLayer(CGRect::make(0, 0, 90, 60));
  const auto inner = outer->context().makeLayer(CGRect::make(0, 0, 90, 60));
  drawScene(inner->context());
  outer->context().drawLayer(*inner);
  layered->drawLayer(*outer);
  EXPECT_LE(maximumDifference(*direct, *layered), 1);
}

}  // namespace
}  // namespace vexel
