#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string>
#include <vector>

namespace vexel {

/// Values read from the bytes of a fuzzer one after the other; all are 0 once those are used up.
class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  bool isAtEnd() const { return rest_.empty(); }

  std::uint8_t byte() { return raw<std::uint8_t>(); }
  bool flag() { return (byte() & 1) != 0; }
  /// One of the numbers 0 to count - 1.
  std::size_t choice(std::size_t count) { return byte() % count; }
  template <class T, std::size_t n>
  T oneOf(const T (&values)[n]) {
    return values[choice(n)];
  }

  /// Any double; often one that people use, often one that makes trouble.
  double number() {
    switch (choice(6)) {
      case 0:
        return raw<std::int8_t>();
      case 1:
        return raw<std::int16_t>() / 100.0;
      case 2:
        return oneOf(kTroublemakers);
      case 3:
        return kJulianDay + raw<std::int16_t>() / 1440.0;
      case 4:
        return raw<float>();
      default:
        return raw<double>();
    }
  }
  float single() {
    switch (choice(3)) {
      case 0:
        return raw<std::int8_t>();
      case 1:
        return oneOf(kSmallTroublemakers);
      default:
        return raw<float>();
    }
  }
  /// One for sizes and distances: mostly of a kind that fits a figure.
  double points() { return flag() ? raw<std::uint8_t>() : number(); }

  /// At most `most` of them.
  std::vector<double> numbers(std::size_t most) {
    std::vector<double> result(choice(most + 1));
    for (double& value : result) value = number();
    return result;
  }

  /// At most 255 bytes, which need not be UTF-8.
  std::string text() {
    std::string result(std::min<std::size_t>(byte(), rest_.size()), '\0');
    std::memcpy(result.data(), rest_.data(), result.size());
    rest_ = rest_.subspan(result.size());
    return result;
  }

  template <class T>
  T raw() {
    std::array<std::uint8_t, sizeof(T)> bytes{};
    const std::size_t size = std::min(rest_.size(), bytes.size());
    std::memcpy(bytes.data(), rest_.data(), size);
    rest_ = rest_.subspan(size);
    return std::bit_cast<T>(bytes);
  }

 private:
  static constexpr double kJulianDay = 2451545;

  using Limits = std::numeric_limits<double>;
  static constexpr double kTroublemakers[] = {
      Limits::quiet_NaN(),
      Limits::infinity(),
      -Limits::infinity(),
      Limits::max(),
      Limits::lowest(),
      Limits::min(),
      Limits::denorm_min(),
      -Limits::denorm_min(),
      -0.0,
      Limits::epsilon(),
      1 + Limits::epsilon(),
      1 - Limits::epsilon() / 2,
      0x1p31,
      -0x1p31,
      0x1p53,
      0x1p63,
      -0x1p63,
      1e-300,
      1e300,
      1e17,
  };
  using SingleLimits = std::numeric_limits<float>;
  static constexpr float kSmallTroublemakers[] = {
      SingleLimits::quiet_NaN(),  SingleLimits::infinity(), -SingleLimits::infinity(),
      SingleLimits::max(),        SingleLimits::lowest(),   SingleLimits::min(),
      SingleLimits::denorm_min(), SingleLimits::epsilon(),  -0.0F,
  };

  std::span<const std::uint8_t> rest_;
};

}  // namespace vexel
