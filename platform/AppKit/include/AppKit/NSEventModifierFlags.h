#pragma once

namespace vexel {

/// The modifier keys held down during an event.
enum class NSEventModifierFlags : unsigned {
  none = 0,
  shift = 1,
  control = 2,
  option = 4,
  command = 8,
};

/// The flags of both.
constexpr NSEventModifierFlags operator|(NSEventModifierFlags a, NSEventModifierFlags b) {
  return static_cast<NSEventModifierFlags>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// The flags common to both.
constexpr NSEventModifierFlags operator&(NSEventModifierFlags a, NSEventModifierFlags b) {
  return static_cast<NSEventModifierFlags>(static_cast<unsigned>(a) & static_cast<unsigned>(b));
}

/// Whether `flags` has the flag.
constexpr bool contains(NSEventModifierFlags flags, NSEventModifierFlags flag) {
  return (flags & flag) == flag;
}

}  // namespace vexel
