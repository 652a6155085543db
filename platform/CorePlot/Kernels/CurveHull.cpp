#include <Kernels/CurveHull.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace vexel {

namespace {

constexpr float kNowhere = -std::numeric_limits<float>::infinity();

/// To the nearest 4096th of a pixel: sums and differences of such numbers are exact, so that a
/// curve looks the same through every clip.
double rounded(double y) {
  constexpr double kShift = 1.5 * (std::int64_t{1} << 40);
  return (y + kShift) - kShift;
}

void raise(float& reached, double y) {
  reached = std::max(reached, static_cast<float>(rounded(y)));
}

}  // namespace

CurveHull::CurveHull(const PixelRect& view, int linesPerPixel, double radius)
    : lineCount_(view.width() * linesPerPixel), linesPerPixel_(linesPerPixel), top_(view.top) {
  for (double distance = 0; distance <= radius; distance += 0.5 / linesPerPixel)
    pen_.push_back(static_cast<float>(rounded(std::sqrt(radius * radius - distance * distance))));
  margin_ = reach() + 2;
  start_ = margin_ - 0.5 - view.left * linesPerPixel;
  first_ = lineCount_ + 2 * margin_;
  lastLine_ = first_ - 1;
  for (Side* const side : {&downwards_, &upwards_})
    for (auto* const lines : {&side->onLines, &side->behindLines})
      lines->assign(static_cast<std::size_t>(first_) + kBlock, kNowhere);
}

void CurveHull::add(std::span<const CGPoint> points) {
  if (points.empty()) return;
  CGPoint last = placeOf(points.front());
  int lastLine = lineBefore(last);
  if (!isEmpty()) addBetween(last_, last);

  // Between two lines there may be many points: their extremes are gathered first.
  double low = last.y;
  double high = last.y;
  for (const CGPoint& p : points.subspan(1)) {
    const CGPoint place = placeOf(p);
    const int line = lineBefore(place);
    if (line == lastLine) {
      low = std::min(low, place.y);
      high = std::max(high, place.y);
    } else {
      addPoints(lastLine, low, high);
      addBetween(last, place);
      low = high = place.y;
      lastLine = line;
    }
    last = place;
  }
  addPoints(lastLine, low, high);
  last_ = last;
}

void CurveHull::addSegment(CGPoint from, CGPoint to) {
  const CGPoint begin = placeOf(from);
  last_ = placeOf(to);
  addPoints(lineBefore(begin), begin.y, begin.y);
  addPoints(lineBefore(last_), last_.y, last_.y);
  addBetween(begin, last_);
}

void CurveHull::addPoints(int line, double low, double high) {
  const auto i = static_cast<std::size_t>(line);
  raise(downwards_.behindLines[i], high);
  raise(upwards_.behindLines[i], -low);
  first_ = std::min(first_, line);
  final_ = std::max(final_, line);
}

void CurveHull::addBetween(CGPoint a, CGPoint b) {
  const CGPoint left = a.x < b.x ? a : b;
  const auto [begin, end] = std::minmax({lineBefore(a), lineBefore(b)});
  if (begin == end) return;
  const double slope = (b.y - a.y) / (b.x - a.x);
  for (int line = begin + 1; line <= end; ++line) {
    const double y = left.y + (line - left.x) * slope;
    raise(downwards_.onLines[static_cast<std::size_t>(line)], y);
    raise(upwards_.onLines[static_cast<std::size_t>(line)], -y);
  }
}

std::pair<int, int> CurveHull::reachedLines() const {
  return {std::max(first_ - margin_ - reach(), 0),
          std::clamp(final_ - margin_ + reach() + 2, 0, lineCount_)};
}

CurveHull::Reach CurveHull::reachOf(const Side& side, int line) const {
  using Lines = float __attribute__((vector_size(16)));
  constexpr int kLines = sizeof(Lines) / sizeof(float);
  const int middle = margin_ + line;
  const int reach = static_cast<int>(pen_.size()) - 1;
  const int begin = std::max(-reach, 2 * (first_ - middle - kBlock));
  const int end = std::min(reach, 2 * (final_ - middle + 1));
  Lines reached[kBlock / kLines];
  for (Lines& lines : reached) lines = Lines{} + kNowhere;
  for (int i = begin; i <= end; ++i) {
    const bool isOnLine = i % 2 == 0;
    const auto& curve = isOnLine ? side.onLines : side.behindLines;
    const float* const from = curve.data() + middle + (isOnLine ? i : i - 1) / 2;
    const float height = pen_[static_cast<std::size_t>(std::abs(i))];
    for (std::ptrdiff_t k = 0; k < kBlock / kLines; ++k) {
      Lines outline;
      std::memcpy(&outline, from + k * kLines, sizeof outline);
      outline += height;
      reached[k] = outline > reached[k] ? outline : reached[k];
    }
  }
  Reach result;
  std::memcpy(result.data(), reached, sizeof reached);
  return result;
}

void CurveHull::clear() {
  for (Side* const side : {&downwards_, &upwards_})
    for (auto* const lines : {&side->onLines, &side->behindLines})
      std::fill(lines->begin() + first_, lines->begin() + final_ + 1, kNowhere);
  first_ = static_cast<int>(lastLine_) + 1;
  final_ = -1;
}

}  // namespace vexel
