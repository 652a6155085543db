#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTLayer;

/// Hears of a layer's drawing. Delegates of plots and plot areas must be of this type.
class VEXEL_API CALayerDelegate : public virtual NSObject {
 public:
  /// Called each time before the layer draws its own content. It may change or remove anything,
  /// the layer included. What it throws ends the display and reaches who asked for it; the layer is
  /// drawn the next time.
  virtual void layerWillDraw(CPTLayer& layer) { (void)layer; }
};

}  // namespace vexel
