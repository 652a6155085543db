#include "QuickLogarithm.h"

#include <cmath>

namespace vexel {

const QuickLogarithm::Segments& QuickLogarithm::segments() {
  static const Segments segments = [] {
    Segments result;
    for (std::size_t i = 0; i < kSegments; ++i) {
      const double middle = 1 + (static_cast<double>(i) + 0.5) / kSegments;
      result[i] = {1 / middle, std::log10(middle)};
    }
    return result;
  }();
  return segments;
}

}  // namespace vexel
