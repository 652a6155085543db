#include "PixelSurface.h"

#include <cstddef>
#include <cstdlib>
#include <memory>

#include <Foundation/LargePages.h>

namespace vexel {

namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

}  // namespace

CairoSurfaceHandle pixelSurface(int width, int height) {
  static const cairo_user_data_key_t kMemory{};
  const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_ARGB32, width);
  if (stride < 0 || height < 0) return nullptr;
  const auto bytes = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
  std::unique_ptr<void, Free> memory(allocateLargePages(bytes));
  if (!memory) return nullptr;
  CairoSurfaceHandle surface(cairo_image_surface_create_for_data(
      static_cast<unsigned char*>(memory.get()), CAIRO_FORMAT_ARGB32, width, height, stride));
  if (cairo_surface_set_user_data(surface.get(), &kMemory, memory.get(), std::free) !=
      CAIRO_STATUS_SUCCESS)
    return nullptr;
  static_cast<void>(memory.release());
  return surface;
}

}  // namespace vexel
