#include "IntervalFill.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace vexel {

namespace {

constexpr int kTileWidth = 16;
constexpr int kGroup = 4;               // columns that are blended at once
constexpr unsigned kUnitsPerRow = 256;  // of y
constexpr int kFullCoverage = 256;

/// A group of full coverage.
constexpr std::uint64_t kFullGroup = 0x0100010001000100;

using Channels = std::uint16_t __attribute__((vector_size(16)));  // of two pixels
using Bytes = std::uint8_t __attribute__((vector_size(8)));
using Tile = std::int16_t __attribute__((vector_size(2 * kTileWidth)));

Channels loadPair(const std::uint32_t* pixels) {
  Bytes bytes;
  std::memcpy(&bytes, pixels, sizeof bytes);
  return __builtin_convertvector(bytes, Channels);
}

void storePair(std::uint32_t* pixels, Channels channels) {
  const Bytes bytes = __builtin_convertvector(channels, Bytes);
  std::memcpy(pixels, &bytes, sizeof bytes);
}

Channels dividedBy255(Channels product) {
  product += 128;
  return (product + (product >> 8)) >> 8;
}

/// Lays `weights` 256ths of a colour over two pixels.
void blendPair(std::uint32_t* pixels, Channels color, Channels weights) {
  const Channels source = (color * weights + kFullCoverage / 2) >> 8;
  const Channels alphas = __builtin_shufflevector(source, source, 3, 3, 3, 3, 7, 7, 7, 7);
  storePair(pixels, source + dividedBy255(loadPair(pixels) * (255 - alphas)));
}

void blendGroup(std::uint32_t* pixels, Channels color, std::uint64_t coverage) {
  using Words = std::uint64_t __attribute__((vector_size(16)));
  using Pairs = std::uint32_t __attribute__((vector_size(16)));
  const auto c = reinterpret_cast<Channels>(Words{coverage, 0});
  const auto twice = reinterpret_cast<Pairs>(__builtin_shufflevector(c, c, 0, 0, 1, 1, 2, 2, 3, 3));
  const auto weights = [](Pairs pairs) { return reinterpret_cast<Channels>(pairs); };
  blendPair(pixels, color, weights(__builtin_shufflevector(twice, twice, 0, 0, 1, 1)));
  blendPair(pixels + 2, color, weights(__builtin_shufflevector(twice, twice, 2, 2, 3, 3)));
}

/// Collects intervals of kTileWidth columns and blends them at once.
class TileFill {
 public:
  TileFill(int rowCount, int linesPerPixel, std::uint32_t color)
      : color_(color),
        isOpaque_(color >= 0xFF000000),
        rowCount_(rowCount),
        shift_(std::countr_zero(static_cast<unsigned>(linesPerPixel))) {
    for (int i = 0; i < kTileWidth; ++i) half_[i] = static_cast<std::int16_t>(linesPerPixel / 2);
    // An edge on the last row's lower end writes the two rows behind it.
    differences_.resize((static_cast<std::size_t>(rowCount) + 2) * kTileWidth);
    const std::uint32_t pair[] = {color, color};
    channels_ = loadPair(pair);
  }

  void add(int column, float low, float high) {
    const unsigned from = units(low);
    const unsigned to = units(high);
    addEdge(column, from, 1);
    addEdge(column, to, -1);
    firstRow_ = std::min(firstRow_, static_cast<int>(from / kUnitsPerRow));
    lastRow_ = std::max(lastRow_, static_cast<int>(to / kUnitsPerRow));
  }

  /// Blends over the pixels right of and below `corner`, at most `columns`, and starts afresh.
  void blend(std::uint32_t* corner, std::ptrdiff_t stride, int columns) {
    Tile sum{};
    for (int row = firstRow_; row <= lastRow_ + 1; ++row) {
      std::int16_t* const changes = changesOf(static_cast<unsigned>(row));
      Tile tile;
      std::memcpy(&tile, changes, sizeof tile);
      sum += tile;
      std::memset(changes, 0, sizeof tile);
      if (row < rowCount_) blendRow(corner + row * stride, sum, columns);
    }
    firstRow_ = rowCount_;
    lastRow_ = -1;
  }

 private:
  unsigned units(float y) const {
    const float clamped = std::clamp(y, 0.0F, static_cast<float>(rowCount_));
    return static_cast<unsigned>(static_cast<int>(clamped * kUnitsPerRow + 0.5F));
  }

  std::int16_t* changesOf(unsigned row) { return differences_.data() + row * kTileWidth; }

  void addEdge(int column, unsigned at, int sign) {
    std::int16_t* const above = changesOf(at / kUnitsPerRow) + column;
    const int part = static_cast<int>(at % kUnitsPerRow);
    above[0] = static_cast<std::int16_t>(above[0] + sign * (int{kUnitsPerRow} - part));
    above[kTileWidth] = static_cast<std::int16_t>(above[kTileWidth] + sign * part);
  }

  void blendRow(std::uint32_t* pixels, const Tile& sum, int columns) const {
    const Tile shares = (sum + half_) >> shift_;
    std::array<std::uint64_t, kTileWidth / kGroup> coverage;
    std::memcpy(coverage.data(), &shares, sizeof shares);
    int column = 0;
    for (const std::uint64_t group : coverage) {
      if (group != 0) blend(pixels + column, group, std::min(kGroup, columns - column));
      column += kGroup;
    }
  }

  /// The last columns of a group may be outside.
  void blend(std::uint32_t* pixels, std::uint64_t coverage, int columns) const {
    if (isOpaque_ && coverage == kFullGroup) {
      std::fill_n(pixels, kGroup, color_);
    } else if (columns == kGroup) {
      blendGroup(pixels, channels_, coverage);
    } else {
      std::uint32_t copy[kGroup] = {};
      for (int i = 0; i < columns; ++i) copy[i] = pixels[i];
      blendGroup(copy, channels_, coverage);
      for (int i = 0; i < columns; ++i) pixels[i] = copy[i];
    }
  }

  std::uint32_t color_;
  bool isOpaque_;
  int rowCount_;
  int shift_;  // from sums over the lines of a pixel to its coverage
  Tile half_;
  Channels channels_;
  int firstRow_ = rowCount_;
  int lastRow_ = -1;
  std::vector<std::int16_t> differences_;  // of each row from the one above it
};

}  // namespace

void fillIntervals(const LineIntervals& intervals, int linesPerPixel, std::uint32_t color,
                   const PixelBuffer& target, const PixelRect& clip) {
  TileFill tile(clip.height(), linesPerPixel, color);
  std::size_t cursor = 0;
  for (int left = 0; left < clip.width(); left += kTileWidth) {
    const int columns = std::min(kTileWidth, clip.width() - left);
    for (int column = 0; column < columns; ++column)
      for (int part = 0; part < linesPerPixel; ++part)
        intervals.visit((left + column) * linesPerPixel + part, cursor,
                        [&](float low, float high) { tile.add(column, low, high); });
    tile.blend(target.row(clip.top) + clip.left + left, target.stride, columns);
  }
}

}  // namespace vexel
