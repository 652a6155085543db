#include "LabelChoice.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vexel {

namespace {

constexpr double kTolerance = 1e-6;
constexpr double kHoursPerDay = 24;

using Labels = std::vector<LabelStretch>;
using Indices = std::vector<std::size_t>;

bool isWhole(double number) {
  return std::abs(number - std::round(number)) < kTolerance;
}

/// 1, 2, 2.5 or 5 times a power of ten.
bool isRound(double number) {
  const double leading = number / std::pow(10, std::floor(std::log10(number) + kTolerance));
  for (const double digit : {1.0, 2.0, 2.5, 5.0})
    if (std::abs(leading / digit - 1) < kTolerance) return true;
  return false;
}

/// Whether a day has a whole number of such stretches that are full hours, or an hour has. Whole
/// days count as well.
bool partsTheDay(double hours) {
  return isWhole(1 / hours) || (isWhole(hours) && isWhole(kHoursPerDay / hours)) ||
         isWhole(hours / kHoursPerDay);
}

/// Every step-th of some labels.
class Selection {
 public:
  Selection(const Labels& labels, const Indices& candidates, std::size_t step, LabelNumbers numbers)
      : labels_(labels), candidates_(candidates), step_(step), numbers_(numbers) {
    if (candidates.size() > 1) distance_ = number(1) - number(0);
    if (numbers == LabelNumbers::hoursOfDay && distance_ <= 0) distance_ += kHoursPerDay;
    const std::size_t end = std::min(step, candidates.size());
    for (std::size_t i = 0; i < end && distance_ > 0; ++i)
      if (isWhole(number(i) / (distance_ * static_cast<double>(step)))) {
        first_ = i;
        break;
      }
  }

  /// Round where the labels are, as far as they are numbers, or at least every other one.
  bool isSuitable() const {
    if (numbers_ == LabelNumbers::hoursOfDay && partsTheDay(distance_))
      return partsTheDay(distance_ * static_cast<double>(step_));
    return step_ == 2 || !(distance_ > 0) || !isRound(distance_) ||
           isRound(distance_ * static_cast<double>(step_));
  }

  bool fits(CGFloat gap) const {
    for (std::size_t i = first_ + step_; i < candidates_.size(); i += step_) {
      const LabelStretch& a = labels_[candidates_[i - step_]];
      const LabelStretch& b = labels_[candidates_[i]];
      if (std::max(a.low, b.low) - std::min(a.high, b.high) < gap) return false;
    }
    return true;
  }

  Indices indices() const {
    Indices result;
    for (std::size_t i = first_; i < candidates_.size(); i += step_)
      result.push_back(candidates_[i]);
    return result;
  }

 private:
  double number(std::size_t i) const { return labels_[candidates_[i]].number; }

  const Labels& labels_;
  const Indices& candidates_;
  std::size_t step_;
  LabelNumbers numbers_;
  std::size_t first_ = 0;
  double distance_ = 0;
};

}  // namespace

Indices chooseLabels(const Labels& labels, CGFloat gap, LabelNumbers numbers) {
  Indices candidates(labels.size());
  std::iota(candidates.begin(), candidates.end(), std::size_t{0});
  if (Selection(labels, candidates, 1, numbers).fits(gap)) return candidates;

  const auto isBetween = [&](std::size_t i) { return !isWhole(labels[i].number); };
  if (numbers == LabelNumbers::exponentsOfTen &&
      !std::all_of(candidates.begin(), candidates.end(), isBetween))
    std::erase_if(candidates, isBetween);
  // With a step beyond the last label the roundest of them is left alone.
  for (std::size_t step = 1; step <= 10 * candidates.size(); ++step) {
    const Selection selection(labels, candidates, step, numbers);
    if (selection.isSuitable() && selection.fits(gap)) return selection.indices();
  }
  return {candidates.front()};
}

}  // namespace vexel
