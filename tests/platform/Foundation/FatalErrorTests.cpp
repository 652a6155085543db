#include <Foundation/FatalError.h>

#include <gtest/gtest.h>

#include <csignal>

namespace vexel {
namespace {

TEST(FatalErrorDeathTest, WritesTheMessageAndAborts) {
  EXPECT_EXIT(fatalError("The array is too short"), testing::KilledBySignal(SIGABRT),
              "^Fatal error: The array is too short\n");
}

TEST(FatalErrorDeathTest, WritesOnlyThePartThatItIsGiven) {
  EXPECT_EXIT(fatalError(std::string_view("part of it").substr(0, 4)),
              testing::KilledBySignal(SIGABRT), "^Fatal error: part\n");
}

TEST(FatalErrorDeathTest, TakesPercentSignsForWhatTheyAre) {
  EXPECT_EXIT(fatalError("100 %s %n"), testing::KilledBySignal(SIGABRT),
              "^Fatal error: 100 %s %n\n");
}

}  // namespace
}  // namespace vexel
