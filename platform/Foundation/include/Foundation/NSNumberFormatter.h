#pragma once

#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Writes numbers in decimal notation with a "." and no grouping, in every locale, rounded half
/// to even (of the exact value that the double holds). NaN gives "NaN", the infinities "+∞" and
/// "-∞". A value that rounds to zero has no sign.
class VEXEL_API NSNumberFormatter : public NSFormatter {
 public:
  /// Largest number of digits that can be asked for on either side of the point.
  static constexpr int kMaximumDigits = 309;

  std::string string(double value) const override;

  /// Accepted for the sake of the callers that say false; true is refused and changes nothing:
  /// the library writes no locale's notation.
  bool localizesFormat() const { return false; }
  void setLocalizesFormat(bool localizes) { (void)localizes; }

  /// At least this many digits before the point; default 0 (0.5 is written ".5").
  int minimumIntegerDigits() const { return minimumIntegerDigits_; }
  void setMinimumIntegerDigits(int digits);

  /// At least this many digits after the point; default 0. Raising it above the maximum raises
  /// the maximum with it.
  int minimumFractionDigits() const { return minimumFractionDigits_; }
  void setMinimumFractionDigits(int digits);

  /// At most this many digits after the point; default 0. Lowering it below the minimum lowers
  /// the minimum with it. Values outside 0 to kMaximumDigits are brought to the nearer end.
  int maximumFractionDigits() const { return maximumFractionDigits_; }
  void setMaximumFractionDigits(int digits);

 private:
  int minimumIntegerDigits_ = 0;
  int minimumFractionDigits_ = 0;
  int maximumFractionDigits_ = 0;
};

}  // namespace vexel
