#include "BitmapSymbols.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <ranges>
#include <vector>

#include "FrontToBack.h"
#include "PixelTarget.h"

namespace vexel {

namespace {

// Symbols ahead for which the memory is asked while others are drawn.
constexpr std::size_t kAhead = 16;
// Of so many symbols most are hidden by others.
constexpr std::size_t kManySymbols = 200'000;
// More would take too much memory beside the bitmap itself.
constexpr std::int64_t kMostHiddenPixels = 1 << 26;

// A place in eighths of a pixel: the pixel, and the phase in it. Places are less than kReach
// outside of pixels of a bitmap.
struct PhasePlace {
  PhasePlace() = default;
  explicit PhasePlace(CGPoint p) : x(eighths(p.x)), y(eighths(p.y)) {}

  PixelStamp stampOf(SymbolStamps& stamps) const { return stamps.stamp(x & 7, y & 7); }
  // Shifts of negative numbers round down, as the phases want it.
  int pixelX() const { return x >> 3; }
  int pixelY() const { return y >> 3; }

  int x = 0;
  int y = 0;

 private:
  static constexpr int kPhases = SymbolStamps::kPhases;
  static_assert(kPhases == 8);

  // The nearest; numbers that are not negative are cut to round them down.
  static int eighths(CGFloat v) {
    constexpr int kShift = kPhases * 2 * SymbolStamps::kMaximumSide;
    return static_cast<int>(v * kPhases + (kShift + 0.5)) - kShift;
  }
};

/// Centres farther out cannot be seen, and their places would be too large for integers.
CGRect reachOf(const CairoCanvas& canvas) {
  constexpr CGFloat kReach = SymbolStamps::kMaximumSide;
  return canvas.clipBox().insetBy(-kReach, -kReach);
}

/// Draws symbols one by one, from stamps where they have any. The clip is a rectangle.
class SymbolPainter {
 public:
  explicit SymbolPainter(CairoCanvas& canvas)
      : canvas_(canvas), reach_(reachOf(canvas)), target_(canvas) {}

  void prepare(const SymbolStamps* stamps, const CGPoint& center) const {
    const CGPoint p = canvas_.transform().apply(center);
    if (!stamps || !reach_.contains(p)) return;
    const PhasePlace place(p);
    target_.prefetch(place.pixelX(), place.pixelY(), stamps->reach());
  }

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
    return target_.blend(place.stampOf(stamps), place.pixelX(), place.pixelY());
  }

  CairoCanvas& canvas_;
  CGRect reach_;
  PixelTarget target_;
};

/// The stamps of a symbol in several styles, each made when it is first asked for.
class StyledStamps {
 public:
  explicit StyledStamps(std::size_t styles) : stamps_(styles) {}

  SymbolStamps* of(std::uint32_t style, const SymbolLook& look, const CGAffineTransform& toDevice) {
    Stamps& known = stamps_[style];
    if (!known.wereMade) known = {true, SymbolStamps::create(look, toDevice)};
    return known.stamps.get();
  }

 private:
  struct Stamps {
    bool wereMade = false;
    std::unique_ptr<SymbolStamps> stamps;
  };

  std::vector<Stamps> stamps_;
};

bool showsNothing(const CairoCanvas& canvas, const CGPath& symbol) {
  return !canvas.isDrawable() || canvas.clipBox().isEmpty() || symbol.isEmpty();
}

/// Draws many symbols whose stamps are all opaque, the last one first. False, and nothing is drawn,
/// when the clip cuts through pixels.
template <class StampsOf>
bool drawFrontToBack(CairoCanvas& canvas, StampsOf&& stampsOf, std::span<const CGPoint> centers) {
  PixelTarget target(canvas);
  const PixelRect box = target.clip();
  if (!target.wholeClip() || std::int64_t{box.width()} * box.height() > kMostHiddenPixels)
    return false;
  const CGRect reach = reachOf(canvas);
  FrontToBack pixels(box);
  struct Next {
    SymbolStamps* stamps = nullptr;
    PhasePlace place;
  };
  std::array<Next, kAhead> next;
  for (std::size_t i = centers.size() + kAhead; i-- > 0;) {
    Next& turn = next[i % kAhead];
    if (turn.stamps)
      pixels.layUnder(turn.place.stampOf(*turn.stamps), turn.place.pixelX(), turn.place.pixelY());
    turn.stamps = nullptr;
    if (i < kAhead) continue;
    const CGPoint p = canvas.transform().apply(centers[i - kAhead]);
    if (!reach.contains(p)) continue;
    turn = {stampsOf(i - kAhead), PhasePlace(p)};
    pixels.prefetch(turn.place.pixelX(), turn.place.pixelY(), turn.stamps->reach());
  }
  pixels.drawOn(target);
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
  const auto stampsOf = [&](std::size_t) { return stamps.get(); };
  if (centers.size() >= kManySymbols && stamps->isOpaque() &&
      drawFrontToBack(canvas, stampsOf, centers))
    return;
  SymbolPainter painter(canvas);
  for (std::size_t i = 0; i < centers.size(); ++i) {
    if (i + kAhead < centers.size()) painter.prepare(stamps.get(), centers[i + kAhead]);
    painter.draw(look, stamps.get(), centers[i]);
  }
}

bool drawStyledSymbolsOnBitmap(CairoCanvas& canvas, const CGPath& symbol,
                               std::span<const CGSymbolStyle> styles,
                               std::span<const std::uint32_t> styleOfCenter,
                               std::span<const CGPoint> centers) {
  if (showsNothing(canvas, symbol)) return true;
  if (!canvas.clipIsRectangle()) return false;
  StyledStamps stamps(styles.size());
  const auto look = [&](std::uint32_t style) {
    return SymbolLook{symbol, styles[style].fillColor, styles[style].strokeStyle};
  };
  const auto stampsOfStyle = [&](std::uint32_t style) {
    return stamps.of(style, look(style), canvas.transform());
  };
  const auto stampsOf = [&](std::size_t i) { return stampsOfStyle(styleOfCenter[i]); };
  const auto isOpaque = [&](std::uint32_t style) {
    const SymbolStamps* const known = stampsOfStyle(style);
    return known && known->isOpaque();
  };
  if (centers.size() >= kManySymbols &&
      std::ranges::all_of(std::views::iota(0u, static_cast<std::uint32_t>(styles.size())),
                          isOpaque) &&
      drawFrontToBack(canvas, stampsOf, centers))
    return true;
  SymbolPainter painter(canvas);
  for (std::size_t i = 0; i < centers.size(); ++i) {
    if (i + kAhead < centers.size()) painter.prepare(stampsOf(i + kAhead), centers[i + kAhead]);
    painter.draw(look(styleOfCenter[i]), stampsOf(i), centers[i]);
  }
  return true;
}

}  // namespace vexel
