#pragma once

#include <CoreGraphics/CGColor.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// A colour of red, green, blue and alpha, each on 0 to 1. An immutable value; two colours are
/// equal when all four components are.
class VEXEL_API NSColor {
 public:
  /// Components below 0 (or NaN) are taken as 0 and those above 1 as 1.
  static constexpr NSColor colorWithRed(double red, double green, double blue, double alpha = 1) {
    return {onUnit(red), onUnit(green), onUnit(blue), onUnit(alpha)};
  }

  /// The colours of these names, opaque.
  static constexpr NSColor whiteColor() { return {1, 1, 1, 1}; }
  static constexpr NSColor blackColor() { return {0, 0, 0, 1}; }
  static constexpr NSColor grayColor() { return {0.5, 0.5, 0.5, 1}; }
  static constexpr NSColor darkGrayColor() { return {1.0 / 3, 1.0 / 3, 1.0 / 3, 1}; }
  static constexpr NSColor lightGrayColor() { return {2.0 / 3, 2.0 / 3, 2.0 / 3, 1}; }
  static constexpr NSColor redColor() { return {1, 0, 0, 1}; }
  static constexpr NSColor greenColor() { return {0, 1, 0, 1}; }
  static constexpr NSColor blueColor() { return {0, 0, 1, 1}; }
  static constexpr NSColor cyanColor() { return {0, 1, 1, 1}; }
  static constexpr NSColor yellowColor() { return {1, 1, 0, 1}; }
  static constexpr NSColor magentaColor() { return {1, 0, 1, 1}; }
  static constexpr NSColor orangeColor() { return {1, 0.5, 0, 1}; }
  static constexpr NSColor purpleColor() { return {0.5, 0, 0.5, 1}; }
  static constexpr NSColor brownColor() { return {0.6, 0.4, 0.2, 1}; }
  /// Black with alpha 0: draws nothing.
  static constexpr NSColor clearColor() { return {0, 0, 0, 0}; }

  /// On 0 to 1.
  constexpr double redComponent() const { return red_; }
  constexpr double greenComponent() const { return green_; }
  constexpr double blueComponent() const { return blue_; }
  constexpr double alphaComponent() const { return alpha_; }

  /// The same colour in the generic RGB space.
  constexpr CGColor cgColor() const { return CGColor::genericRGB(red_, green_, blue_, alpha_); }

  friend constexpr bool operator==(const NSColor&, const NSColor&) = default;

 private:
  constexpr NSColor(double red, double green, double blue, double alpha)
      : red_(red), green_(green), blue_(blue), alpha_(alpha) {}

  static constexpr double onUnit(double component) {
    if (!(component > 0)) return 0;
    return component < 1 ? component : 1;
  }

  double red_;
  double green_;
  double blue_;
  double alpha_;
};

}  // namespace vexel
