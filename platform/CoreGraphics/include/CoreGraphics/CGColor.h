#pragma once

#include <Foundation/VexelAPI.h>

namespace vexel {

/// What the components of a colour mean; all are drawn alike.
enum class CGColorSpace { genericRGB, genericGray, deviceRGB };

/// A colour: components and alpha on 0 to 1, and the space they are meant in. All spaces draw
/// alike (as sRGB); two colours are equal when space and components are.
class VEXEL_API CGColor {
 public:
  /// A colour of that space; the components are not checked.
  static constexpr CGColor genericRGB(double red, double green, double blue, double alpha = 1) {
    return {CGColorSpace::genericRGB, red, green, blue, alpha};
  }
  static constexpr CGColor genericGray(double gray, double alpha = 1) {
    return {CGColorSpace::genericGray, gray, gray, gray, alpha};
  }
  static constexpr CGColor deviceRGB(double red, double green, double blue, double alpha = 1) {
    return {CGColorSpace::deviceRGB, red, green, blue, alpha};
  }

  /// The space, and the components on 0 to 1; of a grey all three are the same.
  constexpr CGColorSpace colorSpace() const { return space_; }
  constexpr double red() const { return red_; }
  constexpr double green() const { return green_; }
  constexpr double blue() const { return blue_; }
  constexpr double alpha() const { return alpha_; }

  friend constexpr bool operator==(const CGColor&, const CGColor&) = default;

 private:
  constexpr CGColor(CGColorSpace space, double red, double green, double blue, double alpha)
      : space_(space), red_(red), green_(green), blue_(blue), alpha_(alpha) {}

  CGColorSpace space_;
  double red_;
  double green_;
  double blue_;
  double alpha_;
};

}  // namespace vexel
