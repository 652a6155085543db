#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <CocoaLumberjack/DDLogLevel.h>
#include <CocoaLumberjack/DDLogMessage.h>
#include <CocoaLumberjack/DDLogger.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The log of the process: hands messages to the registered loggers. At the start one logger is
/// registered, a DDTTYLogger, and the dynamic level is `defaultDynamicLevel`.
///
/// Every operation may be called from any thread, from within a logger, and while statics are
/// destroyed at the end of the process.
class VEXEL_API DDLog {
 public:
  /// The level until another one is set.
  static constexpr DDLogLevel defaultDynamicLevel = DDLogLevel::warning;

  /// The one log of the process.
  static DDLog& sharedInstance();

  /// The kinds of messages wanted at present. Whoever logs asks it before building a message
  /// (ddLog does); `log` itself does not.
  static DDLogLevel dynamicLevel();
  static void setDynamicLevel(DDLogLevel level);

  DDLog(const DDLog&) = delete;
  DDLog& operator=(const DDLog&) = delete;

  /// Registers `logger` behind those already registered. An absent logger and one that is
  /// registered already change nothing.
  void addLogger(std::shared_ptr<DDLogger> logger);
  /// A message that is on its way to the loggers at this moment may still reach `logger`.
  void removeLogger(const std::shared_ptr<DDLogger>& logger);
  /// The same for all.
  void removeAllLoggers();
  /// In order of registration.
  std::vector<std::shared_ptr<DDLogger>> allLoggers() const;

  /// Hands `message` to every logger in order of registration, whatever the dynamic level is.
  /// A logger that throws keeps the message from no other and does not disturb the caller. A
  /// logger that is busy with another message on this thread is passed over.
  void log(const DDLogMessage& message) noexcept;

 private:
  using Loggers = std::vector<std::shared_ptr<DDLogger>>;

  DDLog();
  ~DDLog() = default;

  std::shared_ptr<const Loggers> loggers() const;

  mutable std::mutex mutex_;
  /// Replaced as a whole, never changed: deliveries go through the list they began with.
  std::shared_ptr<const Loggers> loggers_;
};

/// Logs a message with flag `flag` from the place of the call: `makeMessage` is called, once, and
/// its text handed to the shared log when the dynamic level includes the flag, otherwise it is not
/// called at all. What it throws passes to the caller.
///
///     ddLog(DDLogFlag::verbose, [&] { return "Vexel.addPlot: identifier -> " + identifier; });
///
/// The last three arguments are the place of the call and are not meant to be given.
template <class MakeMessage>
requires std::convertible_to<std::invoke_result_t<MakeMessage>, std::string>
void ddLog(DDLogFlag flag, MakeMessage&& makeMessage, std::string_view path = __builtin_FILE(),
           std::string_view function = __builtin_FUNCTION(),
           std::uint32_t line = __builtin_LINE()) {
  // The built-ins stand in for std::source_location, which Clang 14 lacks.
  if (!includes(DDLog::dynamicLevel(), flag)) return;
  DDLog::sharedInstance().log({
      .message = std::invoke(std::forward<MakeMessage>(makeMessage)),
      .flag = flag,
      .file = std::string(path.substr(path.rfind('/') + 1)),
      .function = std::string(function),
      .line = line,
  });
}

}  // namespace vexel
