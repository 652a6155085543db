#include "CsvReport.h"

#include <gmock/gmock.h>

namespace explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CsvReport, HasNoWarningsWhenAllWentWell) {
  EXPECT_THAT(CsvReport{.rows = 5}.warnings(), IsEmpty());
}

TEST(CsvReport, NamesEachComplaintAndThenTheNumbersOfMore) {
  CsvReport report{.rows = 5,
                   .raggedRows = 1,
                   .unreadableCells = 1,
                   .complaints = {{{"a.csv", 3, 2}, "wrong"}, {{"a.csv", 4}, "left out"}}};
  EXPECT_THAT(report.warnings(), ElementsAre("a.csv:3:2: wrong", "a.csv:4: left out"));
  report.unreadableCells = 7;
  EXPECT_THAT(
      report.warnings(),
      ElementsAre("a.csv:3:2: wrong", "a.csv:4: left out",
                  "a.csv: in all 1 ragged rows left out and 7 unreadable cells left empty"));
}

}  // namespace
}  // namespace explorer
