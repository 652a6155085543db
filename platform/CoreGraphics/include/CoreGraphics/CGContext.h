#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include <CoreGraphics/CGAffineTransform.h>
#include <CoreGraphics/CGImage.h>
#include <CoreGraphics/CGPath.h>
#include <CoreGraphics/CGPixels.h>
#include <CoreGraphics/CGRect.h>
#include <CoreGraphics/CGStrokeStyle.h>
#include <CoreGraphics/CGSymbolStyle.h>
#include <CoreGraphics/CGText.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CGLayer;

/// A surface that is drawn on, in points with y up. Drawing takes the current transform and
/// clip. Coordinates that are not finite draw nothing.
///
/// Without memory a drawing call throws std::bad_alloc or draws nothing, and then the bytes of the
/// surface cannot be had: pngData() and finish() throw CGContextError. restoreState() never throws.
class VEXEL_API CGContext : public CGTextMeasure {
 public:
  /// Keeps transform and clip for the matching restoreState(); they nest.
  virtual void saveState() = 0;
  /// Without a matching saveState() it does nothing.
  virtual void restoreState() = 0;
  /// Coordinates are taken through `transform` first, then through what was set before.
  virtual void concatenate(const CGAffineTransform& transform) = 0;
  /// Narrows the clip to its part inside the shape. On bitmaps an upright rectangle takes in every
  /// pixel that it touches.
  virtual void clip(const CGPath& path) = 0;

  /// Draws along the path with a pen that the present transform takes, too.
  virtual void stroke(const CGPath& path, const CGStrokeStyle& style) = 0;
  /// Fills by the non-zero rule.
  virtual void fill(const CGPath& path, const CGColor& color) = 0;
  /// Fills a rectangle whose edges are moved to the nearest pixel edges of a bitmap, so that
  /// neighbours neither overlap nor leave a seam; on vector surfaces a plain fill.
  virtual void fillAligned(const CGRect& rect, const CGColor& color) = 0;
  /// Stretches the image over the rectangle, its top row at the top edge.
  virtual void drawImage(const CGImage& image, const CGRect& rect) = 0;
  /// Draws text into the box that measure() gives, with its bottom-left corner at `origin`.
  /// On bitmaps, lines of text that run horizontally or vertically are moved to whole pixels
  /// across their direction, so that all are equally crisp.
  virtual void drawText(const CGText& text, CGPoint origin) = 0;

  /// The same small path stroked and filled with its origin at each of the centres, in their
  /// order; either may be absent (null). Bitmaps may place each by up to a sixteenth of a pixel
  /// beside its centre.
  virtual void drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                           const CGStrokeStyle* strokeStyle, std::span<const CGPoint> centers);
  /// The same in a style for each centre, given as its place in `styles`: as many places as there
  /// are centres, each of them inside.
  virtual void drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                                 std::span<const std::uint32_t> styleOfCenter,
                                 std::span<const CGPoint> centers);

  /// Lends the pixels to `draw`, which may blend into them what no path describes. False, and
  /// nothing is called, when there are none (vector surfaces, recordings) or the clip is not a
  /// rectangle of whole pixels.
  virtual bool drawOnPixels(const std::function<void(const CGPixels&)>& draw);

  /// An empty transparent layer of the resolution of this context that covers `rect` of the
  /// present coordinates, or null when the context has no pixels to keep (vector surfaces,
  /// recordings) or there is no memory. Layers exist for contexts that are moved and scaled but not
  /// rotated.
  virtual std::unique_ptr<CGLayer> makeLayer(const CGRect& rect);
  /// Whether what is drawn is for a file and no second drawing will follow, so that keeping
  /// pictures of parts of it is a waste.
  virtual bool isDrawnOnce() const { return false; }
  /// Lays a layer over the place it was made for, seen in the present coordinates, pixel by
  /// pixel. A layer that does not fit this context draws nothing.
  virtual void drawLayer(const CGLayer& layer);

  /// concatenate() with the transform of that name; the angle is in radians, counter-clockwise.
  void translate(CGFloat tx, CGFloat ty) { concatenate(CGAffineTransform::translation(tx, ty)); }
  void rotate(CGFloat angle) { concatenate(CGAffineTransform::rotation(angle)); }
  void scale(CGFloat sx, CGFloat sy) { concatenate(CGAffineTransform::scale(sx, sy)); }
  /// Narrows the clip to its part inside the rectangle.
  void clip(const CGRect& rect);
};

/// Saves the state of a context for as long as it lives.
class VEXEL_API CGSavedState {
 public:
  /// Saves the state; the context must live longer.
  explicit CGSavedState(CGContext& context) : context_(context) { context_.saveState(); }
  ~CGSavedState() { context_.restoreState(); }
  CGSavedState(const CGSavedState&) = delete;
  CGSavedState& operator=(const CGSavedState&) = delete;

 private:
  CGContext& context_;
};

/// Pixels kept from an earlier drawing. Drawn into through `context()`, whose coordinates are
/// those that the parent context had when the layer was made.
class VEXEL_API CGLayer {
 public:
  virtual ~CGLayer() = default;
  /// What draws into the layer; owned by it.
  virtual CGContext& context() = 0;
  /// Whether drawLayer() on `target`, with its present transform and size of pixels, would put
  /// the kept pixels exactly onto pixels of the target.
  virtual bool fits(const CGContext& target) const = 0;
};

}  // namespace vexel
