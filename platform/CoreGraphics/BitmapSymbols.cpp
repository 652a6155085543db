#include "BitmapSymbols.h"

#include <cmath>

#include "PixelTarget.h"

namespace vexel {

void drawSymbolsOnBitmap(CairoCanvas& canvas, const SymbolLook& look,
                         std::span<const CGPoint> centers) {
  if (!canvas.isDrawable() || canvas.clipBox().isEmpty() || look.path.isEmpty()) return;
  const auto plainly = [&](std::span<const CGPoint> some) {
    canvas.drawSymbols(look.path, look.fillColor, look.strokeStyle, some);
  };
  const auto stamps =
      canvas.clipIsRectangle() ? SymbolStamps::create(look, canvas.transform()) : nullptr;
  if (!stamps) return plainly(centers);

  constexpr CGFloat kReach = SymbolStamps::kMaximumSide;
  const CGRect reach = canvas.clipBox().insetBy(-kReach, -kReach);
  PixelTarget target(canvas);
  for (const CGPoint& center : centers) {
    const CGPoint p = canvas.transform().apply(center);
    if (!reach.contains(p)) continue;
    // In eighths of a pixel. Shifts of negative numbers round down, as the phases want it.
    static_assert(SymbolStamps::kPhases == 8);
    const int x = static_cast<int>(std::floor(p.x * 8 + 0.5));
    const int y = static_cast<int>(std::floor(p.y * 8 + 0.5));
    if (!target.blend(stamps->stamp(x & 7, y & 7), x >> 3, y >> 3))
      target.suspendFor([&] { plainly({&center, 1}); });
  }
}

}  // namespace vexel
