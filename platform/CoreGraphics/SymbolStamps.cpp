#include "SymbolStamps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <list>
#include <new>
#include <utility>

#include "CairoCanvas.h"
#include "PenReach.h"
#include "PixelBlend.h"

namespace vexel {

namespace {

constexpr CGColor kOpaque = CGColor::genericGray(0);

// For the place within a pixel, and for edges that are moved to pixels.
constexpr int kRoom = 2;
// Of path and pen. A symbol that may reach farther is not even tried.
constexpr CGFloat kMaximumReach = 256;

std::size_t pixelIndex(int x, int y, int side) {
  return static_cast<std::size_t>(y) * static_cast<std::size_t>(side) + static_cast<std::size_t>(x);
}

std::size_t phaseIndex(int phaseX, int phaseY) {
  return pixelIndex(phaseX, phaseY, SymbolStamps::kPhases);
}

// How much of each pixel a part of the symbol covers.
using Coverage = std::vector<std::uint8_t>;

// Of the smallest rectangle around the ink; `fill` and `stroke` are empty when there is none.
struct PhaseMasks {
  StampShape shape;
  Coverage fill;
  Coverage stroke;

  // The stroke in a colour, which most symbols of a series share, the weights of their fills below
  // it, and what both leave to the pixels below. Without a fill the weights are those of the
  // stroke.
  std::uint32_t strokePixel = 0;
  std::uint32_t weightedAlpha = 0;
  std::vector<std::uint32_t> pixels;
  std::vector<std::uint32_t> weights;
  std::vector<std::uint32_t> rests;

  void color(std::uint32_t stroked, std::uint32_t weighted) {
    const std::uint32_t alpha = weighted >> 24;
    const bool isStroked = !fill.empty() && !stroke.empty();
    if (!weights.empty() && alpha == weightedAlpha && (stroked == strokePixel || !isStroked))
      return;
    const Coverage& covered = fill.empty() ? stroke : fill;
    // Memory may end here, and then nothing has changed.
    for (auto* const words : {&pixels, &weights, &rests}) words->reserve(covered.size());
    strokePixel = stroked;
    weightedAlpha = alpha;
    pixels.assign(covered.size(), 0);
    weights.clear();
    rests.clear();
    for (std::size_t i = 0; i < covered.size(); ++i) {
      if (isStroked) pixels[i] = scaledPixel(stroked, stroke[i]);
      const std::uint32_t uncovered = 255u - (pixels[i] >> 24);
      weights.push_back(scaledPixel(covered[i] * 0x01010101u, uncovered));
      const std::uint32_t rest = uncovered - (scaledPixel(weights[i], alpha) & 255u);
      rests.push_back(rest * 0x01010101u);
    }
  }
};

// Only what a stroke covers, not its colour.
CGStrokeStyle shapeOf(CGStrokeStyle style) {
  style.color = kOpaque;
  return style;
}

}  // namespace

// What is kept about a symbol whatever its colours: its masks in a square of `side` pixels whose
// middle is the corner of the pixel that holds the centre.
struct SymbolStamps::Shape {
  CGPath path;
  CGAffineTransform linear;
  bool isFilled;
  bool isStroked;
  CGStrokeStyle strokeStyle;
  int side;
  std::array<std::unique_ptr<PhaseMasks>, std::size_t{kPhases} * kPhases> masks;

  PhaseMasks& at(int phaseX, int phaseY) {
    auto& known = masks[phaseIndex(phaseX, phaseY)];
    if (known) return *known;
    auto made = std::make_unique<PhaseMasks>();
    if (isFilled)
      made->fill = render(phaseX, phaseY, [&](CairoCanvas& c) { c.fill(path, kOpaque); });
    if (isStroked)
      made->stroke = render(phaseX, phaseY, [&](CairoCanvas& c) { c.stroke(path, strokeStyle); });
    trim(*made);
    known = std::move(made);
    return *known;
  }

  // Makes the square no larger than the ink, which most miters leave far from the reach of the
  // pen.
  void fitToInk() {
    const StampShape& ink = at(0, 0).shape;
    const int farthest = ink.ink.empty() ? 0
                                         : std::max({-ink.left, ink.left + ink.width - 1, -ink.top,
                                                     ink.top + ink.height - 1, 0});
    side = std::min(side, 2 * (farthest + kRoom));
    masks = {};
  }

  // Cuts the masks, which are squares, to their ink.
  void trim(PhaseMasks& all) const {
    const auto isInked = [&](int x, int y) {
      const std::size_t i = pixelIndex(x, y, side);
      return (!all.fill.empty() && all.fill[i] > 0) || (!all.stroke.empty() && all.stroke[i] > 0);
    };
    std::vector<StampShape::Span> rows;
    int left = side, right = 0, top = side, bottom = 0;
    for (int y = 0; y < side; ++y) {
      StampShape::Span row{side, 0};
      for (int x = 0; x < side; ++x)
        if (isInked(x, y)) row = {std::min(row.from, x), x + 1};
      rows.push_back(row);
      if (row.from >= row.to) continue;
      left = std::min(left, row.from);
      right = std::max(right, row.to);
      top = std::min(top, y);
      bottom = y + 1;
    }
    // Pixels are blended in pairs. There is room on both sides of the ink.
    if (left < right && (right - left) % 2 == 1) right < side ? ++right : --left;
    const int middle = side / 2;
    all.shape = {
        left - middle, top - middle, std::max(right - left, 0), std::max(bottom - top, 0), {}};
    for (int y = top; y < bottom; ++y) {
      const StampShape::Span& row = rows[static_cast<std::size_t>(y)];
      all.shape.ink.push_back(row.from < row.to ? StampShape::Span{row.from - left, row.to - left}
                                                : StampShape::Span{0, 0});
    }
    for (Coverage* const mask : {&all.fill, &all.stroke}) {
      if (mask->empty()) continue;
      Coverage cut;
      for (int y = top; y < bottom; ++y) {
        const auto row = mask->begin() + static_cast<std::ptrdiff_t>(pixelIndex(0, y, side));
        cut.insert(cut.end(), row + left, row + right);
      }
      *mask = std::move(cut);
    }
  }

  template <class Draw>
  Coverage render(int phaseX, int phaseY, Draw draw) const {
    CairoSurfaceHandle surface(cairo_image_surface_create(CAIRO_FORMAT_A8, side, side));
    const int middle = side / 2;
    CGAffineTransform toDevice = linear;
    toDevice.tx = middle + static_cast<CGFloat>(phaseX) / kPhases;
    toDevice.ty = middle + static_cast<CGFloat>(phaseY) / kPhases;
    const CGRect visible = CGRect::make(0, 0, side, side);
    CairoCanvas canvas(std::move(surface), CairoCanvas::Surface::pixels, toDevice, visible,
                       visible);
    draw(canvas);
    if (canvas.status() == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
    cairo_surface_flush(canvas.surface());
    const unsigned char* data = cairo_image_surface_get_data(canvas.surface());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(canvas.surface());
    Coverage coverage;
    coverage.reserve(pixelIndex(0, side, side));
    for (int y = 0; y < side; ++y)
      coverage.insert(coverage.end(), data + y * stride, data + y * stride + side);
    return coverage;
  }
};

// The shapes used last, most recent first.
class SymbolStamps::ShapeCache {
 public:
  std::shared_ptr<Shape> find(Shape wanted) {
    const auto known = std::ranges::find_if(shapes_, [&](const auto& shape) {
      return shape->isFilled == wanted.isFilled && shape->isStroked == wanted.isStroked &&
             shape->linear == wanted.linear && shape->strokeStyle == wanted.strokeStyle &&
             shape->path == wanted.path;
    });
    if (known != shapes_.end()) {
      shapes_.splice(shapes_.begin(), shapes_, known);
    } else {
      const auto made = std::make_shared<Shape>(std::move(wanted));
      made->fitToInk();
      shapes_.push_front(made);
      if (shapes_.size() > kMaximumShapes) shapes_.pop_back();
    }
    return shapes_.front();
  }

 private:
  static constexpr std::size_t kMaximumShapes = 16;

  std::list<std::shared_ptr<Shape>> shapes_;
};

std::unique_ptr<SymbolStamps> SymbolStamps::create(const SymbolLook& look,
                                                   const CGAffineTransform& toDevice) {
  CGAffineTransform linear = toDevice;
  linear.tx = linear.ty = 0;
  CGFloat farthest = 0;
  const CGPath path = look.path.transformed(linear);
  for (const CGPathElement& element : path.elements())
    for (const CGPoint p : {element.point, element.control1, element.control2})
      farthest = std::max({farthest, std::abs(p.x), std::abs(p.y)});
  if (look.strokeStyle)
    farthest += penReach(*look.strokeStyle) * std::max(std::abs(linear.a) + std::abs(linear.c),
                                                       std::abs(linear.b) + std::abs(linear.d));
  // A comparison with NaN is false.
  if (!(farthest <= kMaximumReach)) return nullptr;
  const int side = 2 * (static_cast<int>(std::ceil(farthest)) + kRoom);

  thread_local ShapeCache cache;
  std::shared_ptr<Shape> shape =
      cache.find({look.path,
                  linear,
                  look.fillColor != nullptr,
                  look.strokeStyle != nullptr,
                  look.strokeStyle ? shapeOf(*look.strokeStyle) : CGStrokeStyle{},
                  side,
                  {}});
  if (shape->side > kMaximumSide) return nullptr;
  return std::unique_ptr<SymbolStamps>(new SymbolStamps(std::move(shape), look));
}

SymbolStamps::SymbolStamps(std::shared_ptr<Shape> shape, const SymbolLook& look)
    : shape_(std::move(shape)),
      fillPixel_(look.fillColor ? premultipliedPixel(*look.fillColor) : 0),
      strokePixel_(look.strokeStyle ? premultipliedPixel(look.strokeStyle->color) : 0) {}

int SymbolStamps::reach() const {
  return shape_->side / 2;
}

bool SymbolStamps::isOpaque() const {
  const auto covers = [](bool isThere, std::uint32_t pixel) {
    return !isThere || pixel >> 24 == 255;
  };
  return covers(shape_->isFilled, fillPixel_) && covers(shape_->isStroked, strokePixel_);
}

PixelStamp SymbolStamps::stamp(int phaseX, int phaseY) {
  PhaseMasks& masks = shape_->at(phaseX, phaseY);
  const std::uint32_t weighted = shape_->isFilled ? fillPixel_ : strokePixel_;
  masks.color(strokePixel_, weighted);
  return {masks.shape, masks.pixels.data(), masks.weights.data(), masks.rests.data(), weighted};
}

}  // namespace vexel
