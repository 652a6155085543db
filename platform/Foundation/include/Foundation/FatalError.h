#pragma once

#include <string_view>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Writes "Fatal error: " and the message to standard error and aborts the process.
/// The one door for broken invariants: an array shorter than an operation requires, an
/// enumeration value outside its cases, a negative count. Bad data never comes here.
[[noreturn]] VEXEL_API void fatalError(std::string_view message);

}  // namespace vexel
