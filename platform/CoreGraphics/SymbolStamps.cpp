#include "SymbolStamps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <list>
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

struct PhaseMasks {
  Coverage fill;
  Coverage stroke;
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

  const PhaseMasks& at(int phaseX, int phaseY) {
    auto& known = masks[phaseIndex(phaseX, phaseY)];
    if (known) return *known;
    known = std::make_unique<PhaseMasks>();
    if (isFilled)
      known->fill = render(phaseX, phaseY, [&](CairoCanvas& c) { c.fill(path, kOpaque); });
    if (isStroked)
      known->stroke = render(phaseX, phaseY, [&](CairoCanvas& c) { c.stroke(path, strokeStyle); });
    return *known;
  }

  // Makes the square no larger than the ink, which most miters leave far from the reach of the
  // pen.
  void fitToInk() {
    const PhaseMasks& all = at(0, 0);
    const int middle = side / 2;
    int farthest = 0;
    for (int y = 0; y < side; ++y) {
      for (int x = 0; x < side; ++x) {
        const std::size_t i = pixelIndex(x, y, side);
        const bool isInked =
            (!all.fill.empty() && all.fill[i] > 0) || (!all.stroke.empty() && all.stroke[i] > 0);
        if (isInked) farthest = std::max({farthest, std::abs(x - middle), std::abs(y - middle)});
      }
    }
    side = std::min(side, 2 * (farthest + kRoom));
    masks = {};
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
      shapes_.push_front(std::make_shared<Shape>(std::move(wanted)));
      shapes_.front()->fitToInk();
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

std::size_t SymbolStamps::mostPixels() const {
  return pixelIndex(0, shape_->side, shape_->side) * stamps_.size();
}

const PixelStamp& SymbolStamps::stamp(int phaseX, int phaseY) {
  auto& known = stamps_[phaseIndex(phaseX, phaseY)];
  if (known) return *known;

  const PhaseMasks& masks = shape_->at(phaseX, phaseY);
  const int side = shape_->side;
  const auto pixel = [&](int x, int y) {
    const std::size_t i = pixelIndex(x, y, side);
    const std::uint32_t fill = masks.fill.empty() ? 0 : scaledPixel(fillPixel_, masks.fill[i]);
    if (masks.stroke.empty()) return fill;
    return pixelOver(scaledPixel(strokePixel_, masks.stroke[i]), fill);
  };

  int left = side, right = 0, top = side, bottom = 0;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      if (pixel(x, y) == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x + 1);
      top = std::min(top, y);
      bottom = std::max(bottom, y + 1);
    }
  }
  known = std::make_unique<PixelStamp>();
  if (left >= right) return *known;
  const int middle = side / 2;
  *known = {left - middle, top - middle, right - left, bottom - top, {}};
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x) known->pixels.push_back(pixel(x, y));
  return *known;
}

}  // namespace vexel
