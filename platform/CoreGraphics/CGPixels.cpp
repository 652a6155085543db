#include <CoreGraphics/CGPixels.h>

#include <algorithm>
#include <cmath>

namespace vexel {

std::uint32_t premultipliedPixel(const CGColor& color) {
  const auto bounded = [](double v) { return v > 0 ? std::min(v, 1.0) : 0.0; };
  const auto byte = [](double v) { return static_cast<std::uint32_t>(std::lround(v * 255)); };
  const double alpha = bounded(color.alpha());
  return byte(alpha) << 24 | byte(bounded(color.red()) * alpha) << 16 |
         byte(bounded(color.green()) * alpha) << 8 | byte(bounded(color.blue()) * alpha);
}

}  // namespace vexel
