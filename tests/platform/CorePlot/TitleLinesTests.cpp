#include <TitleLines.h>

#include <gtest/gtest.h>

#include <sstream>

namespace vexel {
namespace {

const CPTTextStyle kStyle{.fontSize = 14};

CGFloat widthOf(const std::string& text) {
  return CPTTextLayer(text, kStyle).frame().size.width;
}

TEST(TitleLines, AreOneWhereThereIsRoomAndStayAsTheyAre) {
  for (const std::string text : {"", "a", "Charge [fC]", "two  blanks ", "two\nlines"}) {
    const auto layer = titleLines(text, kStyle, widthOf(text));
    EXPECT_EQ(layer->text(), text);
    EXPECT_EQ(layer->textStyle(), kStyle);
  }
}

TEST(TitleLines, AreBrokenAtBlanksAndCentred) {
  const auto layer = titleLines("Charge of impacts [fC]", kStyle, widthOf("Charge of impacts"));
  EXPECT_EQ(layer->text(), "Charge of impacts\n[fC]");
  EXPECT_EQ(layer->textStyle()->textAlignment, CPTTextAlignment::center);
  EXPECT_EQ(layer->textStyle()->fontSize, 14);
  EXPECT_EQ(titleLines("a b c", kStyle, 1)->text(), "a\nb\nc");
}

TEST(TitleLines, KeepALongWordWhole) {
  EXPECT_EQ(titleLines("an incomprehensibility here", kStyle, widthOf("an here"))->text(),
            "an\nincomprehensibility\nhere");
  EXPECT_EQ(titleLines("incomprehensibility", kStyle, 10)->text(), "incomprehensibility");
}

TEST(TitleLines, KeepTheBreaksThatTheTextHas) {
  EXPECT_EQ(titleLines("Charge of\nimpacts [fC]", kStyle, widthOf("impacts"))->text(),
            "Charge\nof\nimpacts\n[fC]");
  EXPECT_EQ(titleLines("Charge of\nimpacts [fC]", kStyle, widthOf("Charge of") - 1)->text(),
            "Charge\nof\nimpacts\n[fC]");
}

TEST(TitleLines, AreNeverWiderThanTheyMayBe) {
  const std::string text = "the quick brown fox jumps over the lazy dog and does it again";
  for (double width = widthOf("brown"); width < widthOf(text); width += 7) {
    std::istringstream lines(titleLines(text, kStyle, width)->text());
    std::string joined;
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(widthOf(line), width);
      joined += (joined.empty() ? "" : " ") + line;
    }
    EXPECT_EQ(joined, text);
  }
}

}  // namespace
}  // namespace vexel
