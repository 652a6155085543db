#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>

#include <CocoaLumberjack/DDLogFlag.h>
#include <CocoaLumberjack/DDLogLevel.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// One message as the loggers receive it. By convention the text reads
/// "<SourceUnit>.<function>:<line> <text>"; whoever logs composes it whole.
struct VEXEL_API DDLogMessage {
  /// UTF-8.
  std::string message;
  /// The level the statement was compiled with; `all` for statements that are never compiled out.
  /// Nothing is filtered by it.
  DDLogLevel level = DDLogLevel::all;
  /// Its kind.
  DDLogFlag flag = DDLogFlag::info;
  /// Free for applications to tell sources of messages apart; default 0.
  int context = 0;
  /// Name of the source file, without folders.
  std::string file = {};
  /// Name of the function, and the line in the file.
  std::string function = {};
  std::uint32_t line = 0;
  /// Free for applications to mark single messages; absent by default.
  std::optional<std::string> tag = {};
  /// Free bits for loggers; default 0.
  std::uint32_t options = 0;
  /// When the message was made.
  std::chrono::system_clock::time_point timestamp = std::chrono::system_clock::now();
  /// The thread on which the message was made.
  std::thread::id threadID = std::this_thread::get_id();

  friend bool operator==(const DDLogMessage&, const DDLogMessage&) = default;
};

}  // namespace vexel
