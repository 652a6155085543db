#pragma once

#include <CoreGraphics/CGContext.h>

#include "CairoCanvas.h"

namespace vexel {

/// One of the public context classes, with most of its drawing done by a CairoCanvas.
template <class Interface>
class CairoContext : public Interface {
 public:
  explicit CairoContext(CairoCanvas canvas) : canvas_(std::move(canvas)) {}

  void saveState() override { canvas_.saveState(); }
  void restoreState() override { canvas_.restoreState(); }
  void concatenate(const CGAffineTransform& transform) override { canvas_.concatenate(transform); }
  void clip(const CGPath& path) override { canvas_.clip(path); }
  using CGContext::clip;
  void stroke(const CGPath& path, const CGStrokeStyle& style) override {
    canvas_.stroke(path, style);
  }
  void fill(const CGPath& path, const CGColor& color) override { canvas_.fill(path, color); }
  void drawImage(const CGImage& image, const CGRect& rect) override {
    canvas_.drawImage(image, rect);
  }
  CGSize measure(const CGText& text) override { return sharedTextMeasure().measure(text); }

 protected:
  CairoCanvas canvas_;
};

}  // namespace vexel
