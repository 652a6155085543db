#include "TextCheck.h"

#include <string>

#include <gtest/gtest.h>

namespace explorer {
namespace {

using namespace std::string_literals;

/// Whether `bytes` pass, whatever way they are cut in two.
bool passes(const std::string& bytes) {
  TextCheck whole;
  const bool passed = !whole.feed(bytes) && whole.endsWhole();
  for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
    TextCheck check;
    const bool first = !check.feed(bytes.substr(0, cut));
    const bool second = first && !check.feed(bytes.substr(cut)) && check.endsWhole();
    EXPECT_EQ(second, passed) << "cut at " << cut;
  }
  return passed;
}

TEST(TextCheck, RefusesWhatIsNotUTF8) {
  const std::string cases[] = {
      "\0"s,                // zero byte
      "ab\0c"s,             //
      "\x80"s,              // continuation without a beginning
      "\xBF"s,              //
      "\xC0\x80"s,          // zero in two bytes
      "\xC1\xBF"s,          // one byte's character in two
      "\xE0\x9F\xBF"s,      // two bytes' character in three
      "\xF0\x8F\xBF\xBF"s,  // three bytes' character in four
      "\xED\xA0\x80"s,      // surrogate
      "\xED\xBF\xBF"s,      //
      "\xF4\x90\x80\x80"s,  // beyond the last character
      "\xF5\x80\x80\x80"s,  //
      "\xFF\xFE"
      "a\0"s,           // UTF-16
      "\xC3"s,          // cut short
      "\xE2\x82"s,      //
      "\xF0\x9F\x98"s,  //
      "\xC3"
      "A"s,  // interrupted
      "\xE2\x82"
      "A"s,                  //
      "\xE2\x82\xC3"s,       //
      "\x89PNG\r\n\x1A\n"s,  // a picture
      "Gr\xF6\xDF"
      "e"s,  // Latin 1
  };
  for (const auto& bytes : cases) EXPECT_FALSE(passes(bytes)) << testing::PrintToString(bytes);
}

TEST(TextCheck, AcceptsUTF8) {
  const std::string cases[] = {
      "",
      "plain\r\n\ttext\x7F",
      "\xC2\x80",
      "\xDF\xBF",
      "\xE0\xA0\x80",
      "\xED\x9F\xBF",
      "\xEE\x80\x80",
      "\xEF\xBF\xBF",
      "\xF0\x90\x80\x80",
      "\xF4\x8F\xBF\xBF",
      "Gr\u00F6\u00DFe [\u00B5m], 10 \u20AC, \U0001F600",
  };
  for (const auto& bytes : cases) EXPECT_TRUE(passes(bytes)) << testing::PrintToString(bytes);
}

TEST(TextCheck, SaysWhatIsWrong) {
  EXPECT_EQ(TextCheck().feed("a\0b"s), "holds a zero byte");
  EXPECT_EQ(TextCheck().feed("a\xB5m"), "byte 0xB5 is not UTF-8 here");
}

}  // namespace
}  // namespace explorer
