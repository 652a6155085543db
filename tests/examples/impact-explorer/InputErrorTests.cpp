#include "InputError.h"

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(InputError, NamesFileLineAndColumnAsFarAsThereAreAny) {
  EXPECT_STREQ(InputError({"a.csv"}, "is empty").what(), "a.csv: is empty");
  EXPECT_STREQ(InputError({"a.csv", 3}, "wrong").what(), "a.csv:3: wrong");
  EXPECT_STREQ(InputError({"a.csv", 3, 14}, "wrong").what(), "a.csv:3:14: wrong");
  const InputError error({"a.csv", 3, 14}, "wrong");
  EXPECT_EQ(error.location(), (Location{"a.csv", 3, 14}));
  EXPECT_EQ(error.text(), "wrong");
}

TEST(InputError, KeepsToOneLineWhateverTheFileIsCalled) {
  EXPECT_STREQ(InputError({"a\nb\x1B.csv", 1}, "wrong").what(), "a?b?.csv:1: wrong");
}

}  // namespace
}  // namespace explorer
