#pragma once

#include <optional>
#include <vector>

#include "ChartParts.h"

namespace vexel {

/// Where the parts of a chart were at its last display.
class ShownMarks {
 public:
  void note(const std::vector<ChartParts::Part>& parts);

  /// The places where the chart looks different now, in the graph's coordinates; absent when it
  /// may be everywhere, because more than marks has changed.
  std::optional<std::vector<CGRect>> placesChangedTo(
      const std::vector<ChartParts::Part>& parts) const;

 private:
  struct Shown {
    const void* owner;
    bool isMark;
    std::vector<ChartParts::Place> places;
  };
  std::vector<Shown> parts_;
};

}  // namespace vexel
