#include "ColumnNames.h"

#include <set>

#include <gmock/gmock.h>

namespace explorer {
namespace {

using testing::ElementsAre;

TEST(ColumnNames, EmptyHeadingsGetTheNumberOfTheirColumn) {
  EXPECT_THAT(columnNames({"", "a", " \t"}), ElementsAre("column 1", "a", "column 3"));
  EXPECT_THAT(columnNames({"column 2", "", "\n"}),
              ElementsAre("column 2", "column 2 (2)", "column 3"));
}

TEST(ColumnNames, HeadingsThatAreTakenGetANumber) {
  EXPECT_THAT(columnNames({"a", "a", "b", "a"}), ElementsAre("a", "a (2)", "b", "a (3)"));
  EXPECT_THAT(columnNames({"a", "a", "a (2)"}), ElementsAre("a", "a (3)", "a (2)"));
  EXPECT_THAT(columnNames({"a (2)", "a (2)", "a", "a"}),
              ElementsAre("a (2)", "a (2) (2)", "a", "a (3)"));
  EXPECT_THAT(columnNames({"a", "A"}), ElementsAre("a", "A"));
}

TEST(ColumnNames, HeadingsKeepToOneLine) {
  EXPECT_THAT(columnNames({" Speed\r\n[km/s] ", "a\x1B[1m", "x\ty", "a \n b"}),
              ElementsAre("Speed [km/s]", "a?[1m", "x y", "a  b"));
}

TEST(ColumnNames, ManyEqualHeadingsAreToldApartInReasonableTime) {
  const auto names = columnNames(std::vector<std::string>(50'000, "a"));
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
  EXPECT_EQ(names.back(), "a (50000)");
}

}  // namespace
}  // namespace explorer
