#pragma once

namespace vexel {

/// Which parts of a view's place follow a change of its superview's size. In each direction the
/// place has three parts: the margin on the lower side, the size, the margin on the upper side.
/// A flag makes its part flexible.
enum class NSAutoresizingMask : unsigned {
  none = 0,
  minXMargin = 1,
  widthSizable = 2,
  maxXMargin = 4,
  minYMargin = 8,
  heightSizable = 16,
  maxYMargin = 32,
};

/// The flags of both.
constexpr NSAutoresizingMask operator|(NSAutoresizingMask a, NSAutoresizingMask b) {
  return static_cast<NSAutoresizingMask>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// The flags common to both.
constexpr NSAutoresizingMask operator&(NSAutoresizingMask a, NSAutoresizingMask b) {
  return static_cast<NSAutoresizingMask>(static_cast<unsigned>(a) & static_cast<unsigned>(b));
}

/// Whether `mask` has the flag.
constexpr bool contains(NSAutoresizingMask mask, NSAutoresizingMask flag) {
  return (mask & flag) == flag;
}

}  // namespace vexel
