#pragma once

#include <CoreGraphics/CGContext.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Draws nothing, for timing and for tests that only want the side effects of drawing. Text is
/// measured as on any surface.
class VEXEL_API CGNullContext : public CGContext {
 public:
  void saveState() override {}
  void restoreState() override {}
  void concatenate(const CGAffineTransform&) override {}
  void clip(const CGPath&) override {}
  using CGContext::clip;
  void stroke(const CGPath&, const CGStrokeStyle&) override {}
  void fill(const CGPath&, const CGColor&) override {}
  void fillAligned(const CGRect&, const CGColor&) override {}
  void drawImage(const CGImage&, const CGRect&) override {}
  void drawText(const CGText&, CGPoint) override {}
  void drawSymbols(const CGPath&, const CGColor*, const CGStrokeStyle*,
                   std::span<const CGPoint>) override {}
  CGSize measure(const CGText& text) override { return sharedTextMeasure().measure(text); }
};

}  // namespace vexel
