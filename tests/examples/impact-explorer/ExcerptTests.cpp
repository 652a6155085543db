#include "Excerpt.h"

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(Excerpt, KeepsToOneLineAndGivesNoOrdersToTheTerminal) {
  EXPECT_EQ(excerpt("a\nb\r\tc\x1B[31m\x7F"), "\"a?b??c?[31m?\"");
  EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a?b");
}

TEST(Excerpt, CutsLongTextBetweenCharacters) {
  const std::string forty(40, 'x');
  EXPECT_EQ(excerpt(forty), '"' + forty + '"');
  EXPECT_EQ(excerpt(forty + "y"), '"' + forty + "...\"");
  const std::string thirtyNine(39, 'x');
  EXPECT_EQ(excerpt(thirtyNine + "\xC2\xB5m"), '"' + thirtyNine + "...\"");
  EXPECT_EQ(excerpt(std::string(100, '\x80')), "\"...\"");
}

TEST(Excerpt, LeavesOrdinaryTextAlone) {
  EXPECT_EQ(excerpt(""), "\"\"");
  EXPECT_EQ(excerpt("Gr\xC3\xB6\xC3\x9F"
                    "e [\xC2\xB5m]"),
            "\"Gr\xC3\xB6\xC3\x9F"
            "e [\xC2\xB5m]\"");
}

}  // namespace
}  // namespace explorer
