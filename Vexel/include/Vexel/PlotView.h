#pragma once

#include <AppKit/NSView.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/PlotViewDelegate.h>

namespace vexel {

/// The view that hosts a figure. It reports every size that it is set to.
class VEXEL_API PlotView : public NSView {
 public:
  /// A view without a delegate.
  explicit PlotView(CGRect frame = {}) : NSView(frame) {}

  /// Referred to weakly; null (as at the start) or gone: nobody is told.
  PlotViewDelegate* delegate() const { return delegate_.get(); }
  void setDelegate(PlotViewDelegate* delegate) { delegate_ = delegate; }

  /// Resizes the view, then tells the delegate.
  void setFrameSize(CGSize size) override;

 private:
  NSWeak<PlotViewDelegate> delegate_;
};

}  // namespace vexel
