#pragma once

#include <cstddef>

namespace vexel {

/// Size of the largest block of memory that this thread asked for since it was last set to 0.
std::size_t& largestBlock();

}  // namespace vexel
