#pragma once

#include <isa-l/igzip_lib.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace vexel {

/// Compresses bytes into zlib's format, fast. What comes out depends on nothing but the bytes and
/// how they are divided into calls.
class ZlibStream {
 public:
  using Take = std::function<void(std::string_view)>;

  /// Gives what it has compressed in pieces of `pieceBytes`. Throws std::bad_alloc.
  explicit ZlibStream(std::size_t pieceBytes);
  ZlibStream(const ZlibStream&) = delete;
  ZlibStream& operator=(const ZlibStream&) = delete;

  /// Takes further `bytes`, at least four unless they are the last, and gives what is ready. With
  /// `isLast` it gives the rest, too, and the next call begins another stream.
  void add(std::string_view bytes, bool isLast, const Take& take);

 private:
  void begin();
  void compress(std::string_view bytes, std::uint16_t flush, bool isLast, const Take& take);
  void give(const Take& take);

  isal_zstream stream_;
  // Small blocks fit figures best.
  std::vector<std::uint8_t> levelBuffer_ = std::vector<std::uint8_t>(ISAL_DEF_LVL1_SMALL);
  std::vector<std::uint8_t> piece_;
};

}  // namespace vexel
