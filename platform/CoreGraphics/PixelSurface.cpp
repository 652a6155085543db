#include "PixelSurface.h"

#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace vexel {

namespace {

constexpr std::size_t kHugePage = 1 << 21;
constexpr std::size_t kFewestHugePages = 2;

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
using Memory = std::unique_ptr<void, Free>;

/// Where the pixels begin in memory that has room for one huge page more. The system hands out the
/// 6 MB of a figure in 1,500 small pages, which takes longer than drawing on them, or in three huge
/// ones.
void* hugePages(void* memory, std::size_t bytes) {
  std::size_t space = bytes + kHugePage;
  void* const begin = std::align(kHugePage, bytes, memory, space);
  // A hint: small pages do as well.
  madvise(begin, bytes - bytes % kHugePage, MADV_HUGEPAGE);
  return begin;
}

}  // namespace

CairoSurfaceHandle pixelSurface(int width, int height) {
  static const cairo_user_data_key_t kMemory{};
  const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
  if (stride < 0 || height < 0) return nullptr;
  const auto bytes = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
  const bool isLarge = bytes >= kFewestHugePages * kHugePage;
  Memory memory(std::malloc(isLarge ? bytes + kHugePage : bytes));
  if (!memory) return nullptr;
  void* const pixels = isLarge ? hugePages(memory.get(), bytes) : memory.get();
  CairoSurfaceHandle surface(cairo_image_surface_create_for_data(
      static_cast<unsigned char*>(pixels), CAIRO_FORMAT_ARGB32, width, height, stride));
  if (cairo_surface_set_user_data(surface.get(), &kMemory, memory.get(), std::free) !=
      CAIRO_STATUS_SUCCESS)
    return nullptr;
  static_cast<void>(memory.release());
  return surface;
}

}  // namespace vexel
