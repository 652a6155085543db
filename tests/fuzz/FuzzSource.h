#pragma once

#include <CorePlot/CPTPlotDataSource.h>
#include <CorePlot/CPTTextLayer.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "FuzzInput.h"
#include "FuzzStyles.h"

namespace vexel {

/// One number per record, in any type and at any distance from each other.
class FuzzField {
 public:
  explicit FuzzField(FuzzInput& input) {
    type_ = input.oneOf({CPTNumericData::Type::float64, CPTNumericData::Type::float32,
                         CPTNumericData::Type::int16, CPTNumericData::Type::int32,
                         CPTNumericData::Type::int64});
    lent_ = input.choice(4) != 0;
    if (!lent_ || input.flag()) type_ = CPTNumericData::Type::float64;
    skip_ = lent_ && input.choice(4) == 0 ? input.choice(16) : 0;
    extend(input);
  }

  /// Adds records: a few of any kind or many of one.
  void extend(FuzzInput& input) {
    if (input.flag()) {
      for (const double value : input.numbers(16)) add(value);
      return;
    }
    const std::size_t count = input.raw<std::uint16_t>() % kMostRecords;
    const double start = input.number();
    const double step = input.number();
    const std::vector<double> pattern = input.numbers(5);
    for (std::size_t i = 0; i < count && this->count() < kMostRecords; ++i)
      add(start + static_cast<double>(i) * step +
          (pattern.empty() ? 0 : pattern[i % pattern.size()]));
  }

  std::size_t count() const { return count_; }

  std::optional<CPTNumericData> lend(CPTRecordRange records) const {
    if (!lent_) return std::nullopt;
    return CPTNumericData::strided(type_, bytes_.data(), count_,
                                   static_cast<std::ptrdiff_t>(size() + skip_))
        .part(records.location, records.length);
  }

  double operator[](std::size_t record) const {
    if (record >= count_) return std::numeric_limits<double>::quiet_NaN();
    return CPTNumericData::strided(type_, bytes_.data(), count_,
                                   static_cast<std::ptrdiff_t>(size() + skip_))[record];
  }

 private:
  static constexpr std::size_t kMostRecords = 3000;

  std::size_t size() const {
    switch (type_) {
      case CPTNumericData::Type::int16:
        return sizeof(std::int16_t);
      case CPTNumericData::Type::float32:
        return sizeof(float);
      case CPTNumericData::Type::int32:
        return sizeof(std::int32_t);
      default:
        return sizeof(double);
    }
  }

  template <class T>
  void append(T value) {
    const auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
    bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    bytes_.resize(bytes_.size() + skip_);
  }

  template <class T>
  static T integer(double value) {
    constexpr double kEnd = -static_cast<double>(std::numeric_limits<T>::min());
    return value >= -kEnd && value < kEnd ? static_cast<T>(value) : std::numeric_limits<T>::min();
  }

  void add(double value) {
    switch (type_) {
      case CPTNumericData::Type::float32:
        append(std::bit_cast<float>(floatBits(value)));
        break;
      case CPTNumericData::Type::int16:
        append(integer<std::int16_t>(value));
        break;
      case CPTNumericData::Type::int32:
        append(integer<std::int32_t>(value));
        break;
      case CPTNumericData::Type::int64:
        append(integer<std::int64_t>(value));
        break;
      default:
        append(value);
    }
    ++count_;
  }

  static std::uint32_t floatBits(double value) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    if (value > kLargest)
      return std::bit_cast<std::uint32_t>(std::numeric_limits<float>::infinity());
    if (value < -kLargest)
      return std::bit_cast<std::uint32_t>(-std::numeric_limits<float>::infinity());
    return std::bit_cast<std::uint32_t>(static_cast<float>(value));
  }

  CPTNumericData::Type type_;
  bool lent_;
  std::size_t skip_;
  std::vector<std::byte> bytes_;
  std::size_t count_ = 0;
};

/// A data source whose answers need not agree with each other.
class FuzzSource : public CPTPlotDataSource {
 public:
  static constexpr std::size_t kFields = 3;

  explicit FuzzSource(FuzzInput& input) { replace(input); }

  /// Other data altogether; the plots have to be told.
  void replace(FuzzInput& input) {
    fields_.clear();
    for (std::size_t i = 0; i < kFields; ++i) fields_.emplace_back(input);
    count_ = input.choice(3) == 0 ? input.raw<std::uint16_t>() : fields_[0].count();
    if (std::ranges::any_of(fields_, [](const FuzzField& f) { return f.lend({}).has_value(); }) &&
        input.choice(16) == 0)
      count_ = SIZE_MAX;
    if (!std::ranges::all_of(fields_, [](const FuzzField& f) { return f.lend({}).has_value(); }))
      count_ = std::min<std::size_t>(count_, 5000);
    symbols_.clear();
    for (std::size_t left = input.choice(6); left > 0; --left)
      symbols_.push_back(input.flag() ? std::optional(anySymbol(input)) : std::nullopt);
    colors_.clear();
    for (std::size_t left = input.choice(6); left > 0; --left)
      colors_.push_back(input.flag() ? std::optional(anyColor(input)) : std::nullopt);
    repeats_ = input.flag();
    labels_ = input.choice(8) == 0;
  }

  /// More records behind the present ones. How many the source says it has may be another number.
  void extend(FuzzInput& input) {
    for (FuzzField& field : fields_) field.extend(input);
    count_ = std::min<std::size_t>(count_ == SIZE_MAX ? fields_[0].count() : count_ + input.byte(),
                                   5000);
  }

  std::size_t numberOfRecords(const CPTPlot&) override { return count_; }
  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field,
                                        CPTRecordRange records) override {
    return fields_.at(field).lend(records);
  }
  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    return fields_.at(field)[record];
  }
  std::vector<std::optional<CPTPlotSymbol>> symbols(const CPTScatterPlot&,
                                                    CPTRecordRange records) override {
    return answers(symbols_, records);
  }
  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange records) override {
    return CPTColorList(answers(colors_, records));
  }
  std::vector<std::shared_ptr<CPTTextLayer>> dataLabels(const CPTPlot&,
                                                        CPTRecordRange records) override {
    if (!labels_) return {};
    std::vector<std::shared_ptr<CPTTextLayer>> result(records.length);
    for (std::size_t i = 0; i < result.size(); i += 7)
      result[i] = std::make_shared<CPTTextLayer>("label");
    return result;
  }

 private:
  /// The few answers there are, or as many as are asked for.
  template <class T>
  std::vector<T> answers(const std::vector<T>& few, CPTRecordRange records) const {
    if (!repeats_ || few.empty()) return few;
    std::vector<T> result;
    for (std::size_t i = 0; i < records.length; ++i)
      result.push_back(few[(records.location + i) / 3 % few.size()]);
    return result;
  }

  std::vector<FuzzField> fields_;
  std::size_t count_ = 0;
  std::vector<std::optional<CPTPlotSymbol>> symbols_;
  std::vector<std::optional<CPTColor>> colors_;
  bool repeats_ = false;
  bool labels_ = false;
};

}  // namespace vexel
