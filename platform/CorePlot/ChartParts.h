#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <CorePlot/CPTGraph.h>

#include "AxisArrangement.h"

namespace vexel {

/// What a graph shows, as parts of which each is drawn as one, from back to front. Parts stay
/// alive as long as the list does, whatever the drawing of another one removes.
class ChartParts {
 public:
  /// A rectangle that a mark draws in, in the graph's coordinates.
  struct Place {
    CGRect rect;
    bool needsDisplay;
  };

  struct Part {
    enum class Kind { background, grid, plot, text, annotations };

    Kind kind;
    /// Tells parts apart from one display to the next.
    const void* owner;
    bool needsDisplay;
    /// Quick to draw, and known to draw nowhere but in its places. Others are worth being kept.
    bool isMark;
    /// Those of marks that are not text.
    std::vector<Place> places;
    std::shared_ptr<CPTPlot> plot;
  };

  /// `arrangement` is asked for when the plot area can be seen; it may change the graph.
  ChartParts(CPTGraph& graph,
             const std::function<std::shared_ptr<const AxisArrangement>()>& arrangement);

  const std::vector<Part>& all() const { return parts_; }
  /// Draws a part: of marks only what touches `rect`, or all when it is absent.
  void draw(const Part& part, CGContext& context, const std::optional<CGRect>& rect) const;

 private:
  template <class Draw>
  void inPlotArea(CGContext& context, const Draw& draw) const;
  void addPlots();
  void drawBackground(CGContext& context) const;
  void drawGrid(CGContext& context) const;
  void drawText(CGContext& context, const std::optional<CGRect>& rect) const;
  void drawAxisText(CGContext& context, const std::optional<CGRect>& rect) const;
  void drawTitle(CGContext& context, const std::optional<CGRect>& rect) const;
  std::optional<CGRect> inPlotRect(const std::optional<CGRect>& rect) const;

  CPTGraph& graph_;
  std::shared_ptr<CPTPlotAreaFrame> frame_;
  std::shared_ptr<CPTPlotArea> area_;
  std::shared_ptr<CPTAxisSet> axisSet_;
  std::shared_ptr<const AxisArrangement> arrangement_;
  /// The plot area in the graph's coordinates.
  CGRect plotRect_;
  std::vector<Part> parts_;
};

}  // namespace vexel
