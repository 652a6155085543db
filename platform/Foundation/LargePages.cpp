#include <Foundation/LargePages.h>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace vexel {

namespace {

constexpr std::size_t kHugePage = 1 << 21;
constexpr std::size_t kFewestHugePages = 2;

}  // namespace

void* allocateLargePages(std::size_t bytes) noexcept {
  if (bytes < kFewestHugePages * kHugePage) return std::malloc(bytes);
  const std::size_t rest = bytes % kHugePage;
  if (bytes > std::numeric_limits<std::size_t>::max() - kHugePage) return nullptr;
  void* const memory = std::aligned_alloc(kHugePage, rest == 0 ? bytes : bytes - rest + kHugePage);
#ifdef __linux__
  // A hint. Small pages do as well for the end of the memory, unless they are many.
  const std::size_t pages = (bytes + kHugePage / 2) / kHugePage;
  if (memory) madvise(memory, pages * kHugePage, MADV_HUGEPAGE);
#endif
  return memory;
}

}  // namespace vexel
