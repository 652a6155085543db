#pragma once

#include <CoreGraphics/CGSize.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Hears of the new sizes of a PlotView.
class VEXEL_API PlotViewDelegate : public virtual NSObject {
 public:
  /// Called after the view took the size, in points.
  virtual void setFrameSize(CGSize size) = 0;
};

}  // namespace vexel
