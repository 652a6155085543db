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

constexpr int kGroup = WeightedPixels::kCount;
constexpr int kBlock = StampMask::Block::kSide;

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
  Coverage fill;
  Coverage stroke;

  // The stroke in a colour, which most symbols of a series share, the weights of their fills below
  // it, and what both leave to the pixels below. Without a fill the weights are those of the
  // stroke.
  StampMask mask;
  std::uint32_t strokePixel = 0;
  std::uint32_t weightedAlpha = 0;
  bool isColored = false;

  void color(std::uint32_t stroked, std::uint32_t weighted) {
    const std::uint32_t alpha = weighted >> 24;
    const bool isStroked = !fill.empty() && !stroke.empty();
    if (isColored && alpha == weightedAlpha && (stroked == strokePixel || !isStroked)) return;
    strokePixel = stroked;
    weightedAlpha = alpha;
    isColored = true;
    std::ranges::fill(mask.blocks, StampMask::Block());
    const Coverage& covered = fill.empty() ? stroke : fill;
    for (int y = 0; y < mask.height; ++y) {
      for (int x = 0; x < mask.width; ++x) {
        const std::size_t i = pixelIndex(x, y, mask.width);
        WeightedPixels& group = mask.groups[pixelIndex(x / kGroup, y, mask.groupsInRow)];
        const int place = x % kGroup;
        const std::uint32_t pixel = isStroked ? scaledPixel(stroked, stroke[i]) : 0;
        const std::uint32_t uncovered = 255u - (pixel >> 24);
        const std::uint32_t weight = scaledPixel(covered[i], uncovered);
        const std::uint32_t rest = uncovered - scaledPixel(weight, alpha);
        group.pixels[place] = pixel;
        group.weights[place] = static_cast<std::uint8_t>(weight);
        group.rests[place] = static_cast<std::uint8_t>(rest);
        StampMask::Block& block = mask.blocks[pixelIndex(x / kBlock, y / kBlock, mask.groupsInRow)];
        const std::uint64_t bit = std::uint64_t{1} << (y % kBlock * kBlock + x % kBlock);
        if (covered[i] > 0 || pixel != 0) block.ink |= bit;
        if (rest == 0) block.opaque |= bit;
      }
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
    const StampMask& ink = at(0, 0).mask;
    const int farthest = ink.height == 0 ? 0
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
    int left = side, right = 0, top = side, bottom = 0;
    for (int y = 0; y < side; ++y)
      for (int x = 0; x < side; ++x) {
        if (!isInked(x, y)) continue;
        left = std::min(left, x);
        right = std::max(right, x + 1);
        top = std::min(top, y);
        bottom = y + 1;
      }
    StampMask& mask = all.mask;
    mask.left = left - side / 2;
    mask.top = top - side / 2;
    mask.width = std::max(right - left, 0);
    mask.height = std::max(bottom - top, 0);
    mask.groupsInRow = (mask.width + kGroup - 1) / kGroup;
    mask.groups.resize(pixelIndex(0, mask.height, mask.groupsInRow));
    mask.blocks.resize(pixelIndex(0, (mask.height + kBlock - 1) / kBlock, mask.groupsInRow));
    for (Coverage* const part : {&all.fill, &all.stroke}) {
      if (part->empty()) continue;
      Coverage cut;
      for (int y = top; y < bottom; ++y) {
        const auto row = part->begin() + static_cast<std::ptrdiff_t>(pixelIndex(0, y, side));
        cut.insert(cut.end(), row + left, row + right);
      }
      *part = std::move(cut);
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
      strokePixel_(look.strokeStyle ? premultipliedPixel(look.strokeStyle->color) : 0),
      weightedPixel_(look.fillColor ? premultipliedPixel(*look.fillColor) : strokePixel_) {}

bool SymbolStamps::hasMasksOf(const SymbolStamps& other) const {
  return shape_ == other.shape_ && strokePixel_ == other.strokePixel_ &&
         weightedPixel_ >> 24 == other.weightedPixel_ >> 24;
}

const StampMask& SymbolStamps::mask(int phaseX, int phaseY) {
  PhaseMasks& masks = shape_->at(phaseX, phaseY);
  masks.color(strokePixel_, weightedPixel_);
  return masks.mask;
}

}  // namespace vexel
