#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <type_traits>
#include <utility>

#include <Foundation/VexelAPI.h>

namespace vexel {

/// Numbers lent to a plot: where they are, how many, of which type and how far apart. It does
/// not own them. Made from any contiguous range of double, float or 16-, 32- or 64-bit signed
/// integers, or from a column of records through `strided`.
class VEXEL_API CPTNumericData {
 public:
  /// What the numbers are in memory.
  enum class Type { float64, float32, int16, int32, int64 };

  CPTNumericData() = default;
  /// Lends numbers that lie side by side.
  template <class Range,
            class T = std::remove_cvref_t<decltype(*std::data(std::declval<const Range&>()))>>
  requires(std::same_as<T, double> || std::same_as<T, float> || std::same_as<T, std::int16_t> ||
           std::same_as<T, std::int32_t> || std::same_as<T, std::int64_t>)
      CPTNumericData(const Range& numbers)
      : CPTNumericData(std::span<const T>(numbers)) {}
  /// Lends numbers that lie side by side.
  CPTNumericData(std::span<const double> n) : CPTNumericData(Type::float64, n) {}
  CPTNumericData(std::span<const float> n) : CPTNumericData(Type::float32, n) {}
  CPTNumericData(std::span<const std::int16_t> n) : CPTNumericData(Type::int16, n) {}
  CPTNumericData(std::span<const std::int32_t> n) : CPTNumericData(Type::int32, n) {}
  CPTNumericData(std::span<const std::int64_t> n) : CPTNumericData(Type::int64, n) {}

  /// `count` numbers, the first at `data`, each `strideBytes` after the one before.
  static CPTNumericData strided(Type type, const void* data, std::size_t count,
                                std::ptrdiff_t strideBytes) {
    CPTNumericData result;
    result.data_ = static_cast<const std::byte*>(data);
    result.count_ = count;
    result.stride_ = strideBytes;
    result.type_ = type;
    return result;
  }

  /// How many numbers, and of which type.
  std::size_t count() const { return count_; }
  Type type() const { return type_; }

  /// The number at `index`, which must be below count().
  double operator[](std::size_t index) const;

  /// The numbers as they stand when they are doubles side by side; otherwise empty.
  std::span<const double> doubles() const;

  /// `count` numbers from `first` on, which must be there, as doubles: where they are when they
  /// are doubles side by side, otherwise converted into `buffer`, which has room for them.
  const double* read(std::size_t first, std::size_t count, double* buffer) const;

  /// At most `count` numbers from `first` on.
  CPTNumericData part(std::size_t first, std::size_t count) const;

 private:
  template <class T>
  CPTNumericData(Type type, std::span<const T> numbers)
      : data_(reinterpret_cast<const std::byte*>(numbers.data())),
        count_(numbers.size()),
        stride_(sizeof(T)),
        type_(type) {}

  const std::byte* data_ = nullptr;
  std::size_t count_ = 0;
  std::ptrdiff_t stride_ = sizeof(double);
  Type type_ = Type::float64;
};

}  // namespace vexel
