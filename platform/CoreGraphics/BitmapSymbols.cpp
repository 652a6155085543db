#include "BitmapSymbols.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "PixelTarget.h"
#include "SymbolBands.h"

namespace vexel {

namespace {

// So many symbols are sorted into bands at once, in some 10 bytes each.
constexpr std::size_t kSymbolsAtOnce = 1 << 20;
// So few are drawn sooner one by one.
constexpr std::size_t kFewSymbols = 4;

/// Centres farther outside of a box cannot be seen, and their places would be too large for
/// integers.
CGRect reachOf(const PixelRect& box) {
  constexpr CGFloat kReach = SymbolStamps::kMaximumSide;
  return CGRect::make(box.left, box.top, box.width(), box.height()).insetBy(-kReach, -kReach);
}

/// Draws symbols one by one, from stamps where they have any. The clip is a rectangle.
class SymbolPainter {
 public:
  explicit SymbolPainter(CairoCanvas& canvas)
      : canvas_(canvas), target_(canvas), reach_(reachOf(target_.clip())) {}

  void draw(const SymbolLook& look, SymbolStamps* stamps, const CGPoint& center) {
    const CGPoint p = canvas_.transform().apply(center);
    if (stamps && !reach_.contains(p)) return;
    if (!stamps || !blend(*stamps, PhasePlace(p)))
      target_.suspendFor([&] {
        canvas_.drawSymbols(look.path, look.fillColor, look.strokeStyle, {&center, 1});
      });
  }

 private:
  bool blend(SymbolStamps& stamps, const PhasePlace& place) {
    const StampMask& mask = stamps.mask(place.phaseX(), place.phaseY());
    return target_.blend({mask, stamps.color()}, place.pixelX(), place.pixelY());
  }

  CairoCanvas& canvas_;
  PixelTarget target_;
  CGRect reach_;
};

bool showsNothing(const CairoCanvas& canvas, const CGPath& symbol) {
  return !canvas.isDrawable() || canvas.clipBox().isEmpty() || symbol.isEmpty();
}

/// Draws symbols that all have stamps. False, and nothing is drawn, when they are few or the clip
/// cuts through pixels.
template <class StyleOf>
bool drawStamped(const CairoCanvas& canvas, std::span<SymbolStamps* const> styles,
                 StyleOf&& styleOf, std::span<const CGPoint> centers) {
  if (centers.size() <= kFewSymbols) return false;
  PixelTarget target(canvas);
  if (!target.wholeClip()) return false;
  const CGRect reach = reachOf(target.clip());
  const CGAffineTransform toDevice = canvas.transform();
  SymbolBands bands(target, styles, std::min(centers.size(), kSymbolsAtOnce));
  for (std::size_t first = 0; first < centers.size(); first += kSymbolsAtOnce) {
    const std::size_t count = std::min(kSymbolsAtOnce, centers.size() - first);
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t center = bands.isLastFirst() ? first + count - 1 - i : first + i;
      const CGPoint p = toDevice.apply(centers[center]);
      if (reach.contains(p)) bands.add(styleOf(center), PhasePlace(p));
    }
    bands.draw();
  }
  return true;
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
  SymbolStamps* const style = stamps.get();
  if (drawStamped(
          canvas, {&style, 1}, [](std::size_t) { return 0u; }, centers))
    return;
  SymbolPainter painter(canvas);
  for (const CGPoint& center : centers) painter.draw(look, stamps.get(), center);
}

bool drawStyledSymbolsOnBitmap(CairoCanvas& canvas, const CGPath& symbol,
                               std::span<const CGSymbolStyle> styles,
                               std::span<const std::uint32_t> styleOfCenter,
                               std::span<const CGPoint> centers) {
  if (showsNothing(canvas, symbol)) return true;
  if (!canvas.clipIsRectangle()) return false;
  const auto look = [&](std::uint32_t style) {
    return SymbolLook{symbol, styles[style].fillColor, styles[style].strokeStyle};
  };
  std::vector<std::unique_ptr<SymbolStamps>> owned;
  std::vector<SymbolStamps*> stamps;
  for (std::uint32_t style = 0; style < styles.size(); ++style) {
    owned.push_back(SymbolStamps::create(look(style), canvas.transform()));
    stamps.push_back(owned.back().get());
  }
  const auto styleOf = [&](std::size_t i) { return styleOfCenter[i]; };
  if (std::ranges::count(stamps, nullptr) == 0 && drawStamped(canvas, stamps, styleOf, centers))
    return true;
  SymbolPainter painter(canvas);
  for (std::size_t i = 0; i < centers.size(); ++i)
    painter.draw(look(styleOfCenter[i]), stamps[styleOfCenter[i]], centers[i]);
  return true;
}

}  // namespace vexel
