#include <AppKit/NSAttributedString.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

const NSTextAttributes kPlain;
const NSTextAttributes kBold{.fontSize = 14, .color = NSColor::redColor(), .bold = true};

TEST(NSAttributedString, OfNoTextIsEmpty) {
  NSAttributedString text("", kBold);
  EXPECT_TRUE(text.isEmpty());
  EXPECT_EQ(text.string(), "");
  text.append("", kPlain);
  text.append(NSAttributedString());
  EXPECT_EQ(text, NSAttributedString());
  EXPECT_TRUE(text.cgText().runs.empty());
}

TEST(NSAttributedString, LooksLikeTwelvePointBlackUnlessSet) {
  const NSAttributedString text("m");
  ASSERT_EQ(text.runs().size(), 1u);
  EXPECT_EQ(text.runs()[0].attributes, kPlain);
  EXPECT_EQ(kPlain.fontName, "Helvetica");
  EXPECT_EQ(kPlain.fontSize, 12);
  EXPECT_EQ(kPlain.color, NSColor::blackColor());
  EXPECT_FALSE(kPlain.bold);
  EXPECT_FALSE(kPlain.italic);
  EXPECT_EQ(kPlain.superscript, 0);
}

TEST(NSAttributedString, KeepsTheLookOfItsPieces) {
  NSAttributedString text("E = mc", kPlain);
  text.append("2", {.superscript = 1});
  text.append("\nµ", kBold);
  EXPECT_EQ(text.string(), "E = mc2\nµ");
  ASSERT_EQ(text.runs().size(), 3u);
  EXPECT_EQ(text.runs()[1].attributes.superscript, 1);
  EXPECT_EQ(text.runs()[2], (NSAttributedString::Run{"\nµ", kBold}));
}

TEST(NSAttributedString, PutTogetherInAnyNumberOfPiecesIsEqual) {
  NSAttributedString pieces("ab", kBold);
  pieces.append("c", kBold);
  pieces.append("d", kPlain);
  NSAttributedString other("a", kBold);
  NSAttributedString tail("bc", kBold);
  tail.append("d", kPlain);
  other.append(tail);
  EXPECT_EQ(pieces, other);
  EXPECT_NE(pieces, NSAttributedString("abcd", kBold));
}

TEST(NSAttributedString, CanBeAppendedToItself) {
  NSAttributedString text("a", kBold);
  text.append("b", kPlain);
  text.append(text);
  EXPECT_EQ(text.string(), "abab");
  EXPECT_EQ(text.runs().size(), 4u);
}

TEST(NSAttributedString, BecomesTextOfTheDrawingContext) {
  NSAttributedString text("a", kBold);
  text.append("b", {.fontName = "Times", .fontSize = 9, .italic = true, .superscript = -1});
  const CGText expected{
      .runs = {{"a", {"Helvetica", 14, true, false}, CGColor::genericRGB(1, 0, 0), 0},
               {"b", {"Times", 9, false, true}, CGColor::genericRGB(0, 0, 0), -1}},
      .alignment = CGTextAlignment::center};
  EXPECT_EQ(text.cgText(CGTextAlignment::center), expected);
  EXPECT_EQ(text.cgText().alignment, CGTextAlignment::left);
}

}  // namespace
}  // namespace vexel
