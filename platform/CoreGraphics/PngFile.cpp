#include "PngFile.h"

#include <isa-l/crc.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "ZlibStream.h"

namespace vexel {

namespace {

// Figures are plain areas and thin lines: each row is much like the one above.
constexpr std::uint8_t kFilterUp = 2;
// Of filtered rows compressed at once.
constexpr std::size_t kBlockBytes = 1 << 16;
// Of the file in one chunk.
constexpr std::size_t kPieceBytes = 1 << 16;
// Pixels compared with those above at once.
constexpr std::size_t kRun = 8;

constexpr std::uint32_t kOpaque = 0xff000000u;

constexpr std::uint8_t kTypeRGB = 2;
constexpr std::uint8_t kTypeRGBA = 6;

void appendNumber(std::string& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
}

void appendChunk(std::string& file, const char (&type)[5], std::string_view data) {
  appendNumber(file, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = file.size();
  file.append(type, 4);
  file += data;
  const auto* const checked = reinterpret_cast<const std::uint8_t*>(file.data() + start);
  appendNumber(file, crc32_gzip_refl(0, checked, file.size() - start));
}

std::string header(int width, int height, std::uint8_t type) {
  std::string data;
  appendNumber(data, static_cast<std::uint32_t>(width));
  appendNumber(data, static_cast<std::uint32_t>(height));
  // Bits per sample, type, and the only methods of compression, filtering and interlacing.
  for (const std::uint8_t byte :
       {std::uint8_t{8}, type, std::uint8_t{0}, std::uint8_t{0}, std::uint8_t{0}})
    data += static_cast<char>(byte);
  return data;
}

std::uint32_t plainComponent(std::uint32_t premultiplied, std::uint32_t alpha) {
  return (premultiplied * 255 + alpha / 2) / alpha;
}

/// The pixel with colours that are not multiplied by its alpha.
std::uint32_t plainPixel(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  if (alpha == 0 || alpha == 255) return pixel;
  return alpha << 24 | plainComponent(pixel >> 16 & 255, alpha) << 16 |
         plainComponent(pixel >> 8 & 255, alpha) << 8 | plainComponent(pixel & 255, alpha);
}

/// The difference of each byte, whatever the others are.
std::uint32_t bytesMinus(std::uint32_t a, std::uint32_t b) {
  return ((a | 0x80808080u) - (b & 0x7f7f7f7fu)) ^ ((a ^ ~b) & 0x80808080u);
}

/// In memory: red, green, blue, alpha.
std::uint32_t redFirst(std::uint32_t pixel) {
  static_assert(std::endian::native == std::endian::little);
  return __builtin_bswap32(std::rotl(pixel, 8));
}

/// Whether kRun pixels are.
bool areEqual(const std::uint32_t* a, const std::uint32_t* b) {
  using Words = std::uint64_t __attribute__((vector_size(16)));
  constexpr std::size_t kWords = kRun * sizeof *a / sizeof(Words);
  Words ofA[kWords], ofB[kWords], differences{};
  std::memcpy(ofA, a, sizeof ofA);
  std::memcpy(ofB, b, sizeof ofB);
  for (std::size_t i = 0; i < kWords; ++i) differences |= ofA[i] ^ ofB[i];
  return (differences[0] | differences[1]) == 0;
}

/// Writes a row of plain pixels as the difference to the row above, red first; of four bytes, or of
/// three for pixels that are opaque. `to` has room for four bytes behind its end. Null when pixels
/// of three bytes are not all opaque, as they are in the row above.
template <std::size_t kBytes>
std::uint8_t* writeRow(std::span<const std::uint32_t> row, const std::uint32_t* above,
                       std::uint8_t* to) {
  std::uint32_t all = kOpaque;
  for (std::size_t i = 0; i < row.size();) {
    const std::size_t run = std::min(kRun, row.size() - i);
    if (run == kRun && areEqual(&row[i], above + i)) {
      std::memset(to, 0, kRun * kBytes);
      to += kRun * kBytes;
      i += kRun;
      continue;
    }
    for (const std::size_t end = i + run; i < end; ++i, to += kBytes) {
      all &= row[i];
      const std::uint32_t bytes = redFirst(bytesMinus(row[i], above[i]));
      std::memcpy(to, &bytes, sizeof bytes);
    }
  }
  return kBytes == 4 || all == kOpaque ? to : nullptr;
}

/// Empty when pixels of three bytes are not all opaque.
template <std::size_t kBytes>
std::string fileOf(std::span<const std::uint32_t> pixels, int width, int height) {
  constexpr bool kHasAlpha = kBytes == 4;
  std::string file = "\x89PNG\r\n\x1a\n";
  // Of most figures: growing would copy it.
  file.reserve(pixels.size_bytes() / 10);
  appendChunk(file, "IHDR", header(width, height, kHasAlpha ? kTypeRGBA : kTypeRGB));

  const auto rowPixels = static_cast<std::size_t>(width);
  const std::size_t rowBytes = 1 + rowPixels * kBytes;
  const std::size_t rowsInBlock = std::max<std::size_t>(1, kBlockBytes / rowBytes);
  std::vector<std::uint8_t> block(rowsInBlock * rowBytes + 4);
  std::vector<std::uint32_t> plain(kHasAlpha ? rowPixels : 0);
  std::vector<std::uint32_t> above(rowPixels, kHasAlpha ? 0 : kOpaque);
  const std::uint32_t* aboveRow = above.data();
  ZlibStream compressed(kPieceBytes);
  const auto appendPiece = [&](std::string_view piece) { appendChunk(file, "IDAT", piece); };
  std::uint8_t* to = block.data();
  for (int y = 0; y < height; ++y) {
    const auto row = pixels.subspan(static_cast<std::size_t>(y) * rowPixels, rowPixels);
    *to++ = kFilterUp;
    if constexpr (kHasAlpha) {
      std::transform(row.begin(), row.end(), plain.begin(), plainPixel);
      to = writeRow<kBytes>(plain, aboveRow, to);
      above.swap(plain);
      aboveRow = above.data();
    } else {
      to = writeRow<kBytes>(row, aboveRow, to);
      if (!to) return {};
      aboveRow = row.data();
    }
    const auto filled = static_cast<std::size_t>(to - block.data());
    if (filled + rowBytes + 4 <= block.size() && y + 1 < height) continue;
    compressed.add({reinterpret_cast<const char*>(block.data()), filled}, y + 1 == height,
                   appendPiece);
    to = block.data();
  }
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace

std::string pngFile(std::span<const std::uint32_t> pixels, int width, int height) {
  std::string file = fileOf<3>(pixels, width, height);
  if (file.empty()) file = fileOf<4>(pixels, width, height);
  return file;
}

}  // namespace vexel
