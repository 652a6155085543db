#pragma once

#include <cairo.h>

#include <memory>

namespace vexel {

struct CairoRelease {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};

using CairoContextHandle = std::unique_ptr<cairo_t, CairoRelease>;
using CairoSurfaceHandle = std::unique_ptr<cairo_surface_t, CairoRelease>;
using CairoPatternHandle = std::unique_ptr<cairo_pattern_t, CairoRelease>;

}  // namespace vexel
