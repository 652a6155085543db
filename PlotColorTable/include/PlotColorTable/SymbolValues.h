#pragma once

#include <any>
#include <concepts>
#include <cstddef>
#include <optional>
#include <span>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// The values of plotted points, one each, lent for a call: doubles side by side, or objects of any
/// type, normally numbers. Made from any contiguous range of double or std::any; it does not own
/// them.
class VEXEL_API SymbolValues {
 public:
  SymbolValues() = default;
  /// Of doubles.
  template <class Range>
  requires std::constructible_from < std::span<const double>,
  const Range& > SymbolValues(const Range& numbers) : numbers_(numbers) {}
  /// Of objects.
  template <class Range>
  requires std::constructible_from < std::span<const std::any>,
  const Range& > SymbolValues(const Range& objects) : objects_(objects) {}

  /// How many values.
  std::size_t count() const { return numbers_.size() + objects_.size(); }

  /// The values as they stand when they are doubles; otherwise empty.
  std::span<const double> numbers() const { return numbers_; }
  /// The values as they stand when they are objects; otherwise empty.
  std::span<const std::any> objects() const { return objects_; }

  /// The value at `index`, which must be below count(), as a double; absent when it is an object
  /// that holds no integer, floating-point number or bool.
  std::optional<double> number(std::size_t index) const;

 private:
  // One of them is empty.
  std::span<const double> numbers_;
  std::span<const std::any> objects_;
};

}  // namespace vexel
