#pragma once

#include <CoreGraphics/CGContext.h>

#include <cmath>
#include <span>

#include "Require.h"

namespace vexel {

/// Draws nothing, but ends the target when a coordinate is no finite number.
class FiniteContext : public CGContext {
 public:
  void saveState() override {}
  void restoreState() override {}
  void concatenate(const CGAffineTransform& t) override {
    check(CGPoint{t.a, t.b});
    check(CGPoint{t.c, t.d});
    check(CGPoint{t.tx, t.ty});
  }
  void clip(const CGPath& path) override { check(path); }
  using CGContext::clip;
  void stroke(const CGPath& path, const CGStrokeStyle&) override { check(path); }
  void fill(const CGPath& path, const CGColor&) override { check(path); }
  void fillAligned(const CGRect& rect, const CGColor&) override { check(rect); }
  void drawImage(const CGImage&, const CGRect& rect) override { check(rect); }
  void drawText(const CGText&, CGPoint origin) override { check(origin); }
  void drawSymbols(const CGPath& symbol, const CGColor*, const CGStrokeStyle*,
                   std::span<const CGPoint> centers) override {
    check(symbol);
    for (const CGPoint& center : centers) check(center);
  }
  CGSize measure(const CGText& text) override { return sharedTextMeasure().measure(text); }

 private:
  static void check(CGPoint point) {
    require(std::isfinite(point.x) && std::isfinite(point.y), "coordinates are finite");
  }
  static void check(const CGRect& rect) {
    check(rect.origin);
    check(CGPoint{rect.size.width, rect.size.height});
  }
  static void check(const CGPath& path) {
    for (const CGPathElement& element : path.elements()) {
      if (element.type == CGPathElement::Type::close) continue;
      check(element.point);
      if (element.type != CGPathElement::Type::curve) continue;
      check(element.control1);
      check(element.control2);
    }
  }
};

}  // namespace vexel
