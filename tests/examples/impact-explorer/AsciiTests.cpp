#include "Ascii.h"

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(Ascii, BlanksAreSpacesAndTabsAtTheEnds) {
  EXPECT_EQ(withoutBlanks(""), "");
  EXPECT_EQ(withoutBlanks(" \t "), "");
  EXPECT_EQ(withoutBlanks("\t a b\t"), "a b");
  EXPECT_EQ(withoutBlanks("\n a"), "\n a");
}

TEST(Ascii, LowerCaseTouchesNoOtherBytes) {
  EXPECT_EQ(lowerCase("@AZ[az`\xC3\x84"), "@az[az`\xC3\x84");
}

}  // namespace
}  // namespace explorer
