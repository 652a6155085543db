#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/PixelRect.h>

#include "CairoHandles.h"
#include "PlacedText.h"

namespace vexel {

/// Drawing with Cairo as all its surfaces share it: the state of a CGContext and its operations.
///
/// Transforms are kept here and paths are given to Cairo in coordinates of the surface ("device":
/// pixels or points, y down), after coordinates that it cannot hold have been cut away. So the
/// Cairo context never gets into an error state by what is drawn.
class CairoCanvas {
 public:
  enum class Surface { pixels, pdf };

  /// `toDevice` maps points to the surface, which shows `visible` of the device; `page` is the
  /// part of the device beyond which no surface shows anything.
  CairoCanvas(CairoSurfaceHandle surface, Surface kind, const CGAffineTransform& toDevice,
              const CGRect& visible, const CGRect& page);

  void saveState();
  void restoreState();
  void concatenate(const CGAffineTransform& transform);
  void clip(const CGPath& path);
  void stroke(const CGPath& path, const CGStrokeStyle& style);
  void fill(const CGPath& path, const CGColor& color);
  void fillAligned(const CGRect& rect, const CGColor& color);
  /// The same for opaque colours on 32-bit pixels, without Cairo. False, and nothing is drawn,
  /// where Cairo is needed.
  bool fillPlain(const CGRect& rect, const CGColor& color);
  /// Makes all of a surface's 32-bit pixels transparent, whatever they are.
  void clear();
  void drawImage(const CGImage& image, const CGRect& rect);
  void drawText(const CGText& text, CGPoint origin);

  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers);

  /// The layout of a text and the way to the device; no layout when nothing of it can be seen.
  PlacedText placedText(const CGText& text, CGPoint origin) const;
  /// Shows text as text of the surface.
  void show(const PlacedText& text);
  /// Fills the outline of one glyph whose origin `toDevice` maps from (0, 0).
  void fillGlyph(const PlacedGlyph& glyph, const CGAffineTransform& toDevice);

  /// With everything drawn.
  cairo_surface_t* surface() const;
  const CGAffineTransform& transform() const { return state_.transform; }
  /// A rectangle around everything that the clip leaves visible, in device coordinates.
  const CGRect& clipBox() const { return state_.clipBox; }
  /// Whether the clip is that very rectangle.
  bool clipIsRectangle() const { return state_.clipIsRectangle; }
  /// What the surface shows of the device.
  const CGRect& visible() const { return visible_; }
  const CGRect& page() const { return page_; }
  /// False when the transform has no inverse: nothing is drawn.
  bool isDrawable() const;

  /// Whether a plain fill has covered everything: no pixel will ever be transparent again.
  bool isOpaque() const { return isOpaque_; }

  /// Paints a surface of the same pixels, its own coordinates moved by whole pixels.
  void drawSurface(cairo_surface_t* source, CGFloat dx, CGFloat dy);

  /// Stretches a surface of one pixel over the whole page.
  void paintOverPage(cairo_surface_t* pixel);

  /// The first failure of what was drawn so far.
  cairo_status_t status() const { return cairo_status(cairo_.get()); }
  /// Ends drawing for good. Gives the state of the Cairo context.
  cairo_status_t finish();

 private:
  struct State {
    CGAffineTransform transform;
    CGRect clipBox;
    bool clipIsRectangle = true;
  };

  struct PlainFill {
    PixelRect box;  // of the device
    std::uint32_t pixel;
  };

  void finishFill() const;
  void setPath(const CGPath& devicePath);
  void setColor(const CGColor& color);
  void setMatrix(const CGAffineTransform& transform);
  /// False, and nothing is drawn, where Cairo is needed.
  bool strokeAligned(const CGPath& devicePath, const CGStrokeStyle& style, CGFloat width);
  void strokePath(const CGPath& devicePath, const CGStrokeStyle& style, CGFloat lengthBefore);
  bool isAxisAligned() const;
  void paintImage(const CGImage& image, const CGAffineTransform& imageToDevice,
                  const CGPath& deviceArea);

  CairoSurfaceHandle surface_;
  CairoContextHandle cairo_;
  Surface kind_;
  CGRect visible_;
  CGRect page_;
  State state_;
  std::vector<State> saved_;
  // Not in the pixels yet: what the next one hides of it is never written.
  mutable std::optional<PlainFill> plainFill_;
  bool isOpaque_ = false;
};

}  // namespace vexel
