#include <CoreGraphics/CGContext.h>

#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGNullContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

// Records what the plain way of drawing symbols asks for.
class PlainContext : public CGRecordingContext {
 public:
  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers) override {
    CGContext::drawSymbols(symbol, fillColor, strokeStyle, centers);
  }
};

TEST(CGContext, FillsThenStrokesSymbolsAtTheirCentres) {
  PlainContext context;
  const CGStrokeStyle style;
  const std::vector<CGPoint> centers{{10, 20}, {30, 40}};
  context.drawSymbols(linePath({-1, 0}, {1, 0}), &kRed, &style, centers);
  EXPECT_EQ(context.text(),
            "save\n"
            "  transform 1 0 0 1 10 20\n"
            "  fill #ff0000: M -1 0 L 1 0\n"
            "  stroke #000000 width 1: M -1 0 L 1 0\n"
            "restore\n"
            "save\n"
            "  transform 1 0 0 1 30 40\n"
            "  fill #ff0000: M -1 0 L 1 0\n"
            "  stroke #000000 width 1: M -1 0 L 1 0\n"
            "restore\n");
}

TEST(CGContext, HasNoLayersUnlessItKeepsPixels) {
  CGRecordingContext context;
  EXPECT_EQ(context.makeLayer(CGRect::make(0, 0, 10, 10)), nullptr);
}

TEST(CGSavedState, RestoresAtTheEndOfItsLife) {
  CGRecordingContext context;
  { const CGSavedState state(context); }
  EXPECT_EQ(context.text(), "save\nrestore\n");
}

TEST(CGNullContext, MeasuresTextAsBitmapsDo) {
  CGNullContext context;
  const CGText text{{{"Charge", {}}}};
  EXPECT_EQ(context.measure(text), whiteBitmap(10, 10)->measure(text));
  EXPECT_GT(context.measure(text).width, 0);
}

TEST(DrawOnPixels, LendsNoneWhereThereAreNoneOrTheClipCutsThroughThem) {
  const auto isLent = [](CGContext& context) {
    bool wasCalled = false;
    EXPECT_EQ(context.drawOnPixels([&](const CGPixels&) { wasCalled = true; }), wasCalled);
    return wasCalled;
  };
  CGRecordingContext recording;
  EXPECT_FALSE(isLent(recording));
  for (const auto format : {CGDocumentContext::Format::pdf, CGDocumentContext::Format::svg})
    EXPECT_FALSE(isLent(*CGDocumentContext::create(format, {10, 10})));
  const auto bitmap = CGBitmapContext::create({10, 10}, 1);
  EXPECT_TRUE(isLent(*bitmap));
  {
    const CGSavedState state(*bitmap);
    bitmap->rotate(0.3);
    bitmap->clip(CGRect::make(0, 0, 5, 5));
    EXPECT_FALSE(isLent(*bitmap));
  }
  {
    const CGSavedState state(*bitmap);
    bitmap->scale(0, 1);
    EXPECT_FALSE(isLent(*bitmap));
  }
  EXPECT_TRUE(isLent(*bitmap));
}

TEST(DrawOnPixels, LendsTheClippedPixelsOfBitmapsAndTheirLayers) {
  const auto bitmap = CGBitmapContext::create({20, 10}, 2);
  bitmap->translate(3, 1);
  const auto layer = bitmap->makeLayer(CGRect::make(2, 1, 10, 6));
  const auto draw = [](CGContext& context, PixelRect clip, int width, int height) {
    const CGSavedState state(context);
    context.clip(CGRect::make(4, 2, 5, 3));
    EXPECT_TRUE(context.drawOnPixels([&](const CGPixels& pixels) {
      EXPECT_EQ(pixels.clip, clip);
      EXPECT_EQ(pixels.buffer.width, width);
      EXPECT_EQ(pixels.buffer.height, height);
      const CGPoint corner = pixels.toPixels.apply({4, 5});
      EXPECT_EQ(corner.x, clip.left);
      EXPECT_EQ(corner.y, clip.top);
      pixels.buffer.row(clip.top)[clip.left] = 0xff00ff00u;
    }));
  };
  // Of 40 x 20 pixels, (4, 5) in points lies at (14, 12) from the lower left.
  draw(*bitmap, {14, 8, 24, 14}, 40, 20);
  EXPECT_EQ(bitmap->pixels()[8 * 40 + 14], 0xff00ff00u);
  draw(layer->context(), {4, 4, 14, 10}, 20, 12);
  bitmap->clip(CGRect::make(-3, -1, 20, 10));
  bitmap->drawLayer(*layer);
  EXPECT_EQ(bitmap->pixels()[8 * 40 + 14], 0xff00ff00u);
}

}  // namespace
}  // namespace vexel
