#include <CorePlot/CPTGraphHostingView.h>

namespace vexel {

CPTGraphHostingView::~CPTGraphHostingView() {
  if (hostedGraph_) hostedGraph_->hostingView_ = nullptr;
}

void CPTGraphHostingView::setHostedGraph(std::shared_ptr<CPTGraph> graph) {
  if (hostedGraph_ == graph) return;
  if (graph && graph->hostingView_) graph->hostingView_->setHostedGraph(nullptr);
  if (hostedGraph_) hostedGraph_->hostingView_ = nullptr;
  hostedGraph_ = std::move(graph);
  if (hostedGraph_) {
    hostedGraph_->hostingView_ = this;
    hostedGraph_->setFrame({{}, bounds().size});
  }
  setNeedsDisplay(true);
}

void CPTGraphHostingView::setFrameSize(CGSize size) {
  const auto keptUntilTheEnd = weak_from_this().lock();
  NSView::setFrameSize(size);
  if (hostedGraph_) hostedGraph_->setFrame({{}, bounds().size});
}

void CPTGraphHostingView::layout() {
  NSView::layout();
  if (const auto graph = hostedGraph_) graph->tellHostingView();
}

void CPTGraphHostingView::draw(CGContext& context, CGRect dirtyRect) {
  if (!hostedGraph_) return;
  const auto graph = hostedGraph_;
  const CGPoint origin = bounds().origin;
  const CGSavedState state(context);
  if (origin != CGPoint{}) context.translate(origin.x, origin.y);
  graph->displayChart(context, {dirtyRect.origin - origin, dirtyRect.size});
}

}  // namespace vexel
