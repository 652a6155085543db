#include <CocoaLumberjack/DDTTYLogger.h>

#include <thread>
#include <vector>

#include <gmock/gmock.h>

namespace vexel {
namespace {

using testing::MatchesRegex;

std::string written(const DDLogMessage& message) {
  DDTTYLogger logger;
  testing::internal::CaptureStderr();
  logger.log(message);
  return testing::internal::GetCapturedStderr();
}

TEST(DDTTYLogger, WritesOneLinePerMessageWithTimeAndFlag) {
  struct Case {
    DDLogFlag flag;
    const char* name;
  };
  const Case cases[] = {
      {DDLogFlag{0}, "info"},      {DDLogFlag{3}, "info"},          {DDLogFlag{1024}, "info"},
      {DDLogFlag::error, "error"}, {DDLogFlag::warning, "warning"}, {DDLogFlag::info, "info"},
      {DDLogFlag::debug, "debug"}, {DDLogFlag::verbose, "trace"},
  };
  for (const auto& c : cases)
    EXPECT_THAT(written({.message = "Unit.act():7 text", .flag = c.flag}),
                MatchesRegex(std::string("[0-9-]+ [0-9:.]+ .") + c.name + ". Unit.act..:7 text\n"));
}

TEST(DDTTYLogger, WritesTextAsItIsWhateverItContains) {
  EXPECT_THAT(written({.message = "{} %d %s {0:>99}"}), testing::EndsWith("{} %d %s {0:>99}\n"));
  EXPECT_THAT(written({.message = ""}), testing::EndsWith("[info] \n"));
  const std::string large(1 << 20, 'x');
  EXPECT_THAT(written({.message = large}), testing::EndsWith(large + "\n"));
}

TEST(DDTTYLogger, WritesTheTimeOfTheMessage) {
  using namespace std::chrono_literals;
  const std::chrono::sys_days noonish = std::chrono::year(2021) / 6 / 15;
  EXPECT_THAT(written({.message = "m", .timestamp = noonish + 12h + 345ms}),
              testing::ContainsRegex("^2021-06-1[456] [0-9:]+\\.345 "));
}

TEST(DDTTYLogger, KeepsLinesOfDifferentThreadsApart) {
  constexpr int threads = 4;
  constexpr int each = 200;
  DDTTYLogger logger;
  testing::internal::CaptureStderr();
  std::vector<std::thread> running;
  running.reserve(threads);
  for (int t = 0; t < threads; ++t)
    running.emplace_back([&logger, t] {
      for (int i = 0; i < each; ++i) logger.log({.message = std::string(100, char('a' + t))});
    });
  for (auto& thread : running) thread.join();

  std::istringstream lines(testing::internal::GetCapturedStderr());
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count)
    EXPECT_THAT(line, MatchesRegex("[0-9-]+ [0-9:.]+ .info. (a+|b+|c+|d+)"));
  EXPECT_EQ(count, threads * each);
}

}  // namespace
}  // namespace vexel
