#pragma once

#include <CorePlot/CALayerDelegate.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTAxis;

/// Hears of an axis. Delegates of axes must be of this type.
class VEXEL_API CPTAxisDelegate : public CALayerDelegate {
 public:
  /// Called after ticks and labels of the axis were placed for a display. It may change or remove
  /// anything, the axis included; the axes are then placed once more. After it throws it is called
  /// again for the next display.
  virtual void axisDidRelabel(CPTAxis& axis) { (void)axis; }
};

}  // namespace vexel
