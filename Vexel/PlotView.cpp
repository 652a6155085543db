#include <Vexel/PlotView.h>

namespace vexel {

void PlotView::setFrameSize(CGSize size) {
  NSView::setFrameSize(size);
  if (delegate_) delegate_->setFrameSize(size);
}

}  // namespace vexel
