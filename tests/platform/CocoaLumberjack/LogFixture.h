#pragma once

#include <memory>
#include <mutex>
#include <vector>

#include <CocoaLumberjack/DDLog.h>
#include <gtest/gtest.h>

namespace vexel {

/// Keeps what it receives.
class RecordingLogger : public DDLogger {
 public:
  void log(const DDLogMessage& message) override {
    const std::lock_guard lock(mutex_);
    messages_.push_back(message);
  }

  std::vector<DDLogMessage> messages() const {
    const std::lock_guard lock(mutex_);
    return messages_;
  }

  std::vector<std::string> texts() const {
    std::vector<std::string> texts;
    for (const auto& m : messages()) texts.push_back(m.message);
    return texts;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<DDLogMessage> messages_;
};

/// Puts the shared log back as it was after each test.
class LogFixture : public testing::Test {
 public:
  LogFixture() { log().removeAllLoggers(); }
  ~LogFixture() override {
    log().removeAllLoggers();
    for (const auto& logger : loggersBefore_) log().addLogger(logger);
    DDLog::setDynamicLevel(levelBefore_);
  }

 protected:
  static DDLog& log() { return DDLog::sharedInstance(); }

  std::shared_ptr<RecordingLogger> addRecorder() {
    auto recorder = std::make_shared<RecordingLogger>();
    log().addLogger(recorder);
    return recorder;
  }

  const std::vector<std::shared_ptr<DDLogger>>& loggersBefore() const { return loggersBefore_; }

 private:
  std::vector<std::shared_ptr<DDLogger>> loggersBefore_ = log().allLoggers();
  DDLogLevel levelBefore_ = DDLog::dynamicLevel();
};

}  // namespace vexel
