#include "ZlibStream.h"

#include <algorithm>

namespace vexel {

namespace {

// Files are a few percent larger than with ten times the time.
constexpr std::uint32_t kEffort = 1;
// ISA-L files the third byte of a stream for later comparisons under the address of `isal_zstream`,
// instead of its value, unless so few bytes are flushed first that it takes its careful path.
constexpr std::size_t kFirstBytes = 8;
// Counted in 32 bits there.
constexpr std::size_t kMostBytes = 1 << 20;

}  // namespace

ZlibStream::ZlibStream(std::size_t pieceBytes) : piece_(pieceBytes) {
  begin();
}

void ZlibStream::begin() {
  isal_deflate_init(&stream_);
  stream_.gzip_flag = IGZIP_ZLIB;
  stream_.level = kEffort;
  stream_.level_buf = levelBuffer_.data();
  stream_.level_buf_size = static_cast<std::uint32_t>(levelBuffer_.size());
  stream_.next_out = piece_.data();
  stream_.avail_out = static_cast<std::uint32_t>(piece_.size());
}

void ZlibStream::add(std::string_view bytes, bool isLast, const Take& take) {
  if (stream_.total_in == 0 && bytes.size() > kFirstBytes) {
    compress(bytes.substr(0, kFirstBytes), SYNC_FLUSH, false, take);
    bytes.remove_prefix(kFirstBytes);
  }
  for (; bytes.size() > kMostBytes; bytes.remove_prefix(kMostBytes))
    compress(bytes.substr(0, kMostBytes), NO_FLUSH, false, take);
  compress(bytes, NO_FLUSH, isLast, take);
  if (!isLast) return;
  give(take);
  begin();
}

void ZlibStream::compress(std::string_view bytes, std::uint16_t flush, bool isLast,
                          const Take& take) {
  // It only reads them.
  stream_.next_in = reinterpret_cast<std::uint8_t*>(const_cast<char*>(bytes.data()));
  stream_.avail_in = static_cast<std::uint32_t>(bytes.size());
  stream_.flush = flush;
  stream_.end_of_stream = isLast ? 1 : 0;
  do {
    if (stream_.avail_out == 0) give(take);
    isal_deflate(&stream_);
  } while (stream_.avail_in > 0 || stream_.avail_out == 0 ||
           (isLast && stream_.internal_state.state != ZSTATE_END));
}

void ZlibStream::give(const Take& take) {
  const std::size_t size = piece_.size() - stream_.avail_out;
  if (size > 0) take({reinterpret_cast<const char*>(piece_.data()), size});
  stream_.next_out = piece_.data();
  stream_.avail_out = static_cast<std::uint32_t>(piece_.size());
}

}  // namespace vexel
