#pragma once

#include <CoreGraphics/CGContext.h>

#include "CairoBitmapContext.h"

namespace vexel {

/// Pixels kept in a surface of their own, whose device coordinates are those of the bitmap that
/// it was made for.
class CairoLayer final : public CGLayer {
 public:
  /// The canvas has the transform that the bitmap has now.
  CairoLayer(CairoCanvas canvas, CGFloat backingScale);

  CGContext& context() override { return context_; }
  bool fits(const CGContext& target) const override;

  /// Lays the pixels over a canvas that they fit.
  void drawOnto(CairoCanvas& canvas) const;

 private:
  CGAffineTransform made_;
  CairoBitmapContext context_;
};

}  // namespace vexel
