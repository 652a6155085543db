#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vexel {

/// Rows of premultiplied pixels, from top to bottom, as a PNG file: without alpha where all pixels
/// are opaque. `pixels` has `width` times `height` of them. Throws std::bad_alloc.
std::string pngFile(std::span<const std::uint32_t> pixels, int width, int height);

}  // namespace vexel
