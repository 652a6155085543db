#include "Base64.h"

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(Base64, PadsTheLastBytes) {
  using namespace std::string_view_literals;
  struct {
    std::string_view bytes;
    const char* text;
  } const cases[] = {{"", ""},
                     {"\0"sv, "AA=="},
                     {"\xff\xff"sv, "//8="},
                     {"\xff\xff\xff"sv, "////"},
                     {"\xfb\xef\xbe"sv, "++++"},
                     {"f", "Zg=="},
                     {"fo", "Zm8="},
                     {"foo", "Zm9v"},
                     {"foob", "Zm9vYg=="},
                     {"fooba", "Zm9vYmE="},
                     {"foobar", "Zm9vYmFy"}};
  for (const auto& c : cases) {
    std::string text = "before ";
    appendBase64(text, c.bytes);
    EXPECT_EQ(text, std::string("before ") + c.text);
  }
}

}  // namespace
}  // namespace vexel
