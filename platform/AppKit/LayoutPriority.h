#pragma once

#include <algorithm>
#include <cmath>

#include <AppKit/NSLayoutConstraint.h>

namespace vexel {

/// The priority that a request for `requested` leads to when the present one is `present`.
inline float acceptedLayoutPriority(float requested, float present) {
  if (std::isnan(requested)) return present;
  return std::clamp(requested, NSLayoutConstraint::kLowestPriority,
                    NSLayoutConstraint::kRequiredPriority);
}

}  // namespace vexel
