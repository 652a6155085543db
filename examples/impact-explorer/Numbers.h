#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace explorer {

/// Numbers that do not change and that copies share.
class Numbers {
 public:
  using value_type = double;
  using const_iterator = std::vector<double>::const_iterator;

  Numbers(std::vector<double> numbers = {})
      : numbers_(std::make_shared<const std::vector<double>>(std::move(numbers))) {}
  Numbers(std::initializer_list<double> numbers) : Numbers(std::vector(numbers)) {}

  const_iterator begin() const { return numbers_->begin(); }
  const_iterator end() const { return numbers_->end(); }
  const double* data() const { return numbers_->data(); }
  std::size_t size() const { return numbers_->size(); }
  bool empty() const { return numbers_->empty(); }
  double operator[](std::size_t i) const { return (*numbers_)[i]; }

  operator const std::vector<double>&() const { return *numbers_; }

 private:
  std::shared_ptr<const std::vector<double>> numbers_;
};

}  // namespace explorer
