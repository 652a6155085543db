#include <Kernels/CPTNumericData.h>

#include <algorithm>
#include <cstring>

namespace vexel {

namespace {

/// Calls `use` with a zero of the type of the numbers.
template <class Use>
auto withType(CPTNumericData::Type type, Use&& use) {
  switch (type) {
    case CPTNumericData::Type::float32:
      return use(float{});
    case CPTNumericData::Type::int16:
      return use(std::int16_t{});
    case CPTNumericData::Type::int32:
      return use(std::int32_t{});
    case CPTNumericData::Type::int64:
      return use(std::int64_t{});
    case CPTNumericData::Type::float64:
      break;
  }
  return use(double{});
}

// Columns of packed records need not be aligned for their type.
template <class T>
double numberAt(const std::byte* at) {
  T number;
  std::memcpy(&number, at, sizeof number);
  return static_cast<double>(number);
}

}  // namespace

double CPTNumericData::operator[](std::size_t index) const {
  const std::byte* at = data_ + static_cast<std::ptrdiff_t>(index) * stride_;
  return withType(type_, [at](auto zero) { return numberAt<decltype(zero)>(at); });
}

const double* CPTNumericData::read(std::size_t first, std::size_t count, double* buffer) const {
  if (const auto direct = doubles(); !direct.empty()) return direct.data() + first;
  const std::byte* at = data_ + static_cast<std::ptrdiff_t>(first) * stride_;
  withType(type_, [&](auto zero) {
    for (std::size_t i = 0; i < count; ++i, at += stride_) buffer[i] = numberAt<decltype(zero)>(at);
  });
  return buffer;
}

std::span<const double> CPTNumericData::doubles() const {
  const bool aligned = reinterpret_cast<std::uintptr_t>(data_) % alignof(double) == 0;
  if (type_ != Type::float64 || stride_ != sizeof(double) || !aligned) return {};
  return {reinterpret_cast<const double*>(data_), count_};
}

CPTNumericData CPTNumericData::part(std::size_t first, std::size_t count) const {
  CPTNumericData result = *this;
  first = std::min(first, count_);
  result.data_ += static_cast<std::ptrdiff_t>(first) * stride_;
  result.count_ = std::min(count, count_ - first);
  return result;
}

}  // namespace vexel
