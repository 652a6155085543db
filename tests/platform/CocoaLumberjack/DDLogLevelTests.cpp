#include <CocoaLumberjack/DDLogLevel.h>

#include <array>

#include <gtest/gtest.h>

namespace vexel {
namespace {

constexpr std::array flags = {DDLogFlag::error, DDLogFlag::warning, DDLogFlag::info,
                              DDLogFlag::debug, DDLogFlag::verbose};

TEST(DDLogFlag, EachFlagIsItsOwnBit) {
  std::uint64_t bit = 1;
  for (const auto flag : flags) {
    EXPECT_EQ(static_cast<std::uint64_t>(flag), bit);
    bit *= 2;
  }
}

TEST(DDLogLevel, ALevelHoldsItsFlagAndTheMoreSevereOnes) {
  struct Case {
    DDLogLevel level;
    std::uint64_t value;
    std::array<bool, 5> on;
  };
  const Case cases[] = {
      {DDLogLevel::off, 0, {false, false, false, false, false}},
      {DDLogLevel::error, 1, {true, false, false, false, false}},
      {DDLogLevel::warning, 3, {true, true, false, false, false}},
      {DDLogLevel::info, 7, {true, true, true, false, false}},
      {DDLogLevel::debug, 15, {true, true, true, true, false}},
      {DDLogLevel::verbose, 31, {true, true, true, true, true}},
      {DDLogLevel::all, 0xFFFF'FFFF'FFFF'FFFF, {true, true, true, true, true}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(static_cast<std::uint64_t>(c.level), c.value);
    for (std::size_t i = 0; i < flags.size(); ++i)
      EXPECT_EQ(includes(c.level, flags[i]), c.on[i]) << "level " << c.value << ", flag " << i;
  }
}

TEST(DDLogLevel, AllIncludesFlagsOfTheApplicationsOwn) {
  EXPECT_TRUE(includes(DDLogLevel::all, DDLogFlag{std::uint64_t{1} << 40}));
  EXPECT_FALSE(includes(DDLogLevel::verbose, DDLogFlag{std::uint64_t{1} << 40}));
}

TEST(DDLogLevel, LevelsMayLackTheMoreSevereFlags) {
  EXPECT_FALSE(includes(DDLogLevel{16}, DDLogFlag::error));
  EXPECT_TRUE(includes(DDLogLevel{16}, DDLogFlag::verbose));
}

}  // namespace
}  // namespace vexel
