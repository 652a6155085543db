#include "ZlibStream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <memory>
#include <random>
#include <string>

namespace vexel {
namespace {

constexpr std::size_t kPiece = 1 << 16;

std::string randomBytes(std::size_t count) {
  std::mt19937 random(3);
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += static_cast<char>(random() % 40);
  return bytes;
}

std::string compressed(std::string_view bytes, ZlibStream& stream) {
  std::string result;
  stream.add(bytes, true, [&](std::string_view piece) { result += piece; });
  return result;
}

// ISA-L's other half also checks the sum at the end.
std::string inflated(std::string compressed, std::size_t count) {
  inflate_state state;
  isal_inflate_init(&state);
  state.crc_flag = ISAL_ZLIB;
  state.next_in = reinterpret_cast<std::uint8_t*>(compressed.data());
  state.avail_in = static_cast<std::uint32_t>(compressed.size());
  std::string bytes(count + 1, '\0');
  state.next_out = reinterpret_cast<std::uint8_t*>(bytes.data());
  state.avail_out = static_cast<std::uint32_t>(bytes.size());
  EXPECT_EQ(isal_inflate(&state), ISAL_DECOMP_OK);
  EXPECT_EQ(state.block_state, ISAL_BLOCK_FINISH);
  EXPECT_EQ(state.avail_in, 0);
  bytes.resize(state.total_out);
  return bytes;
}

class ZlibStreamOfSize : public testing::TestWithParam<std::size_t> {};

TEST_P(ZlibStreamOfSize, GivesTheBytesBackThatItTook) {
  const std::string bytes = randomBytes(GetParam());
  for (const std::size_t piece : {64u, 1000u, 1u << 16}) {
    ZlibStream stream(piece);
    EXPECT_EQ(inflated(compressed(bytes, stream), bytes.size()), bytes) << piece;
  }
}

TEST_P(ZlibStreamOfSize, TakesThemInManyCalls) {
  const std::string bytes = randomBytes(GetParam());
  const std::size_t part = std::max<std::size_t>(4, GetParam() / 7);
  ZlibStream stream(kPiece);
  std::string result;
  const auto take = [&](std::string_view piece) { result += piece; };
  std::string_view rest = bytes;
  for (; rest.size() > part; rest.remove_prefix(part))
    stream.add(rest.substr(0, part), false, take);
  stream.add(rest, true, take);
  EXPECT_EQ(inflated(result, bytes.size()), bytes);
}

INSTANTIATE_TEST_SUITE_P(ZlibStream, ZlibStreamOfSize,
                         testing::Values(0, 1, 3, 4, 7, 8, 9, 16, 300, 70'000, 2'200'000));

TEST(ZlibStream, GivesPiecesOfTheSizeAskedForAndTheRest) {
  ZlibStream stream(1000);
  std::vector<std::size_t> sizes;
  stream.add(randomBytes(20'000), true,
             [&](std::string_view piece) { sizes.push_back(piece.size()); });
  ASSERT_GT(sizes.size(), 2);
  const std::size_t last = sizes.back();
  sizes.pop_back();
  EXPECT_THAT(sizes, testing::Each(1000));
  EXPECT_LE(last, 1000);
}

TEST(ZlibStream, BeginsAnotherStreamAfterTheLastBytes) {
  ZlibStream stream(kPiece);
  const std::string bytes = randomBytes(5000);
  const std::string first = compressed(bytes, stream);
  compressed("something else, which is forgotten again", stream);
  EXPECT_EQ(compressed(bytes, stream), first);
}

// Where ISA-L keeps the place of these four bytes.
std::uint32_t placeInTable(std::uint32_t bytes) {
  for (int i = 0; i < 32; ++i) bytes = bytes >> 1 ^ (bytes & 1 ? 0x82f63b78u : 0);
  return bytes & 8191;
}

// ISA-L has kept the place of the bytes from the third on as if they were those of an address.
TEST(ZlibStream, GivesTheSameAtEveryAddress) {
  constexpr std::size_t kStep = 1 << 16;
  static_assert(sizeof(ZlibStream) < 2 * kStep);
  const auto memory = std::make_unique<std::byte[]>(6 * kStep);
  void* const at = memory.get();
  void* const elsewhere = memory.get() + 3 * kStep;

  const auto address = static_cast<std::uint32_t>(std::bit_cast<std::uintptr_t>(at) >> 16);
  std::string third;
  for (std::uint32_t bytes = 0x01020304; third.empty(); ++bytes)
    if (placeInTable(bytes) == placeInTable(address))
      third.assign(reinterpret_cast<const char*>(&bytes), sizeof bytes);
  const std::string bytes = "ab" + third + "cdefghijklmnopqrstuvwxyzABCDEFGHIJKLM" + third +
                            "cdefghijklmnop" + std::string(1000, '.');

  const auto destroy = [](ZlibStream* stream) { std::destroy_at(stream); };
  using Placed = std::unique_ptr<ZlibStream, decltype(destroy)>;
  const Placed one(new (at) ZlibStream(kPiece), destroy);
  const Placed other(new (elsewhere) ZlibStream(kPiece), destroy);
  EXPECT_EQ(compressed(bytes, *one), compressed(bytes, *other));
}

}  // namespace
}  // namespace vexel
