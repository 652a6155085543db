#include <Foundation/LargePages.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <vector>

namespace vexel {
namespace {

constexpr std::size_t kHugePage = 1 << 21;

TEST(LargePages, BeginOnAHugePageWhereTheyAreLarge) {
  for (const std::size_t bytes : {std::size_t{1}, kHugePage, 2 * kHugePage - 1, 2 * kHugePage,
                                  2 * kHugePage + 1, 10 * kHugePage - 7}) {
    const std::unique_ptr<void, decltype(&std::free)> memory(allocateLargePages(bytes), std::free);
    ASSERT_TRUE(memory) << bytes;
    if (bytes >= 2 * kHugePage) {
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.get()) % kHugePage, 0u) << bytes;
    }
    static_cast<char*>(memory.get())[0] = 1;
    static_cast<char*>(memory.get())[bytes - 1] = 2;
  }
}

TEST(LargePages, AreNullWhereThereIsNoMemory) {
  constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
  for (const std::size_t bytes : {kMost, kMost - kHugePage, kMost / 2})
    EXPECT_EQ(allocateLargePages(bytes), nullptr) << bytes;
}

TEST(LargePages, HoldTheElementsOfVectors) {
  std::vector<int, LargePages<int>> numbers;
  for (int i = 0; i < 3'000'000; ++i) numbers.push_back(i);
  numbers.resize(4'000'000, 7);
  EXPECT_EQ(numbers[2'999'999], 2'999'999);
  EXPECT_EQ(numbers.back(), 7);
  EXPECT_THROW((std::vector<int, LargePages<int>>(numbers.max_size())), std::bad_alloc);
}

}  // namespace
}  // namespace vexel
