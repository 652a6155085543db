#pragma once

#include <memory>

#include <AppKit/NSView.h>
#include <CorePlot/CPTGraph.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The view that shows a graph over its whole bounds.
class VEXEL_API CPTGraphHostingView : public NSView {
 public:
  /// A view without a graph.
  explicit CPTGraphHostingView(CGRect frame = {}) : NSView(frame) {}
  ~CPTGraphHostingView() override;

  /// Null (the default): nothing is drawn. A graph is shown by one view: hosting it here takes
  /// it from the view that had it.
  const std::shared_ptr<CPTGraph>& hostedGraph() const { return hostedGraph_; }
  void setHostedGraph(std::shared_ptr<CPTGraph> graph);

  void setFrameSize(CGSize size) override;
  /// Also marks for display what has changed of the graph, after plots of few records have read
  /// their data.
  void layout() override;
  /// Draws the graph, or the part of it inside the rectangle.
  void draw(CGContext& context, CGRect dirtyRect) override;

 private:
  std::shared_ptr<CPTGraph> hostedGraph_;
};

}  // namespace vexel
