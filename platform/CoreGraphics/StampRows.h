#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "PixelStamp.h"

namespace vexel {

/// Rows of pixels that stamps are laid over.
struct StampGround {
  /// The pixel of the first row that is in the first column of the mask; it need not exist.
  std::uint32_t* pixels;
  /// From one row to the next, in pixels.
  std::ptrdiff_t stride;
  /// The row of the mask that meets the first row, negative when the mask begins below it.
  std::ptrdiff_t maskRow;
  /// The columns of the mask that may be drawn: the first one, and the one behind the last.
  int from;
  int to;
};

/// Lays a stamp over those rows whose bits are set, the lowest for the first. All of them meet the
/// mask.
using LayStampRows = void(const PixelStamp& stamp, const StampGround& ground, std::uint32_t rows);

/// All ways that this machine has. They draw the same pixels; the last is the fastest.
std::span<LayStampRows* const> waysToLayStampRows();

}  // namespace vexel
