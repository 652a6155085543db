#include <CorePlot/CPTNumericData.h>

#include <algorithm>
#include <cstring>

namespace vexel {

namespace {

// Columns of packed records need not be aligned for their type.
template <class T>
double read(const std::byte* at) {
  T number;
  std::memcpy(&number, at, sizeof number);
  return static_cast<double>(number);
}

}  // namespace

double CPTNumericData::operator[](std::size_t index) const {
  const std::byte* at = data_ + static_cast<std::ptrdiff_t>(index) * stride_;
  switch (type_) {
    case Type::float64:
      return read<double>(at);
    case Type::float32:
      return read<float>(at);
    case Type::int16:
      return read<std::int16_t>(at);
    case Type::int32:
      return read<std::int32_t>(at);
    case Type::int64:
      return read<std::int64_t>(at);
  }
  return 0;
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
