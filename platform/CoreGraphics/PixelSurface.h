#pragma once

#include "CairoHandles.h"

namespace vexel {

/// A surface of 32-bit pixels, any of them: they have to be cleared first. Null when
/// there is no memory for it.
CairoSurfaceHandle pixelSurface(int width, int height);

}  // namespace vexel
