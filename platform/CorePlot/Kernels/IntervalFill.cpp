#include "IntervalFill.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <vector>

namespace vexel {

namespace {

constexpr int kWideTile = 16;
constexpr int kNarrowTile = 8;          // columns that a moved line leaves and enters
constexpr int kGroup = 4;               // columns that are blended at once
constexpr int kPair = 2;                // the fewest
constexpr int kSparse = 4;              // rows for each edge
constexpr unsigned kUnitsPerRow = 256;  // of y
constexpr float kHalf = 0.5F;           // rounds what is not negative
constexpr int kFullCoverage = 256;
constexpr int kShareBits = 16;  // of the coverage of a pixel

/// A group of full coverage.
constexpr std::uint64_t kFullGroup = 0x0100010001000100;

using Channels = std::uint16_t __attribute__((vector_size(16)));  // of two pixels
using Bytes = std::uint8_t __attribute__((vector_size(8)));

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

/// A colour laid over a group of pixels by the same shares in several rows.
class GroupBlend {
 public:
  GroupBlend(Channels color, std::uint64_t coverage) {
    using Words = std::uint64_t __attribute__((vector_size(16)));
    using Pairs = std::uint32_t __attribute__((vector_size(16)));
    const auto c = reinterpret_cast<Channels>(Words{coverage, 0});
    const auto twice =
        reinterpret_cast<Pairs>(__builtin_shufflevector(c, c, 0, 0, 1, 1, 2, 2, 3, 3));
    const Pairs pairs[] = {__builtin_shufflevector(twice, twice, 0, 0, 1, 1),
                           __builtin_shufflevector(twice, twice, 2, 2, 3, 3)};
    for (int i = 0; i < 2; ++i) {
      const auto weights = reinterpret_cast<Channels>(pairs[i]);
      const Channels source = (color * weights + kFullCoverage / 2) >> 8;
      sources_[i] = source;
      rests_[i] = 255 - __builtin_shufflevector(source, source, 3, 3, 3, 3, 7, 7, 7, 7);
    }
  }

  void layOver(std::uint32_t* pixels) const {
    for (std::ptrdiff_t i = 0; i < 2; ++i) layPairOver(pixels + kPair * i, i);
  }

  /// The first two pixels, whose place is given.
  void layFirstPairOver(std::uint32_t* pixels) const { layPairOver(pixels, 0); }

 private:
  void layPairOver(std::uint32_t* pixels, std::ptrdiff_t i) const {
    const Channels below = loadPair(pixels);
    storePair(pixels, sources_[i] + dividedBy255(below * rests_[i]));
  }

  Channels sources_[2];
  Channels rests_[2];  // what they leave of the pixels below, of 255
};

/// Collects intervals of kTileWidth columns and blends them at once.
template <int kTileWidth>
class TileFill {
 public:
  TileFill(int rowCount, int linesPerPixel, std::uint32_t color)
      : color_(color),
        isOpaque_(color >= 0xFF000000),
        rowCount_(rowCount),
        shift_(std::countr_zero(static_cast<unsigned>(linesPerPixel))) {
    std::array<std::int16_t, kTileWidth> halves;
    halves.fill(static_cast<std::int16_t>(linesPerPixel / 2));
    std::memcpy(&half_, halves.data(), sizeof half_);
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
    edges_ += 2;
    firstRow_ = std::min(firstRow_, static_cast<int>(from / kUnitsPerRow));
    lastRow_ = std::max(lastRow_, static_cast<int>(to / kUnitsPerRow));
  }

  /// Blends over the pixels right of and below `corner`, at most `columns`, and starts afresh.
  void blend(std::uint32_t* corner, std::ptrdiff_t stride, int columns) {
    // Along a vertical line most rows are like those above them.
    if (edges_ < (lastRow_ - firstRow_) / kSparse)
      blendRuns(corner, stride, columns);
    else
      blendEachRow(corner, stride, columns);
    edges_ = 0;
    firstRow_ = rowCount_;
    lastRow_ = -1;
  }

 private:
  using Tile [[gnu::vector_size(2 * kTileWidth)]] = std::int16_t;
  using Coverage = std::array<std::uint64_t, kTileWidth / kGroup>;

  unsigned units(float y) const {
    // Unlike std::clamp without branches.
    const float clamped = std::min(std::max(y, 0.0F), static_cast<float>(rowCount_));
    return static_cast<unsigned>(static_cast<int>(clamped * kUnitsPerRow + kHalf));
  }

  std::int16_t* changesOf(unsigned row) {
    return differences_.data() + std::size_t{row} * kTileWidth;
  }

  void addEdge(int column, unsigned at, int sign) {
    std::int16_t* const above = changesOf(at / kUnitsPerRow) + column;
    const int part = static_cast<int>(at % kUnitsPerRow);
    above[0] = static_cast<std::int16_t>(above[0] + sign * (int{kUnitsPerRow} - part));
    above[kTileWidth] = static_cast<std::int16_t>(above[kTileWidth] + sign * part);
  }

  void blendEachRow(std::uint32_t* corner, std::ptrdiff_t stride, int columns) {
    Tile sum{};
    for (int row = firstRow_; row <= lastRow_ + 1; ++row) {
      take(changesOf(static_cast<unsigned>(row)), sum);
      if (row < rowCount_) blendRows(corner + row * stride, stride, 1, sum, columns);
    }
  }

  void blendRuns(std::uint32_t* corner, std::ptrdiff_t stride, int columns) {
    Tile sum{};
    int top = firstRow_;
    for (int row = firstRow_; row <= lastRow_ + 1; ++row) {
      std::int16_t* const changes = changesOf(static_cast<unsigned>(row));
      if (isZero(changes)) continue;
      blendRows(corner + top * stride, stride, std::min(row, rowCount_) - top, sum, columns);
      take(changes, sum);
      top = row;
    }
  }

  static void take(std::int16_t* changes, Tile& sum) {
    Tile tile;
    std::memcpy(&tile, changes, sizeof tile);
    sum += tile;
    std::memset(changes, 0, sizeof tile);
  }

  static bool isZero(const std::int16_t* changes) {
    Coverage words;
    std::memcpy(words.data(), changes, sizeof words);
    std::uint64_t all = 0;
    for (const std::uint64_t word : words) all |= word;
    return all == 0;
  }

  void blendRows(std::uint32_t* pixels, std::ptrdiff_t stride, int rows, const Tile& sum,
                 int columns) const {
    const Tile shares = (sum + half_) >> shift_;
    Coverage coverage;
    std::memcpy(coverage.data(), &shares, sizeof shares);
    int column = 0;
    for (const std::uint64_t group : coverage) {
      if (group != 0)
        blendGroup(pixels + column, stride, rows, group, std::min(kGroup, columns - column));
      column += kGroup;
    }
  }

  /// The last columns of a group may be outside.
  void blendGroup(std::uint32_t* pixels, std::ptrdiff_t stride, int rows, std::uint64_t coverage,
                  int columns) const {
    if (isOpaque_ && coverage == kFullGroup) {
      for (int row = 0; row < rows; ++row) std::fill_n(pixels + row * stride, kGroup, color_);
      return;
    }
    // Of a narrow vertical line there may be a thousand rows.
    const int first =
        std::min({std::countr_zero(coverage) / kShareBits, kGroup - kPair, columns - kPair});
    if (rows > 1 && first >= 0 && coverage >> (first * kShareBits) >> (kPair * kShareBits) == 0)
      return blendPair(pixels + first, stride, rows, coverage >> (first * kShareBits));
    const GroupBlend group(channels_, coverage);
    for (int row = 0; row < rows; ++row, pixels += stride) {
      if (columns == kGroup) {
        group.layOver(pixels);
        continue;
      }
      std::uint32_t copy[kGroup] = {};
      for (int i = 0; i < columns; ++i) copy[i] = pixels[i];
      group.layOver(copy);
      for (int i = 0; i < columns; ++i) pixels[i] = copy[i];
    }
  }

  void blendPair(std::uint32_t* pixels, std::ptrdiff_t stride, int rows,
                 std::uint64_t coverage) const {
    const GroupBlend group(channels_, coverage);
    for (int row = 0; row < rows; ++row, pixels += stride) group.layFirstPairOver(pixels);
  }

  std::uint32_t color_;
  bool isOpaque_;
  int rowCount_;
  int shift_;  // from sums over the lines of a pixel to its coverage
  Tile half_;
  Channels channels_;
  int edges_ = 0;
  int firstRow_ = rowCount_;
  int lastRow_ = -1;
  std::vector<std::int16_t> differences_;  // of each row from the one above it
};

/// Blends what `visitAll` gives to a visitor: lines in ascending order, and intervals of them.
template <int kTileWidth, class VisitAll>
void fillTiles(int linesPerPixel, std::uint32_t color, const PixelBuffer& target,
               const PixelRect& clip, VisitAll&& visitAll) {
  TileFill<kTileWidth> tile(clip.height(), linesPerPixel, color);
  const int shift = std::countr_zero(static_cast<unsigned>(linesPerPixel));
  int left = 0;
  const auto blend = [&] {
    tile.blend(target.row(clip.top) + clip.left + left, target.stride,
               std::min(kTileWidth, clip.width() - left));
  };
  visitAll([&](int line, float low, float high) {
    const int column = line >> shift;
    if (column >= left + kTileWidth) {
      blend();
      left = column / kTileWidth * kTileWidth;
    }
    if (low < high) tile.add(column - left, low, high);
  });
  blend();
}

template <class VisitAll>
void fill(int linesPerPixel, std::uint32_t color, const PixelBuffer& target, const PixelRect& clip,
          VisitAll&& visitAll) {
  if (clip.width() <= kNarrowTile)
    fillTiles<kNarrowTile>(linesPerPixel, color, target, clip, visitAll);
  else
    fillTiles<kWideTile>(linesPerPixel, color, target, clip, visitAll);
}

}  // namespace

void fillIntervals(const LineIntervals& intervals, int linesPerPixel, std::uint32_t color,
                   const PixelBuffer& target, const PixelRect& clip) {
  fill(linesPerPixel, color, target, clip, [&](auto&& visit) {
    std::size_t cursor = 0;
    for (int line = 0; line < intervals.lineCount(); ++line)
      intervals.visit(line, cursor, [&](float low, float high) { visit(line, low, high); });
  });
}

void fillHull(CurveHull& hull, int linesPerPixel, std::uint32_t color, const PixelBuffer& target,
              const PixelRect& clip) {
  fill(linesPerPixel, color, target, clip, [&](auto&& visit) { hull.finish(visit); });
}

}  // namespace vexel
