#include <Kernels/BarRaster.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "IntervalFill.h"

namespace vexel {

namespace {

constexpr int kLinesPerPixel = 32;

PixelRect visiblePart(const PixelBuffer& target, const PixelRect& clip) {
  const PixelRect part = target.clipped(clip);
  return part.isEmpty() ? PixelRect{} : part;
}

/// Rounded so that the difference is exact: bars look the same through every clip.
float fromTop(double y, int top) {
  constexpr double kUnits = 256;
  return static_cast<float>(std::round(y * kUnits) / kUnits - top);
}

CGRect turned(const CGRect& rect) {
  return {{rect.origin.y, rect.origin.x}, {rect.size.height, rect.size.width}};
}

}  // namespace

BarRaster::BarRaster(const PixelBuffer& target, const PixelRect& clip, Direction direction)
    : target_(target),
      view_(visiblePart(target, clip)),
      isTurned_(direction == Direction::lying),
      intervals_(kLinesPerPixel * (isTurned_ ? view_.height() : view_.width())) {}

void BarRaster::add(const CGRect& bar) {
  const CGRect upright = isTurned_ ? turned(bar) : bar;
  const int left = isTurned_ ? view_.top : view_.left;
  const int top = isTurned_ ? view_.left : view_.top;
  const auto low = fromTop(upright.minY(), top);
  const auto high = fromTop(upright.maxY(), top);

  // In lines, each of which is at the middle of its part of a pixel.
  const double first = 1.0 * left * kLinesPerPixel;
  const double last = intervals_.lineCount();
  const double from = upright.minX() * kLinesPerPixel - 0.5;
  const double to = upright.maxX() * kLinesPerPixel - 0.5;
  const double begin = std::ceil(from) - first;
  const double end = std::ceil(to) - first;
  if (begin < end) {
    const int stop = static_cast<int>(std::clamp(end, 0.0, last));
    for (int line = static_cast<int>(std::clamp(begin, 0.0, last)); line < stop; ++line)
      intervals_.add(line, low, high);
  } else if (const double nearest = std::round((from + to) / 2) - first;
             nearest >= 0 && nearest < last) {
    intervals_.add(static_cast<int>(nearest), low, high);
  }
}

void BarRaster::draw(std::uint32_t color) {
  intervals_.finish();
  if (!isTurned_) return fillIntervals(intervals_, kLinesPerPixel, color, target_, view_);

  const int width = view_.height();
  const int height = view_.width();
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                    static_cast<std::size_t>(height));
  const PixelBuffer lying{pixels.data(), width, height, width};
  for (int y = 0; y < width; ++y)
    for (int x = 0; x < height; ++x) lying.row(x)[y] = target_.row(view_.top + y)[view_.left + x];
  fillIntervals(intervals_, kLinesPerPixel, color, lying, {0, 0, width, height});
  for (int y = 0; y < width; ++y)
    for (int x = 0; x < height; ++x) target_.row(view_.top + y)[view_.left + x] = lying.row(x)[y];
}

}  // namespace vexel
