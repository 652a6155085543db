#include <CoreGraphics/CGContext.h>

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

}  // namespace
}  // namespace vexel
