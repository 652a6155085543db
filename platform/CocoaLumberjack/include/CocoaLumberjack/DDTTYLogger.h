#pragma once

#include <memory>

#include <CocoaLumberjack/DDLogger.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Writes each message to standard error as one line, "<local time> [<flag>] <message>", in
/// colours when standard error is a terminal. Lines of different threads do not mix. Failures to
/// write are ignored.
class VEXEL_API DDTTYLogger : public DDLogger {
 public:
  DDTTYLogger();
  ~DDTTYLogger() override;

  void log(const DDLogMessage& message) override;

 private:
  class Sink;
  std::unique_ptr<Sink> sink_;
};

}  // namespace vexel
