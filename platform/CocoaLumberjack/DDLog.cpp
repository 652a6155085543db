#include <CocoaLumberjack/DDLog.h>
#include <CocoaLumberjack/DDTTYLogger.h>

#include <algorithm>
#include <atomic>
#include <exception>
#include <utility>

namespace vexel {
namespace {

std::atomic<DDLogLevel> currentLevel = DDLog::defaultDynamicLevel;

/// A call of a logger that has not returned yet; those of one thread form a chain on its stack.
class Delivery {
 public:
  explicit Delivery(const DDLogger& logger) : logger_(&logger), outer_(innermost_) {
    innermost_ = this;
  }
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;
  ~Delivery() { innermost_ = outer_; }

  static bool isUnderWay(const DDLogger& logger) {
    for (const Delivery* d = innermost_; d; d = d->outer_)
      if (d->logger_ == &logger) return true;
    return false;
  }

 private:
  static thread_local const Delivery* innermost_;

  const DDLogger* logger_;
  const Delivery* outer_;
};

thread_local const Delivery* Delivery::innermost_ = nullptr;

}  // namespace

DDLog::DDLog()
    : loggers_(std::make_shared<const Loggers>(Loggers{std::make_shared<DDTTYLogger>()})) {}

DDLog& DDLog::sharedInstance() {
  // Never destroyed: destructors of statics may log.
  static DDLog& instance = *new DDLog;
  return instance;
}

DDLogLevel DDLog::dynamicLevel() {
  return currentLevel.load(std::memory_order_relaxed);
}

void DDLog::setDynamicLevel(DDLogLevel level) {
  currentLevel.store(level, std::memory_order_relaxed);
}

std::shared_ptr<const DDLog::Loggers> DDLog::loggers() const {
  const std::lock_guard lock(mutex_);
  return loggers_;
}

std::vector<std::shared_ptr<DDLogger>> DDLog::allLoggers() const {
  return *loggers();
}

// The list that is replaced goes after the lock is released, because the destructor of a logger
// that it owned may log.

void DDLog::addLogger(std::shared_ptr<DDLogger> logger) {
  if (!logger) return;
  std::shared_ptr<const Loggers> replaced;
  const std::lock_guard lock(mutex_);
  if (std::ranges::find(*loggers_, logger) != loggers_->end()) return;
  Loggers next = *loggers_;
  next.push_back(std::move(logger));
  replaced = std::exchange(loggers_, std::make_shared<const Loggers>(std::move(next)));
}

void DDLog::removeLogger(const std::shared_ptr<DDLogger>& logger) {
  std::shared_ptr<const Loggers> replaced;
  const std::lock_guard lock(mutex_);
  Loggers next = *loggers_;
  std::erase(next, logger);
  replaced = std::exchange(loggers_, std::make_shared<const Loggers>(std::move(next)));
}

void DDLog::removeAllLoggers() {
  auto replaced = std::make_shared<const Loggers>();
  const std::lock_guard lock(mutex_);
  std::swap(loggers_, replaced);
}

void DDLog::log(const DDLogMessage& message) noexcept {
  const auto present = loggers();
  for (const auto& logger : *present) {
    if (Delivery::isUnderWay(*logger)) continue;
    const Delivery delivery(*logger);
    try {
      logger->log(message);
    } catch (...) {
      // There is nowhere to report to: the failing logger is the report.
    }
  }
}

}  // namespace vexel
