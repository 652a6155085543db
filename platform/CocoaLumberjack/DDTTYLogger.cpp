#include <CocoaLumberjack/DDTTYLogger.h>

#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_color_sinks.h>

namespace vexel {
namespace {

spdlog::level::level_enum severity(DDLogFlag flag) {
  switch (flag) {
    case DDLogFlag::error:
      return spdlog::level::err;
    case DDLogFlag::warning:
      return spdlog::level::warn;
    case DDLogFlag::info:
      return spdlog::level::info;
    case DDLogFlag::debug:
      return spdlog::level::debug;
    case DDLogFlag::verbose:
      return spdlog::level::trace;
  }
  return spdlog::level::info;
}

}  // namespace

class DDTTYLogger::Sink {
 public:
  Sink() : out_("vexel", std::make_shared<spdlog::sinks::stderr_color_sink_mt>()) {
    out_.set_level(spdlog::level::trace);
    out_.set_pattern("%Y-%m-%d %H:%M:%S.%e %^[%l]%$ %v");
    out_.set_error_handler([](const std::string&) {});
  }

  void write(const DDLogMessage& message) {
    out_.log(message.timestamp, spdlog::source_loc{}, severity(message.flag), message.message);
  }

 private:
  spdlog::logger out_;
};

DDTTYLogger::DDTTYLogger() : sink_(std::make_unique<Sink>()) {}
DDTTYLogger::~DDTTYLogger() = default;

void DDTTYLogger::log(const DDLogMessage& message) {
  sink_->write(message);
}

}  // namespace vexel
