#pragma once

#include <CocoaLumberjack/DDLogMessage.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Receives messages once it is registered with DDLog.
class VEXEL_API DDLogger {
 public:
  virtual ~DDLogger() = default;

  /// Called on the thread that logs, before its call to DDLog::log returns, and by several threads
  /// at once: a logger guards what it stores. It may log and may add or remove loggers; what it
  /// logs reaches all other loggers but not itself. What it throws is dropped.
  virtual void log(const DDLogMessage& message) = 0;
};

}  // namespace vexel
