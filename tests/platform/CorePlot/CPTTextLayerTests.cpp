#include <CorePlot/CPTTextLayer.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

CGSize measured(const std::string& text, const CPTTextStyle& style = {}) {
  return sharedTextMeasure().measure(style.cgText(text));
}

std::string drawn(CPTTextLayer& layer) {
  CGRecordingContext context;
  layer.display(context);
  return context.text();
}

TEST(CPTTextLayer, PaddingsThatAreNoNumbersDoNotHang) {
  CPTTextLayer layer("text");
  layer.setPadding(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(layer.frame().size, measured("text"));
}

TEST(CPTTextLayer, EmptyTextAndFontsWithoutSizeLeaveThePaddings) {
  EXPECT_EQ(CPTTextLayer("").frame().size, (CGSize{2, 2}));
  EXPECT_EQ(CPTTextLayer("text", {.fontSize = 0}).frame().size, (CGSize{2, 2}));
  EXPECT_EQ(CPTTextLayer("text", {.fontSize = -1}).frame().size, (CGSize{2, 2}));
  EXPECT_EQ(
      CPTTextLayer("text", {.fontSize = std::numeric_limits<double>::quiet_NaN()}).frame().size,
      (CGSize{2, 2}));
}

TEST(CPTTextLayer, ItsFrameHasTheSizeOfTheTextAndAPointOnEverySide) {
  const CPTTextLayer layer("Charge");
  const CGSize text = measured("Charge");
  EXPECT_GT(text.width, 0);
  EXPECT_EQ(layer.paddingLeft(), 1);
  EXPECT_EQ(layer.paddingRight(), 1);
  EXPECT_EQ(layer.paddingTop(), 1);
  EXPECT_EQ(layer.paddingBottom(), 1);
  EXPECT_EQ(layer.frame(), CGRect::make(0, 0, text.width + 2, text.height + 2));
  EXPECT_EQ(layer.sizeThatFits(), layer.frame().size);
}

TEST(CPTTextLayer, TheFrameFollowsTextStyleAndPaddingsAndStaysInPlace) {
  CPTTextLayer layer("a");
  layer.setFrame(CGRect::make(30, 40, 5, 5));
  EXPECT_EQ(layer.frame().origin, (CGPoint{30, 40}));
  EXPECT_EQ(layer.frame().size, layer.sizeThatFits());

  layer.setText("longer");
  EXPECT_EQ(layer.frame().size.width, measured("longer").width + 2);
  const CPTTextStyle large{.fontSize = 30};
  layer.setTextStyle(large);
  EXPECT_EQ(layer.frame().size.height, measured("longer", large).height + 2);
  layer.setPaddingLeft(7);
  EXPECT_EQ(layer.frame().size.width, measured("longer", large).width + 8);
  layer.setTextStyle(std::nullopt);
  EXPECT_EQ(layer.frame().size.height, measured("longer").height + 2);
  EXPECT_EQ(layer.frame().origin, (CGPoint{30, 40}));
}

TEST(CPTTextLayer, PaddingsOfTwoOnEverySideAddFourPoints) {
  CPTTextLayer layer("label");
  layer.setPaddingLeft(2);
  layer.setPaddingTop(2);
  layer.setPaddingRight(2);
  layer.setPaddingBottom(2);
  const CGSize text = measured("label");
  EXPECT_EQ(layer.frame().size, (CGSize{text.width + 4, text.height + 4}));
}

TEST(CPTTextLayer, TextIsDrawnInsideThePaddingsInItsStyle) {
  CPTTextLayer layer("Charge", {.fontSize = 10, .color = CPTColor::redColor()});
  layer.setPaddingLeft(3);
  layer.setPaddingBottom(4);
  EXPECT_EQ(drawn(layer), "text \"Charge\" Helvetica 10 #ff0000 at 3 4\n");
}

TEST(CPTTextLayer, WithoutAStyleTextIsDrawnInTheDefaultOne) {
  CPTTextLayer layer("a", {.fontSize = 10});
  layer.setTextStyle(std::nullopt);
  EXPECT_EQ(drawn(layer), "text \"a\" Helvetica 12 #000000 at 1 1\n");
}

TEST(CPTTextLayer, AttributedTextIsDrawnInItsOwnLookAndGivesWayToPlainText) {
  NSTextAttributes red;
  red.color = NSColor::redColor();
  CPTTextLayer layer{NSAttributedString("10", red)};
  EXPECT_EQ(layer.text(), "10");
  EXPECT_TRUE(layer.attributedText());
  EXPECT_EQ(drawn(layer), "text \"10\" Helvetica 12 #ff0000 at 1 1\n");
  layer.setText("10");
  EXPECT_FALSE(layer.attributedText());
  EXPECT_EQ(drawn(layer), "text \"10\" Helvetica 12 #000000 at 1 1\n");
}

TEST(CPTTextLayer, SettingAttributedTextReplacesThePlainCharacters) {
  CPTTextLayer layer("before");
  layer.setAttributedText(NSAttributedString("after"));
  EXPECT_EQ(layer.text(), "after");
}

TEST(CPTTextLayer, FillAndBorderLieBelowTheText) {
  CPTTextLayer layer("");
  layer.setFill(CPTFill(CPTColor::redColor()));
  layer.setBorderLineStyle(CPTLineStyle{});
  EXPECT_EQ(drawn(layer).rfind("fill #ff0000 aligned: 0 0 2 2\nstroke", 0), 0u);
}

TEST(CPTTextLayer, ChangesAskForDisplayAndRepetitionsDoNot) {
  CPTTextLayer layer("a");
  drawn(layer);
  layer.setText("a");
  layer.setTextStyle(CPTTextStyle{});
  EXPECT_FALSE(layer.needsDisplay());
  layer.setText("b");
  EXPECT_TRUE(layer.needsDisplay());
  drawn(layer);
  layer.setTextStyle(CPTTextStyle{.color = CPTColor::redColor()});
  EXPECT_TRUE(layer.needsDisplay());
}

}  // namespace
}  // namespace vexel
