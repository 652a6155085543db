#include <CoreGraphics/CGRecordingContext.h>

#include <gtest/gtest.h>

#include "Bitmaps.h"

namespace vexel {
namespace {

TEST(CGRecordingContext, IndentsStates) {
  CGRecordingContext context;
  context.restoreState();
  context.saveState();
  context.translate(10, 20);
  context.saveState();
  context.clip(CGRect::make(0, 0, 100, 50));
  context.restoreState();
  context.restoreState();
  context.scale(2, 2);
  EXPECT_EQ(context.text(),
            "restore\n"
            "save\n"
            "  transform 1 0 0 1 10 20\n"
            "  save\n"
            "    clip M 0 0 L 100 0 L 100 50 L 0 50 Z\n"
            "  restore\n"
            "restore\n"
            "transform 2 0 0 2 0 0\n");
  context.clear();
  EXPECT_EQ(context.text(), "");
}

TEST(CGRecordingContext, NamesWhatAStrokeHasBesideTheDefaults) {
  CGRecordingContext context;
  context.stroke(linePath({0, 0}, {10, 10}), {.alignsToPixels = true});
  context.stroke(linePath({0, -0.00001}, {1 / 3.0, kNaN}),
                 {.color = CGColor::genericRGB(1, 0.5, 0, 0.5),
                  .width = 0.5,
                  .cap = CGLineCap::round,
                  .join = CGLineJoin::bevel,
                  .miterLimit = 4,
                  .dashPattern = {3, 1.5},
                  .dashPhase = 1});
  EXPECT_EQ(context.text(),
            "stroke #000000 width 1 aligned: M 0 0 L 10 10\n"
            "stroke #ff800080 width 0.5 cap round join bevel miter 4 dash 3 1.5 phase 1: "
            "M 0 0 L 0.3333 nan\n");
}

TEST(CGRecordingContext, WritesFillsImagesAndCurves) {
  CGRecordingContext context;
  CGMutablePath curve;
  curve.move({0, 0});
  curve.addCurve({3, 0}, {1, 1}, {2, 1});
  context.fill(curve, CGColor::genericGray(kNaN, 7));
  context.fillAligned(CGRect::make(1, 2, 3, 4), kWhite);
  context.drawImage(*columnImage({0xff000000u, 0xffffffffu}), CGRect::make(0, 0, 5, 6));
  EXPECT_EQ(context.text(),
            "fill #000000ff: M 0 0 C 1 1 2 1 3 0\n"
            "fill #ffffff aligned: 1 2 3 4\n"
            "image 1 x 2 over 0 0 5 6\n");
}

TEST(CGRecordingContext, WritesEveryRunOfAText) {
  CGRecordingContext context;
  context.drawText({{{"Charge", {}}}}, {10, 20});
  context.drawText(
      {{{"10", {"Times", 9.5, true, true}, kRed}, {"-3", {}, kBlack, 1}, {"\"\\\n", {}}},
       CGTextAlignment::right},
      {0, 0});
  EXPECT_EQ(context.text(),
            "text \"Charge\" Helvetica 12 #000000 at 10 20\n"
            "text \"10\" Times 9.5 bold italic #ff0000 \"-3\" Helvetica 12 superscript #000000 "
            "\"\\\"\\\\\\n\" Helvetica 12 #000000 right at 0 0\n");
}

TEST(CGRecordingContext, WritesSymbolsAsOneCall) {
  CGRecordingContext context;
  const std::vector<CGPoint> centers{{1, 2}, {3.5, 4}};
  const CGStrokeStyle style;
  context.drawSymbols(linePath({0, 0}, {1, 0}), &kRed, &style, centers);
  context.drawSymbols(linePath({0, 0}, {1, 0}), nullptr, nullptr, {});
  EXPECT_EQ(context.text(),
            "symbols fill #ff0000 stroke #000000 width 1: M 0 0 L 1 0 at 1 2, 3.5 4\n"
            "symbols: M 0 0 L 1 0 at\n");
}

}  // namespace
}  // namespace vexel
