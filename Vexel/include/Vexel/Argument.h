#pragma once

#include <concepts>
#include <utility>

namespace vexel {

/// A labelled argument that has to be given: without a default value, an aggregate of arguments
/// that leaves it out does not compile.
template <class T>
class Argument {
 public:
  template <std::convertible_to<T> Value>
  requires(!std::same_as<std::remove_cvref_t<Value>, Argument>) constexpr Argument(Value&& value)
      : value_(std::forward<Value>(value)) {}

  constexpr const T& operator*() const { return value_; }
  constexpr const T* operator->() const { return &value_; }

 private:
  T value_;
};

}  // namespace vexel
