#pragma once

#include <AppKit/NSColor.h>
#include <CoreGraphics/CGColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A colour of the chart engine: a CGColor with named constructors. A value; two are equal when
/// their CGColors are.
class VEXEL_API CPTColor {
 public:
  /// The same colour.
  explicit constexpr CPTColor(const CGColor& color) : color_(color) {}

  /// The colours of these names; clear draws nothing, the others are opaque.
  static CPTColor whiteColor() { return colorWithGenericGray(1); }
  static CPTColor blackColor() { return colorWithGenericGray(0); }
  static CPTColor grayColor() { return colorWithGenericGray(0.5); }
  static CPTColor darkGrayColor() { return colorWithGenericGray(1.0 / 3.0); }
  static CPTColor lightGrayColor() { return colorWithGenericGray(2.0 / 3.0); }
  static CPTColor redColor() { return colorWithComponents(1, 0, 0); }
  static CPTColor greenColor() { return colorWithComponents(0, 1, 0); }
  static CPTColor blueColor() { return colorWithComponents(0, 0, 1); }
  static CPTColor cyanColor() { return colorWithComponents(0, 1, 1); }
  static CPTColor yellowColor() { return colorWithComponents(1, 1, 0); }
  static CPTColor magentaColor() { return colorWithComponents(1, 0, 1); }
  static CPTColor orangeColor() { return colorWithComponents(1, 0.5, 0); }
  static CPTColor purpleColor() { return colorWithComponents(0.5, 0, 0.5); }
  static CPTColor brownColor() { return colorWithComponents(0.6, 0.4, 0.2); }
  static CPTColor clearColor() { return colorWithComponents(0, 0, 0, 0); }

  /// Generic RGB, components and alpha on 0 to 1.
  static CPTColor colorWithComponents(double red, double green, double blue, double alpha = 1) {
    return CPTColor(CGColor::genericRGB(red, green, blue, alpha));
  }
  /// Generic grey, 0 black to 1 white.
  static CPTColor colorWithGenericGray(double gray) { return CPTColor(CGColor::genericGray(gray)); }

  /// The colour as the drawing context takes it.
  const CGColor& cgColor() const { return color_; }

  friend bool operator==(const CPTColor&, const CPTColor&) = default;

 private:
  CGColor color_;
};

/// The colour as generic red, green, blue and alpha.
VEXEL_API CGColor CPTCreateCGColorFromNSColor(const NSColor& color);

}  // namespace vexel
