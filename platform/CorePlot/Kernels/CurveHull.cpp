#include <Kernels/CurveHull.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace vexel {

namespace {

constexpr float kNowhere = -std::numeric_limits<float>::infinity();

using Doubles = double __attribute__((vector_size(16)));
using Pair = float __attribute__((vector_size(8)));
using Floats = float __attribute__((vector_size(16)));

/// -y and y, of which a curve reaches the largest.
using Ways = Doubles;

Ways waysTo(double y) {
  return Ways{-y, y};
}

/// To the nearest 4096th of a pixel: sums and differences of such numbers are exact, so that a
/// curve looks the same through every clip.
template <class Number>
Number rounded(Number y) {
  constexpr double kShift = 1.5 * (std::int64_t{1} << 40);
  return (y + kShift) - kShift;
}

template <class Ends>
void raise(Ends& ends, Ways ways) {
  const Pair reached = __builtin_convertvector(rounded(ways), Pair);
  ends = {std::max(ends.upwards, reached[0]), std::max(ends.downwards, reached[1])};
}

/// The same of two successive lines and the y on each.
template <class Ends>
void raiseBoth(Ends* ends, Doubles y) {
  const Pair pair = __builtin_convertvector(rounded(y), Pair);
  const Floats reached = __builtin_shufflevector(pair, pair, 0, 0, 1, 1) * Floats{-1, 1, -1, 1};
  Floats known;
  static_assert(sizeof known == 2 * sizeof *ends);
  std::memcpy(&known, ends, sizeof known);
  known = reached > known ? reached : known;
  std::memcpy(ends, &known, sizeof known);
}

}  // namespace

CurveHull::CurveHull(const PixelRect& view, int linesPerPixel, double radius)
    : lineCount_(view.width() * linesPerPixel), linesPerPixel_(linesPerPixel), top_(view.top) {
  pen_.reserve(static_cast<std::size_t>(2 * linesPerPixel * radius) + 2);
  for (double distance = 0; distance <= radius; distance += 0.5 / linesPerPixel)
    pen_.push_back(static_cast<float>(rounded(std::sqrt(radius * radius - distance * distance))));
  margin_ = reach() + 2;
  start_ = margin_ - 0.5 - view.left * linesPerPixel;
  first_ = lineCount_ + 2 * margin_;
  lastLine_ = first_ - 1;
  for (auto* const lines : {&onLines_, &behindLines_})
    lines->assign(static_cast<std::size_t>(first_) + kBlock, {kNowhere, kNowhere});
}

void CurveHull::add(std::span<const CGPoint> points) {
  if (points.empty()) return;
  CGPoint last = placeOf(points.front());
  int lastLine = lineBefore(last);
  if (!isEmpty()) addBetween(last_, last);

  // Between two lines there may be many points: their extremes are gathered first.
  Ways extremes = waysTo(last.y);
  for (const CGPoint& p : points.subspan(1)) {
    const CGPoint place = placeOf(p);
    const int line = lineBefore(place);
    const Ways ways = waysTo(place.y);
    if (line == lastLine) {
      extremes = ways > extremes ? ways : extremes;
    } else {
      raise(pointsBehind(lastLine), extremes);
      addBetween(last, place);
      extremes = ways;
      lastLine = line;
    }
    last = place;
  }
  raise(pointsBehind(lastLine), extremes);
  last_ = last;
}

void CurveHull::addSegment(CGPoint from, CGPoint to) {
  const CGPoint begin = placeOf(from);
  last_ = placeOf(to);
  for (const CGPoint& end : {begin, last_}) raise(pointsBehind(lineBefore(end)), waysTo(end.y));
  addBetween(begin, last_);
}

CurveHull::Ends& CurveHull::pointsBehind(int line) {
  first_ = std::min(first_, line);
  final_ = std::max(final_, line);
  return behindLines_[static_cast<std::size_t>(line)];
}

void CurveHull::addBetween(CGPoint a, CGPoint b) {
  const CGPoint left = a.x < b.x ? a : b;
  const auto [begin, end] = std::minmax({lineBefore(a), lineBefore(b)});
  if (begin == end) return;
  const double slope = (b.y - a.y) / (b.x - a.x);
  int line = begin + 1;
  for (; line < end; line += 2) {
    const Doubles x{1.0 * line, line + 1.0};
    raiseBoth(&onLines_[static_cast<std::size_t>(line)], left.y + (x - left.x) * slope);
  }
  if (line == end)
    raise(onLines_[static_cast<std::size_t>(line)], waysTo(left.y + (line - left.x) * slope));
}

std::pair<int, int> CurveHull::reachedLines() const {
  return {std::max(first_ - margin_ - reach(), 0),
          std::clamp(final_ - margin_ + reach() + 2, 0, lineCount_)};
}

CurveHull::Reach CurveHull::reachOf(int line) const {
  constexpr std::size_t kVectors = sizeof(Reach) / sizeof(Floats);
  const int middle = margin_ + line;
  const int reach = static_cast<int>(pen_.size()) - 1;
  const int begin = std::max(-reach, 2 * (first_ - middle - kBlock));
  const int end = std::min(reach, 2 * (final_ - middle + 1));
  Floats reached[kVectors];
  for (Floats& ends : reached) ends = Floats{} + kNowhere;
  for (int i = begin; i <= end; ++i) {
    const bool isOnLine = i % 2 == 0;
    const auto& curve = isOnLine ? onLines_ : behindLines_;
    const Ends* const from = curve.data() + middle + (isOnLine ? i : i - 1) / 2;
    const float height = pen_[static_cast<std::size_t>(std::abs(i))];
    for (std::size_t k = 0; k < kVectors; ++k) {
      Floats outline;
      std::memcpy(&outline, from + k * (sizeof(Floats) / sizeof(Ends)), sizeof outline);
      outline += height;
      reached[k] = outline > reached[k] ? outline : reached[k];
    }
  }
  Reach result;
  std::memcpy(result.data(), reached, sizeof reached);
  return result;
}

void CurveHull::clear() {
  for (auto* const lines : {&onLines_, &behindLines_})
    std::fill(lines->begin() + first_, lines->begin() + final_ + 1, Ends{kNowhere, kNowhere});
  first_ = static_cast<int>(lastLine_) + 1;
  final_ = -1;
}

}  // namespace vexel
