#pragma once

#include <CorePlot/CPTGraph.h>

#include <functional>

namespace vexel {

/// While one lives, a function is called with every graph to which a theme was applied. It may
/// look at the graph in that state or take parts from it.
class AfterTheme {
 public:
  explicit AfterTheme(std::function<void(CPTGraph&)> function);
  ~AfterTheme();
  AfterTheme(const AfterTheme&) = delete;
  AfterTheme& operator=(const AfterTheme&) = delete;
};

}  // namespace vexel
