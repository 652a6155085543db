#pragma once

#include <CoreGraphics/CGBitmapContext.h>

#include "CairoContext.h"

namespace vexel {

/// Pixels in memory, drawn on with Cairo.
class CairoBitmapContext final : public CairoContext<CGBitmapContext> {
 public:
  CairoBitmapContext(CairoCanvas canvas, CGFloat backingScale);

  int pixelWidth() const override;
  int pixelHeight() const override;
  CGFloat backingScale() const override { return backingScale_; }
  std::span<const std::uint32_t> pixels() override;
  std::string pngData() override;

 private:
  CGFloat backingScale_;
};

}  // namespace vexel
