#include "BitmapSymbols.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "PixelTarget.h"

namespace vexel {

namespace {

/// Draws symbols one by one, from stamps where they have any. The clip is a rectangle.
class SymbolPainter {
 public:
  explicit SymbolPainter(CairoCanvas& canvas)
      : canvas_(canvas), reach_(canvas.clipBox().insetBy(-kReach, -kReach)), target_(canvas) {}

  void draw(const SymbolLook& look, SymbolStamps* stamps, const CGPoint& center) {
    const CGPoint p = canvas_.transform().apply(center);
    if (stamps && !reach_.contains(p)) return;
    if (!stamps || !blend(*stamps, p))
      target_.suspendFor([&] {
        canvas_.drawSymbols(look.path, look.fillColor, look.strokeStyle, {&center, 1});
      });
  }

 private:
  static constexpr CGFloat kReach = SymbolStamps::kMaximumSide;

  bool blend(SymbolStamps& stamps, CGPoint p) {
    // In eighths of a pixel. Shifts of negative numbers round down, as the phases want it.
    static_assert(SymbolStamps::kPhases == 8);
    const int x = static_cast<int>(std::floor(p.x * 8 + 0.5));
    const int y = static_cast<int>(std::floor(p.y * 8 + 0.5));
    return target_.blend(stamps.stamp(x & 7, y & 7), x >> 3, y >> 3);
  }

  CairoCanvas& canvas_;
  CGRect reach_;
  PixelTarget target_;
};

/// The stamps of a symbol in several styles, each made when it is first asked for. When they take
/// too much memory all of them are given up.
class StyledStamps {
 public:
  explicit StyledStamps(std::size_t styles) : stamps_(styles) {}

  SymbolStamps* of(std::uint32_t style, const SymbolLook& look, const CGAffineTransform& toDevice) {
    auto& known = stamps_[style];
    if (known) return known.get();
    if (pixels_ > kMostPixels) {
      std::ranges::fill(stamps_, nullptr);
      pixels_ = 0;
    }
    known = SymbolStamps::create(look, toDevice);
    if (known) pixels_ += known->mostPixels();
    return known.get();
  }

 private:
  static constexpr std::size_t kMostPixels = 8'000'000;

  std::vector<std::unique_ptr<SymbolStamps>> stamps_;
  std::size_t pixels_ = 0;
};

bool showsNothing(const CairoCanvas& canvas, const CGPath& symbol) {
  return !canvas.isDrawable() || canvas.clipBox().isEmpty() || symbol.isEmpty();
}

}  // namespace

void drawSymbolsOnBitmap(CairoCanvas& canvas, const SymbolLook& look,
                         std::span<const CGPoint> centers) {
  if (showsNothing(canvas, look.path)) return;
  const auto stamps =
      canvas.clipIsRectangle() ? SymbolStamps::create(look, canvas.transform()) : nullptr;
  if (!stamps) {
    canvas.drawSymbols(look.path, look.fillColor, look.strokeStyle, centers);
    return;
  }
  SymbolPainter painter(canvas);
  for (const CGPoint& center : centers) painter.draw(look, stamps.get(), center);
}

bool drawStyledSymbolsOnBitmap(CairoCanvas& canvas, const CGPath& symbol,
                               std::span<const CGSymbolStyle> styles,
                               std::span<const std::uint32_t> styleOfCenter,
                               std::span<const CGPoint> centers) {
  if (showsNothing(canvas, symbol)) return true;
  if (!canvas.clipIsRectangle()) return false;
  StyledStamps stamps(styles.size());
  SymbolPainter painter(canvas);
  for (std::size_t i = 0; i < centers.size(); ++i) {
    const CGSymbolStyle& style = styles[styleOfCenter[i]];
    const SymbolLook look{symbol, style.fillColor, style.strokeStyle};
    painter.draw(look, stamps.of(styleOfCenter[i], look, canvas.transform()), centers[i]);
  }
  return true;
}

}  // namespace vexel
