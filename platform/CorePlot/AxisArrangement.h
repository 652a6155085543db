#pragma once

#include <memory>
#include <vector>

#include <CorePlot/CPTGraph.h>
#include <CorePlot/CPTXYAxis.h>

#include "AxisLayout.h"

namespace vexel {

/// The axes of a graph that can be seen, with their places on its plot area: each by itself at
/// first, then further ones outside those at the same place, and labels moved along their axes
/// where those of two meet at a corner or another axis runs through them. Axes leave out a title
/// that would lie on the graph's.
struct AxisArrangement {
  struct Member {
    std::shared_ptr<CPTXYAxis> axis;
    AxisLayout layout;
  };

  /// What the places depend on beside the axes themselves.
  struct Surroundings {
    CGSize plotArea;
    // In the plot area's coordinates: the bounds of the graph, and its title, empty without one.
    CGRect view;
    CGRect graphTitle = {};

    static Surroundings of(const CPTGraph& graph);
    friend bool operator==(const Surroundings&, const Surroundings&) = default;
  };

  explicit AxisArrangement(const CPTGraph& graph);

  Surroundings surroundings;
  /// In the order of the axis set.
  std::vector<Member> axes;
  /// Whether there is a title of the graph, and it lies on no labels.
  bool showsGraphTitle = false;
};

}  // namespace vexel
