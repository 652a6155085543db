#pragma once

#include <optional>
#include <vector>

#include <AppKit/NSEvent.h>
#include <CoreGraphics/CGPoint.h>
#include <CoreGraphics/CGSize.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTGraph;

/// How data coordinates lie on a plot area.
class VEXEL_API CPTPlotSpace : public virtual NSObject {
 public:
  /// The graph that has the plot space; null when there is none.
  CPTGraph* graph() const { return graph_.get(); }

  /// The place of a data point in a plot area of the given size, from its bottom-left corner, in
  /// points. Absent when it has none: no number, not above 0 on a log scale, an empty range.
  virtual std::optional<CGPoint> plotAreaViewPoint(double x, double y, CGSize plotArea) const = 0;

  /// The data coordinates under the pointer, x and then y, also outside the plot area. Absent
  /// (always, by default) when they cannot be told: no graph has the plot space, no view shows the
  /// graph, it has no plot area, or the ranges have no places.
  virtual std::optional<std::vector<double>> plotPointForEvent(const NSEvent& event) const {
    (void)event;
    return std::nullopt;
  }

 protected:
  /// Everything that is placed by the plot space needs display.
  void rangeDidChange();

 private:
  friend class CPTGraph;

  NSWeak<CPTGraph> graph_;
};

}  // namespace vexel
