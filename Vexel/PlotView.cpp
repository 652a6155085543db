#include <Vexel/PlotView.h>

namespace vexel {

void PlotView::setFrameSize(CGSize size) {
  const auto keptUntilTheEnd = weak_from_this().lock();
  NSView::setFrameSize(size);
  if (delegate_) delegate_->setFrameSize(size);
}

}  // namespace vexel
