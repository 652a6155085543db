#include <CocoaLumberjack/DDLog.h>
#include <CocoaLumberjack/DDTTYLogger.h>

#include <atomic>
#include <functional>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>

#include "LogFixture.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using DDLogTest = LogFixture;

class CallingLogger : public DDLogger {
 public:
  explicit CallingLogger(std::function<void(const DDLogMessage&)> call) : call_(std::move(call)) {}
  void log(const DDLogMessage& message) override { call_(message); }

 private:
  std::function<void(const DDLogMessage&)> call_;
};

std::shared_ptr<DDLogger> logger(std::function<void(const DDLogMessage&)> call) {
  return std::make_shared<CallingLogger>(std::move(call));
}

TEST_F(DDLogTest, ALoggerThatThrowsDisturbsNeitherTheCallerNorOtherLoggers) {
  log().addLogger(logger([](const auto&) { throw std::runtime_error("disk full"); }));
  log().addLogger(logger([](const auto&) { throw 5; }));
  const auto recorder = addRecorder();
  log().log({.message = "first"});
  log().log({.message = "second"});
  EXPECT_THAT(recorder->texts(), ElementsAre("first", "second"));
}

TEST_F(DDLogTest, ALoggerThatLogsReachesTheOthersButNotItself) {
  int calls = 0;
  log().addLogger(logger([&](const auto& m) {
    ++calls;
    log().log({.message = "about " + m.message});
  }));
  const auto recorder = addRecorder();
  log().log({.message = "one"});
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(recorder->texts(), ElementsAre("about one", "one"));
}

TEST_F(DDLogTest, TwoLoggersThatAnswerEachOtherComeToAnEnd) {
  std::vector<std::string> heard;
  for (const char* name : {"a", "b"})
    log().addLogger(logger([&heard, name](const auto& m) {
      heard.push_back(name + m.message);
      DDLog::sharedInstance().log({.message = name + m.message});
    }));
  log().log({.message = "!"});
  EXPECT_THAT(heard, ElementsAre("a!", "ba!", "b!", "ab!"));
}

TEST_F(DDLogTest, ALoggerMayRemoveItselfWhileItLogs) {
  int calls = 0;
  std::weak_ptr<DDLogger> self;
  {
    const auto once = logger([&](const auto&) {
      ++calls;
      log().removeLogger(self.lock());
    });
    self = once;
    log().addLogger(once);
  }
  const auto recorder = addRecorder();
  log().log({.message = "one"});
  log().log({.message = "two"});
  EXPECT_EQ(calls, 1);
  EXPECT_TRUE(self.expired());
  EXPECT_THAT(recorder->texts(), ElementsAre("one", "two"));
}

TEST_F(DDLogTest, ALoggerAddedDuringADeliveryHearsTheNextMessage) {
  const auto late = std::make_shared<RecordingLogger>();
  log().addLogger(logger([&](const auto&) { log().addLogger(late); }));
  log().log({.message = "one"});
  log().log({.message = "two"});
  EXPECT_THAT(late->texts(), ElementsAre("two"));
}

TEST_F(DDLogTest, ALoggerMayLogFromItsDestructorWhenItIsRemoved) {
  struct Farewell : RecordingLogger {
    explicit Farewell(bool& said) : said_(said) {}
    ~Farewell() override {
      DDLog::sharedInstance().log({.message = "farewell"});
      said_ = true;
    }
    bool& said_;
  };
  bool said = false;
  log().addLogger(std::make_shared<Farewell>(said));
  log().removeAllLoggers();
  EXPECT_TRUE(said);
}

TEST_F(DDLogTest, AnAbsentLoggerIsIgnored) {
  log().addLogger(nullptr);
  log().removeLogger(nullptr);
  EXPECT_THAT(log().allLoggers(), IsEmpty());
  log().log({.message = "nobody hears it"});
}

TEST_F(DDLogTest, ALoggerIsRegisteredOnce) {
  const auto recorder = addRecorder();
  log().addLogger(recorder);
  log().log({.message = "one"});
  EXPECT_EQ(recorder->texts().size(), 1);
  log().removeLogger(recorder);
  EXPECT_THAT(log().allLoggers(), IsEmpty());
}

TEST_F(DDLogTest, LoggersHearInOrderOfRegistration) {
  std::string order;
  for (const char name : {'a', 'b', 'c'})
    log().addLogger(logger([&order, name](const auto&) { order += name; }));
  log().log({.message = "one"});
  EXPECT_EQ(order, "abc");
}

TEST_F(DDLogTest, ARemovedLoggerHearsNoMore) {
  const auto staying = addRecorder();
  const auto leaving = addRecorder();
  log().log({.message = "one"});
  log().removeLogger(leaving);
  log().log({.message = "two"});
  EXPECT_THAT(leaving->texts(), ElementsAre("one"));
  EXPECT_THAT(staying->texts(), ElementsAre("one", "two"));
  EXPECT_THAT(log().allLoggers(), ElementsAre(staying));
  log().removeAllLoggers();
  log().log({.message = "three"});
  EXPECT_THAT(staying->texts(), ElementsAre("one", "two"));
}

TEST_F(DDLogTest, TheMessageArrivesAsItWasHandedIn) {
  const auto recorder = addRecorder();
  const DDLogMessage message{.message = "Unit.act(with:):161 text",
                             .level = DDLogLevel::all,
                             .flag = DDLogFlag::error,
                             .context = -3,
                             .file = "Unit.cpp",
                             .function = "act(with:)",
                             .line = 161,
                             .tag = "tag",
                             .options = 5,
                             .timestamp = std::chrono::system_clock::time_point{}};
  log().log(message);
  EXPECT_THAT(recorder->messages(), ElementsAre(message));
}

TEST_F(DDLogTest, FieldsOfAMessageHaveDefaults) {
  const auto before = std::chrono::system_clock::now();
  const DDLogMessage message{.message = "text"};
  EXPECT_EQ(message.level, DDLogLevel::all);
  EXPECT_EQ(message.flag, DDLogFlag::info);
  EXPECT_EQ(message.context, 0);
  EXPECT_EQ(message.options, 0);
  EXPECT_FALSE(message.tag.has_value());
  EXPECT_EQ(message.threadID, std::this_thread::get_id());
  EXPECT_LE(before, message.timestamp);
  EXPECT_LE(message.timestamp, std::chrono::system_clock::now());
}

TEST_F(DDLogTest, LogItselfIgnoresTheDynamicLevel) {
  const auto recorder = addRecorder();
  DDLog::setDynamicLevel(DDLogLevel::off);
  log().log({.message = "one", .level = DDLogLevel::off, .flag = DDLogFlag::verbose});
  EXPECT_THAT(recorder->texts(), ElementsAre("one"));
}

TEST_F(DDLogTest, AMessageIsBuiltOnlyWhenItsFlagIsOn) {
  const auto recorder = addRecorder();
  const DDLogFlag flags[] = {DDLogFlag::error, DDLogFlag::warning, DDLogFlag::info,
                             DDLogFlag::debug, DDLogFlag::verbose};
  const DDLogLevel levels[] = {DDLogLevel::off,  DDLogLevel::error, DDLogLevel::warning,
                               DDLogLevel::info, DDLogLevel::debug, DDLogLevel::verbose,
                               DDLogLevel{16},   DDLogLevel::all};
  for (const auto level : levels) {
    DDLog::setDynamicLevel(level);
    EXPECT_EQ(DDLog::dynamicLevel(), level);
    for (const auto flag : flags) {
      const auto heardBefore = recorder->messages().size();
      int built = 0;
      ddLog(flag, [&] {
        ++built;
        return "text";
      });
      const std::size_t expected = includes(level, flag) ? 1 : 0;
      EXPECT_EQ(built, expected);
      EXPECT_EQ(recorder->messages().size() - heardBefore, expected);
    }
  }
}

TEST_F(DDLogTest, AMessageOfDdLogTellsItsPlaceAndTime) {
  const auto recorder = addRecorder();
  const auto before = std::chrono::system_clock::now();
  ddLog(DDLogFlag::error, [] { return std::string("text"); });
  const std::uint32_t line = __LINE__ - 1;

  ASSERT_EQ(recorder->messages().size(), 1);
  const auto m = recorder->messages().front();
  EXPECT_EQ(m.message, "text");
  EXPECT_EQ(m.level, DDLogLevel::all);
  EXPECT_EQ(m.flag, DDLogFlag::error);
  EXPECT_EQ(m.context, 0);
  EXPECT_EQ(m.file, "DDLogTests.cpp");
  EXPECT_EQ(m.function, "TestBody");
  EXPECT_EQ(m.line, line);
  EXPECT_FALSE(m.tag.has_value());
  EXPECT_EQ(m.options, 0);
  EXPECT_LE(before, m.timestamp);
  EXPECT_LE(m.timestamp, std::chrono::system_clock::now());
}

TEST_F(DDLogTest, WhatTheMakerOfAMessageThrowsReachesTheCaller) {
  const auto recorder = addRecorder();
  EXPECT_THROW(ddLog(DDLogFlag::error, []() -> std::string { throw std::runtime_error("no"); }),
               std::runtime_error);
  EXPECT_THAT(recorder->messages(), IsEmpty());
}

TEST_F(DDLogTest, AtTheStartTheLoggerForTerminalsListensAtLevelWarning) {
  ASSERT_EQ(loggersBefore().size(), 1);
  EXPECT_NE(std::dynamic_pointer_cast<DDTTYLogger>(loggersBefore().front()), nullptr);
  EXPECT_EQ(DDLog::dynamicLevel(), DDLogLevel::warning);

  log().addLogger(loggersBefore().front());
  testing::internal::CaptureStderr();
  ddLog(DDLogFlag::warning, [] { return "heard"; });
  ddLog(DDLogFlag::info, [] { return "unheard"; });
  const std::string written = testing::internal::GetCapturedStderr();
  EXPECT_THAT(written, HasSubstr("[warning] heard\n"));
  EXPECT_THAT(written, testing::Not(HasSubstr("unheard")));
}

TEST_F(DDLogTest, EveryMessageOfEveryThreadArrivesOnceAndInTheThreadsOrder) {
  constexpr int threads = 4;
  constexpr int each = 2000;
  const auto recorder = addRecorder();
  std::atomic<bool> done = false;
  std::thread changing([&] {
    while (!done) {
      const auto passing = addRecorder();
      DDLog::setDynamicLevel(DDLogLevel::all);
      log().removeLogger(passing);
    }
  });
  std::vector<std::thread> logging;
  logging.reserve(threads);
  for (int t = 0; t < threads; ++t)
    logging.emplace_back([t] {
      for (int i = 0; i < each; ++i)
        DDLog::sharedInstance().log({.message = std::to_string(i), .context = t});
    });
  for (auto& thread : logging) thread.join();
  done = true;
  changing.join();

  std::vector<int> next(threads, 0);
  for (const auto& m : recorder->messages())
    EXPECT_EQ(m.message, std::to_string(next[m.context]++));
  EXPECT_THAT(next, testing::Each(each));
}

}  // namespace
}  // namespace vexel
