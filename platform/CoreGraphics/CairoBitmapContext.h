#pragma once

#include <CoreGraphics/CGBitmapContext.h>

#include "CairoContext.h"

namespace vexel {

/// Pixels in memory, drawn on with Cairo.
class CairoBitmapContext final : public CairoContext<CGBitmapContext> {
 public:
  CairoBitmapContext(CairoCanvas canvas, CGFloat backingScale, Use use);

  int pixelWidth() const override;
  int pixelHeight() const override;
  CGFloat backingScale() const override { return backingScale_; }
  std::span<const std::uint32_t> pixels() override;
  std::string pngData() override;
  void fillAligned(const CGRect& rect, const CGColor& color) override;
  void drawText(const CGText& text, CGPoint origin) override;
  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers) override;
  void drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                         std::span<const std::uint32_t> styleOfCenter,
                         std::span<const CGPoint> centers) override;
  bool drawOnPixels(const std::function<void(const CGPixels&)>& draw) override;
  std::unique_ptr<CGLayer> makeLayer(const CGRect& rect) override;
  void drawLayer(const CGLayer& layer) override;
  bool isDrawnOnce() const override { return use_ == Use::file; }

  const CairoCanvas& canvas() const { return canvas_; }

 private:
  CGFloat backingScale_;
  Use use_;
};

}  // namespace vexel
