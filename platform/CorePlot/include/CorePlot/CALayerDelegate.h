#pragma once

#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTLayer;

/// Hears of a layer's drawing. Delegates of plots and plot areas must be of this type.
class VEXEL_API CALayerDelegate : public virtual NSObject {
 public:
  /// Called each time before the layer draws its own content.
  virtual void layerWillDraw(CPTLayer& layer) { (void)layer; }
};

}  // namespace vexel
