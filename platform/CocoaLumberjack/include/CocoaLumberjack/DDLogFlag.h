#pragma once

#include <cstdint>

namespace vexel {

/// What kind of message one message is; each kind is one bit of a DDLogLevel.
enum class DDLogFlag : std::uint64_t {
  error = 1,
  warning = 2,
  info = 4,
  debug = 8,
  verbose = 16,
};

}  // namespace vexel
