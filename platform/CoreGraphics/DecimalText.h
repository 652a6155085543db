#pragma once

#include <string>

namespace vexel {

/// `value` in decimal notation with at most four decimals and no trailing zeros, "." in every
/// locale; never "-0". "nan", "inf" and "-inf" for what is not a number.
std::string decimalText(double value);

}  // namespace vexel
