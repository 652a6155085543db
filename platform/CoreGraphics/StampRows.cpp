#include "StampRows.h"

#include <array>
#include <bit>

#ifdef __SSE2__
#include <immintrin.h>
#endif

namespace vexel {

namespace {

constexpr int kGroup = WeightedPixels::kCount;

/// Some columns of a mask, pixel by pixel.
void layPart(const PixelStamp& stamp, const StampGround& ground, std::uint32_t rows) {
  const std::ptrdiff_t groupsInRow = stamp.mask.groupsInRow;
  const int from = std::max(ground.from, 0);
  const int to = std::min(ground.to, stamp.mask.width);
  for (; rows != 0; rows &= rows - 1) {
    const int row = std::countr_zero(rows);
    std::uint32_t* const pixels = ground.pixels + row * ground.stride;
    const WeightedPixels* const groups =
        stamp.mask.groups.data() + (ground.maskRow + row) * groupsInRow;
    for (int i = from; i < to; ++i)
      pixels[i] = groups[i / kGroup].over(i % kGroup, stamp.color, pixels[i]);
  }
}

/// Calls layGroup(group, pixels) for each group, where no column is cut off.
template <class LayGroup>
[[gnu::always_inline]] inline void layRows(const PixelStamp& stamp, const StampGround& ground,
                                           std::uint32_t rows, LayGroup&& layGroup) {
  // Not read again after each pixel that is written.
  const std::ptrdiff_t groupsInRow = stamp.mask.groupsInRow;
  const std::ptrdiff_t stride = ground.stride;
  if (ground.from > 0 || ground.to < groupsInRow * kGroup) return layPart(stamp, ground, rows);
  const WeightedPixels* groups = stamp.mask.groups.data() + ground.maskRow * groupsInRow;
  std::uint32_t* pixels = ground.pixels;
  while (rows != 0) {
    const int first = std::countr_zero(rows);
    pixels += first * stride;
    groups += first * groupsInRow;
    rows >>= first;
    // Runs of rows, most often all, of one group.
    for (; (rows & 1) != 0; rows >>= 1) {
      layGroup(groups[0], pixels);
      for (std::ptrdiff_t i = 1; i < groupsInRow; ++i) layGroup(groups[i], pixels + i * kGroup);
      pixels += stride;
      groups += groupsInRow;
    }
  }
}

void layRowsPlainly(const PixelStamp& stamp, const StampGround& ground, std::uint32_t rows) {
  layRows(stamp, ground, rows, [&](const WeightedPixels& group, std::uint32_t* pixels) {
    for (int i = 0; i < kGroup; ++i) pixels[i] = group.over(i, stamp.color, pixels[i]);
  });
}

#ifdef __SSE2__

// 16 bits for each channel of a pixel. x * 257 / 65536 is (x + x / 256) / 256.

void layRowsBySse2(const PixelStamp& stamp, const StampGround& ground, std::uint32_t rows) {
  const __m128i zero = _mm_setzero_si128();
  const __m128i colors = _mm_unpacklo_epi8(_mm_set1_epi32(static_cast<int>(stamp.color)), zero);
  const auto twoPixels = [&](__m128i weights, __m128i rests, __m128i below) {
    const __m128i products =
        _mm_add_epi16(_mm_mullo_epi16(colors, weights), _mm_mullo_epi16(below, rests));
    return _mm_mulhi_epu16(_mm_add_epi16(products, _mm_set1_epi16(128)), _mm_set1_epi16(257));
  };
  layRows(stamp, ground, rows, [&](const WeightedPixels& group, std::uint32_t* pixels) {
    // Bytes, each four times.
    const auto spread = [](const std::uint8_t* bytes) {
      const __m128i eight = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes));
      return _mm_unpacklo_epi8(eight, eight);
    };
    const auto fourPixels = [&](__m128i weights, __m128i rests, int from) {
      const auto* const above = reinterpret_cast<const __m128i*>(group.pixels + from);
      auto* const below = reinterpret_cast<__m128i*>(pixels + from);
      const __m128i under = _mm_loadu_si128(below);
      const __m128i low = twoPixels(_mm_unpacklo_epi8(weights, zero),
                                    _mm_unpacklo_epi8(rests, zero), _mm_unpacklo_epi8(under, zero));
      const __m128i high =
          twoPixels(_mm_unpackhi_epi8(weights, zero), _mm_unpackhi_epi8(rests, zero),
                    _mm_unpackhi_epi8(under, zero));
      _mm_storeu_si128(below, _mm_add_epi8(_mm_loadu_si128(above), _mm_packus_epi16(low, high)));
    };
    const __m128i weights = spread(group.weights);
    const __m128i rests = spread(group.rests);
    fourPixels(_mm_unpacklo_epi16(weights, weights), _mm_unpacklo_epi16(rests, rests), 0);
    fourPixels(_mm_unpackhi_epi16(weights, weights), _mm_unpackhi_epi16(rests, rests), 4);
  });
}

// A pattern that shuffles a byte into four channels.
constexpr std::int64_t spreadByte(std::uint64_t byte) {
  return static_cast<std::int64_t>(0x8000800080008000 + 0x0001000100010001 * byte);
}

// The instructions know two halves. The lower pixels are 0, 1, 4 and 5, the upper ones the others.
__attribute__((target("avx2"))) void layRowsByAvx2(const PixelStamp& stamp,
                                                   const StampGround& ground, std::uint32_t rows) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i colors = _mm256_cvtepu8_epi16(_mm_set1_epi32(static_cast<int>(stamp.color)));
  const __m256i lower =
      _mm256_setr_epi64x(spreadByte(0), spreadByte(1), spreadByte(4), spreadByte(5));
  const __m256i upper =
      _mm256_setr_epi64x(spreadByte(2), spreadByte(3), spreadByte(6), spreadByte(7));
  const auto fourPixels = [&](__m256i weights, __m256i rests, __m256i below)
      __attribute__((target("avx2"))) {
    const __m256i products =
        _mm256_add_epi16(_mm256_mullo_epi16(colors, weights), _mm256_mullo_epi16(below, rests));
    return _mm256_mulhi_epu16(_mm256_add_epi16(products, _mm256_set1_epi16(128)),
                              _mm256_set1_epi16(257));
  };
  const auto eightPixels = [&](const WeightedPixels& group, std::uint32_t* pixels)
      __attribute__((target("avx2"))) {
    const __m256i weights = _mm256_set1_epi64x(std::bit_cast<std::int64_t>(group.weights));
    const __m256i rests = _mm256_set1_epi64x(std::bit_cast<std::int64_t>(group.rests));
    const __m256i below = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pixels));
    const __m256i low =
        fourPixels(_mm256_shuffle_epi8(weights, lower), _mm256_shuffle_epi8(rests, lower),
                   _mm256_unpacklo_epi8(below, zero));
    const __m256i high =
        fourPixels(_mm256_shuffle_epi8(weights, upper), _mm256_shuffle_epi8(rests, upper),
                   _mm256_unpackhi_epi8(below, zero));
    const __m256i above = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(group.pixels));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pixels),
                        _mm256_add_epi8(above, _mm256_packus_epi16(low, high)));
  };
  layRows(stamp, ground, rows, eightPixels);
}

#endif

}  // namespace

std::span<LayStampRows* const> waysToLayStampRows() {
#ifdef __SSE2__
  static constexpr std::array<LayStampRows*, 3> ways{layRowsPlainly, layRowsBySse2, layRowsByAvx2};
  static const bool hasAvx2 = __builtin_cpu_supports("avx2");
  return std::span(ways).first(hasAvx2 ? 3 : 2);
#else
  static constexpr std::array<LayStampRows*, 1> ways{layRowsPlainly};
  return ways;
#endif
}

}  // namespace vexel
