#pragma once

#include <cstddef>
#include <optional>

namespace vexel {

/// Size of the largest block of memory that this thread asked for since it was last set to 0.
std::size_t& largestBlock();

/// So many more requests of this thread for memory are met; then one fails, and all later ones are
/// met again. Absent, as at the start: none fails.
std::optional<std::size_t>& requestsBeforeFailure();

}  // namespace vexel
