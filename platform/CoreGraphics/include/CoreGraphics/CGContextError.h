#pragma once

#include <stdexcept>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// A surface that cannot be made: a size that is not above 0, not finite or too large, no
/// memory, or the drawing library's own refusal. Nothing is left behind.
class VEXEL_API CGContextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vexel
