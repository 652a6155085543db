#pragma once

#include <memory>
#include <vector>

#include <CorePlot/CPTAxis.h>

namespace vexel {

/// The axes of a graph, in the order in which they are drawn.
class CPTAxisSet : public CPTLayer {
 public:
  const std::vector<std::shared_ptr<CPTAxis>>& axes() const { return axes_; }
  /// Nulls are left out.
  void setAxes(std::vector<std::shared_ptr<CPTAxis>> axes);

 private:
  std::vector<std::shared_ptr<CPTAxis>> axes_;
};

}  // namespace vexel
