#include "BitmapSymbols.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "FrontToBack.h"
#include "PixelTarget.h"

namespace vexel {

namespace {

// The rows of a band, which the fast memory holds while the symbols in it are drawn.
constexpr int kBandRows = 32;
// So many symbols are sorted into bands at once.
constexpr std::size_t kSymbolsAtOnce = 1 << 16;
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

/// Symbols by the bands of rows that they meet, in each band in the order in which they were added.
class SymbolBands {
 public:
  explicit SymbolBands(const PixelRect& box)
      : box_(box), bands_(static_cast<std::size_t>((box.height() + kBandRows - 1) / kBandRows)) {}

  void add(SymbolStamps* stamps, const PhasePlace& place) {
    const int reach = stamps->reach();
    const int top = std::max(place.pixelY() - reach - box_.top, 0);
    const int bottom = std::min(place.pixelY() + reach - box_.top, box_.height());
    for (int row = top; row < bottom; row += kBandRows - row % kBandRows)
      bands_[static_cast<std::size_t>(row / kBandRows)].push_back({stamps, place});
  }

  /// Calls draw(stamp, x, y, part) for each symbol and the part of the box that it is to be drawn
  /// in. There are none afterwards.
  template <class Draw>
  void take(Draw&& draw) {
    PixelRect part = box_;
    for (auto& band : bands_) {
      part.bottom = std::min(part.top + kBandRows, box_.bottom);
      for (const auto& [stamps, place] : band)
        draw(place.stampOf(*stamps), place.pixelX(), place.pixelY(), part);
      band.clear();
      part.top = part.bottom;
    }
  }

 private:
  struct Symbol {
    SymbolStamps* stamps;
    PhasePlace place;
  };

  PixelRect box_;
  std::vector<std::vector<Symbol>> bands_;
};

/// Calls draw(stamp, x, y, part) for each symbol in each part of the picture that it meets, in the
/// order of indexOf(0), indexOf(1) and so on.
template <class StampsOf, class IndexOf, class Draw>
void drawInBands(const CairoCanvas& canvas, const PixelRect& box, StampsOf&& stampsOf,
                 std::span<const CGPoint> centers, IndexOf&& indexOf, Draw&& draw) {
  const CGRect reach = reachOf(canvas);
  SymbolBands bands(box);
  for (std::size_t i = 0; i < centers.size(); ++i) {
    const std::size_t symbol = indexOf(i);
    const CGPoint p = canvas.transform().apply(centers[symbol]);
    if (reach.contains(p)) bands.add(stampsOf(symbol), PhasePlace(p));
    if ((i + 1) % kSymbolsAtOnce == 0) bands.take(draw);
  }
  bands.take(draw);
}

/// Draws symbols that all have stamps. False, and nothing is drawn, when the clip cuts through
/// pixels.
template <class StampsOf>
bool drawStamped(CairoCanvas& canvas, bool areOpaque, StampsOf&& stampsOf,
                 std::span<const CGPoint> centers) {
  PixelTarget target(canvas);
  if (!target.wholeClip()) return false;
  const PixelRect box = target.clip();
  const bool isSmall = std::int64_t{box.width()} * box.height() <= kMostHiddenPixels;
  if (areOpaque && isSmall && centers.size() >= kManySymbols) {
    FrontToBack pixels(box);
    drawInBands(
        canvas, box, stampsOf, centers, [&](std::size_t i) { return centers.size() - 1 - i; },
        [&](const PixelStamp& stamp, int x, int y, const PixelRect& part) {
          pixels.layUnder(stamp, x, y, part);
        });
    pixels.drawOn(target);
  } else {
    drawInBands(
        canvas, box, stampsOf, centers, [](std::size_t i) { return i; },
        [&](const PixelStamp& stamp, int x, int y, const PixelRect& part) {
          target.blend(stamp, x, y, part);
        });
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
  const auto stampsOf = [&](std::size_t) { return stamps.get(); };
  if (drawStamped(canvas, stamps->isOpaque(), stampsOf, centers)) return;
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
  const auto look = [&](std::uint32_t style) {
    return SymbolLook{symbol, styles[style].fillColor, styles[style].strokeStyle};
  };
  const auto stampsOfStyle = [&](std::uint32_t style) {
    return stamps.of(style, look(style), canvas.transform());
  };
  const auto stampsOf = [&](std::size_t i) { return stampsOfStyle(styleOfCenter[i]); };
  bool haveStamps = true;
  bool areOpaque = true;
  for (std::uint32_t style = 0; style < styles.size() && haveStamps; ++style) {
    const SymbolStamps* const known = stampsOfStyle(style);
    haveStamps = known != nullptr;
    areOpaque = areOpaque && haveStamps && known->isOpaque();
  }
  if (haveStamps && drawStamped(canvas, areOpaque, stampsOf, centers)) return true;
  SymbolPainter painter(canvas);
  for (std::size_t i = 0; i < centers.size(); ++i)
    painter.draw(look(styleOfCenter[i]), stampsOf(i), centers[i]);
  return true;
}

}  // namespace vexel
