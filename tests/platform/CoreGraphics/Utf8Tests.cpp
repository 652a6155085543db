#include "Utf8.h"

#include <gtest/gtest.h>

namespace vexel {
namespace {

using namespace std::string_literals;

TEST(ValidUtf8, ReplacesWhatIsNotText) {
  const std::pair<std::string, std::string> rows[] = {
      {"\xff", "\uFFFD"},
      {"a\x80z", "a\uFFFDz"},
      {"\0"s, "\uFFFD"},
      {"\xc0\xaf", "\uFFFD\uFFFD"},                      // overlong
      {"\xe0\x80\x80", "\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xed\xa0\x80", "\uFFFD\uFFFD\uFFFD"},            // surrogate
      {"\xf4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond U+10FFFF
      {"\xe2\x82", "\uFFFD"},                            // cut short at the end
      {"\xe2\x82z", "\uFFFDz"},                          // cut short by a letter
      {"\xf0\x9f\x98\xe2\x82\xac", "\uFFFD€"},
  };
  for (const auto& [bytes, text] : rows) EXPECT_EQ(validUtf8(bytes), text);
}

TEST(ValidUtf8, KeepsTextOfAllLengths) {
  for (const std::string text : {"", "plain", "Größe", "∞ €", "😀", "\x01\x7f", "\uFFFD"})
    EXPECT_EQ(validUtf8(text), text);
}

}  // namespace
}  // namespace vexel
