#pragma once

#include <cstdint>

#include <CocoaLumberjack/DDLogFlag.h>

namespace vexel {

/// Which kinds of messages are written: a set of DDLogFlag bits. Each level from `error` to
/// `verbose` holds its own flag and those of all more severe levels; `all` holds every bit.
enum class DDLogLevel : std::uint64_t {
  off = 0,
  error = 1,
  warning = 3,
  info = 7,
  debug = 15,
  verbose = 31,
  all = ~std::uint64_t{0},
};

/// Whether messages with `flag` are written at `level`.
constexpr bool includes(DDLogLevel level, DDLogFlag flag) {
  return (static_cast<std::uint64_t>(level) & static_cast<std::uint64_t>(flag)) != 0;
}

}  // namespace vexel
