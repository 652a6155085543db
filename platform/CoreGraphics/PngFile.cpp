#include "PngFile.h"

#include <libdeflate.h>

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

namespace vexel {

namespace {

// Figures are plain areas and thin lines: each row is much like the one above. More effort takes
// longer and makes files a few percent smaller.
constexpr std::uint8_t kFilterUp = 2;
constexpr int kEffort = 3;

constexpr std::uint8_t kTypeRGB = 2;
constexpr std::uint8_t kTypeRGBA = 6;

struct FreeCompressor {
  void operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
  }
};

void appendNumber(std::string& bytes, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
}

void appendChunk(std::string& file, const char (&type)[5], std::string_view data) {
  appendNumber(file, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = file.size();
  file.append(type, 4);
  file += data;
  appendNumber(file, libdeflate_crc32(0, file.data() + start, file.size() - start));
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

std::uint8_t plainComponent(std::uint32_t premultiplied, std::uint32_t alpha) {
  return static_cast<std::uint8_t>((premultiplied * 255 + alpha / 2) / alpha);
}

std::uint8_t* writePixel(std::uint8_t* to, std::uint32_t pixel, bool hasAlpha) {
  const std::uint32_t alpha = pixel >> 24;
  std::uint8_t components[] = {static_cast<std::uint8_t>(pixel >> 16),
                               static_cast<std::uint8_t>(pixel >> 8),
                               static_cast<std::uint8_t>(pixel)};
  if (alpha != 0 && alpha != 255)
    for (std::uint8_t& component : components) component = plainComponent(component, alpha);
  to = std::copy_n(components, 3, to);
  if (hasAlpha) *to++ = static_cast<std::uint8_t>(alpha);
  return to;
}

/// The rows, each behind its filter and as the difference to the row above.
std::vector<std::uint8_t> filteredRows(std::span<const std::uint32_t> pixels, int width,
                                       bool hasAlpha) {
  const std::size_t rowPixels = static_cast<std::size_t>(width);
  const std::size_t rowBytes = rowPixels * (hasAlpha ? 4 : 3);
  std::vector<std::uint8_t> filtered(pixels.size() / rowPixels * (1 + rowBytes));
  std::vector<std::uint8_t> above(rowBytes, 0), row(rowBytes);
  std::uint8_t* to = filtered.data();
  for (; !pixels.empty(); pixels = pixels.subspan(rowPixels)) {
    std::uint8_t* end = row.data();
    for (const std::uint32_t pixel : pixels.first(rowPixels))
      end = writePixel(end, pixel, hasAlpha);
    *to++ = kFilterUp;
    to = std::transform(
        row.begin(), row.end(), above.begin(), to,
        [](std::uint8_t a, std::uint8_t b) { return static_cast<std::uint8_t>(a - b); });
    above.swap(row);
  }
  return filtered;
}

std::string compressed(const std::vector<std::uint8_t>& bytes) {
  const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
      libdeflate_alloc_compressor(kEffort));
  if (!compressor) throw std::bad_alloc();
  std::string result(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()), '\0');
  result.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(),
                                         result.data(), result.size()));
  return result;
}

}  // namespace

std::string pngFile(std::span<const std::uint32_t> pixels, int width, int height) {
  const bool hasAlpha = std::any_of(pixels.begin(), pixels.end(),
                                    [](std::uint32_t pixel) { return pixel >> 24 != 255; });
  std::string file = "\x89PNG\r\n\x1a\n";
  appendChunk(file, "IHDR", header(width, height, hasAlpha ? kTypeRGBA : kTypeRGB));
  appendChunk(file, "IDAT", compressed(filteredRows(pixels, width, hasAlpha)));
  appendChunk(file, "IEND", {});
  return file;
}

}  // namespace vexel
