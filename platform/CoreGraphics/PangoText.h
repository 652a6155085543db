#pragma once

#include <cairo.h>
#include <pango/pango.h>

#include <memory>

#include <CoreGraphics/CGText.h>

namespace vexel {

struct PangoRelease {
  void operator()(PangoLayout* layout) const { g_object_unref(layout); }
};

/// Text whose lines and glyphs have been placed. Positions are those of an unhinted font at one
/// unit per point, whatever surface the text is shown on.
class PangoText {
 public:
  explicit PangoText(const CGText& text);

  CGSize size() const { return size_; }
  /// Distance of the first line's baseline from the top, in points.
  CGFloat baseline() const { return baseline_; }
  /// Shows the text in the present coordinates of `context`, which run downwards here, with its
  /// top-left corner at (0, 0).
  void show(cairo_t* context) const;

  /// The laid out form of `text`, kept by the calling thread while it is among those lately used.
  static std::shared_ptr<const PangoText> layout(const CGText& text);

 private:
  std::unique_ptr<PangoLayout, PangoRelease> layout_;
  CGSize size_;
  CGFloat baseline_ = 0;
};

}  // namespace vexel
