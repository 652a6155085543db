#pragma once

#include <cstdint>
#include <string>

namespace vexel {

/// Decimals of coordinates, of which an eye sees none, and of the entries of a matrix, by which
/// coordinates get multiplied; at most 12.
constexpr int kCoordinateDecimals = 3;
constexpr int kMatrixDecimals = 6;

/// Appends a number to the text of a file: a point in every locale, no exponent, no trailing zeros
/// and no "-0". What is not a number becomes 0, what is beyond all pages is cut.
void appendNumber(std::string& text, double value, int decimals = kCoordinateDecimals);

/// A number as it is written, in units of its last decimal, and its text.
std::int64_t fileUnits(double value, int decimals);
void appendUnits(std::string& text, std::int64_t units, int decimals);

}  // namespace vexel
