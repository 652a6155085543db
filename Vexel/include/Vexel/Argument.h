#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

#include <Foundation/VexelAPI.h>

namespace vexel {

template <class T>
class Argument;

/// What may be given for an Argument<T>: whatever converts to T, but for a bool only a bool, so
/// that text or a number in its place does not pass for true.
template <class Value, class T>
concept ArgumentValue =
    !std::same_as<std::remove_cvref_t<Value>, Argument<T>> && std::convertible_to<Value, T> &&
    (!std::same_as<T, bool> || std::same_as<std::remove_cvref_t<Value>, bool>);

/// A labelled argument that has to be given: without a default value, an aggregate of arguments
/// that leaves it out does not compile.
template <class T>
class VEXEL_API Argument {
 public:
  /// Numbers are rounded to T.
  template <ArgumentValue<T> Value>  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload)
  constexpr Argument(Value&& value) : value_(static_cast<T>(std::forward<Value>(value))) {}

  /// The value.
  constexpr const T& operator*() const { return value_; }
  constexpr const T* operator->() const { return &value_; }

 private:
  T value_;
};

}  // namespace vexel
