#include "GlyphMasks.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <new>
#include <unordered_map>

namespace vexel {

namespace {

constexpr std::size_t kMaximumMasks = 4096;
constexpr CGFloat kMaximumSide = 96;

struct ShapeHash {
  std::size_t operator()(const GlyphShape& shape) const {
    std::size_t hash = std::hash<const void*>()(shape.font);
    const auto add = [&](std::size_t value) { hash = hash * 1099511628211u + value; };
    add(shape.glyph);
    for (const CGFloat v : {shape.linear.a, shape.linear.b, shape.linear.c, shape.linear.d})
      add(std::hash<CGFloat>()(v));
    for (const int phase : {shape.phaseX, shape.phaseY}) add(static_cast<std::size_t>(phase));
    return hash;
  }
};

struct FontRelease {
  void operator()(PangoFont* font) const { g_object_unref(font); }
};

struct KeptMask {
  // The font is part of the key: while it lives, no other has its address.
  std::unique_ptr<PangoFont, FontRelease> font;
  CoverageMask mask;
};

// The pixels around the origin that the ink of a glyph can reach.
CGRect inkBox(const GlyphShape& shape) {
  cairo_glyph_t glyph{shape.glyph, 0, 0};
  cairo_text_extents_t ink;
  cairo_scaled_font_glyph_extents(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(shape.font)),
                                  &glyph, 1, &ink);
  CGMutablePath box;
  box.addRect(CGRect::make(ink.x_bearing, ink.y_bearing, ink.width, ink.height));
  return box.transformed(shape.linear).boundingBox().insetBy(-2, -2);
}

CoverageMask render(const GlyphShape& shape, const CGRect& ink) {
  CoverageMask mask;
  mask.left = static_cast<int>(std::floor(ink.minX()));
  mask.top = static_cast<int>(std::floor(ink.minY()));
  mask.width = static_cast<int>(std::ceil(ink.maxX())) - mask.left;
  mask.height = static_cast<int>(std::ceil(ink.maxY())) - mask.top;

  const CairoSurfaceHandle surface(
      cairo_image_surface_create(CAIRO_FORMAT_A8, mask.width, mask.height));
  const CairoContextHandle context(cairo_create(surface.get()));
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, shape.linear.a, shape.linear.b, shape.linear.c, shape.linear.d,
                    shape.phaseX / 4.0 - mask.left, shape.phaseY / 4.0 - mask.top);
  cairo_set_matrix(context.get(), &matrix);
  addGlyphPath(context.get(), shape.font, shape.glyph);
  cairo_fill(context.get());
  if (cairo_status(context.get()) == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
  cairo_surface_flush(surface.get());

  const unsigned char* data = cairo_image_surface_get_data(surface.get());
  const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface.get());
  for (int y = 0; data && y < mask.height; ++y)
    mask.coverage.insert(mask.coverage.end(), data + y * stride, data + y * stride + mask.width);
  return mask;
}

}  // namespace

void addGlyphPath(cairo_t* context, PangoFont* font, std::uint32_t glyph) {
  cairo_set_scaled_font(context, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)));
  const cairo_glyph_t placed{glyph, 0, 0};
  cairo_glyph_path(context, &placed, 1);
}

const CoverageMask* glyphMask(const GlyphShape& shape) {
  thread_local std::unordered_map<GlyphShape, KeptMask, ShapeHash> masks;
  if (const auto known = masks.find(shape); known != masks.end()) return &known->second.mask;
  const CGRect ink = inkBox(shape);
  // A comparison with NaN is false.
  if (!(ink.size.width <= kMaximumSide && ink.size.height <= kMaximumSide)) return nullptr;
  if (masks.size() >= kMaximumMasks) masks.clear();
  KeptMask kept;
  kept.font.reset(PANGO_FONT(g_object_ref(shape.font)));
  kept.mask = render(shape, ink);
  return &masks.emplace(shape, std::move(kept)).first->second.mask;
}

}  // namespace vexel
