#pragma once

#include <cstdio>
#include <cstdlib>

namespace vexel {

/// Ends a fuzz target that has found something.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace vexel
