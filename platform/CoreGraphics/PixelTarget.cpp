#include "PixelTarget.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "PixelBlend.h"

namespace vexel {

namespace {

// Cairo cannot tell what is nearer than this to the edge of a pixel.
constexpr CGFloat kEdge = 1.0 / 512;

// Neighbouring rows are near in memory.
constexpr int kRowsAtOnce = 16;

int roundedUp(CGFloat v) {
  return static_cast<int>(std::ceil(v - kEdge));
}
int roundedDown(CGFloat v) {
  return static_cast<int>(std::floor(v + kEdge));
}

// Row `v` of a shape around (x, y), to be indexed with columns of the device.
template <class Value, class Shape>
const Value* placed(const Value* values, const Shape& shape, int x, int y, int v) {
  return values + std::ptrdiff_t{v - shape.top - y} * shape.width - shape.left - x;
}

/// Copies a row of at least as many pixels as there are in Some, and at most twice as many.
template <class Some>
void copyEnds(const std::uint32_t* from, std::uint32_t* to, int count) {
  const int behind = count - static_cast<int>(sizeof(Some) / sizeof *from);
  Some first, last;
  std::memcpy(&first, from, sizeof first);
  std::memcpy(&last, from + behind, sizeof last);
  std::memcpy(to, &first, sizeof first);
  std::memcpy(to + behind, &last, sizeof last);
}

/// A row of few pixels, as those that a moved line leaves, without a call.
void copyRow(const std::uint32_t* from, std::uint32_t* to, int count) {
  using Four = std::uint32_t __attribute__((vector_size(16)));
  if (count >= 2 && count <= 4)
    copyEnds<std::uint64_t>(from, to, count);
  else if (count > 4 && count <= 8)
    copyEnds<Four>(from, to, count);
  else
    std::copy_n(from, count, to);
}

/// Pixels along an axis that a box covers by the same share.
struct Part {
  int begin, end;
  CGFloat share;
};

/// The pixel in which a box begins, those between, and the one in which it ends.
std::array<Part, 3> partsOf(CGFloat low, CGFloat high, int begin, int end) {
  const auto within = [=](CGFloat edge) {
    return static_cast<int>(std::clamp<CGFloat>(edge, begin, end));
  };
  const CGFloat inner = std::min(std::ceil(low), high);
  const CGFloat outer = std::max(std::floor(high), inner);
  const int first = within(std::ceil(low));
  const int last = std::max(within(std::floor(high)), first);
  return {Part{within(std::floor(low)), first, inner - low}, Part{first, last, 1},
          Part{last, std::max(within(std::ceil(high)), last), high - outer}};
}

/// Pixels that the same is laid over.
class CoveredArea {
 public:
  CoveredArea(const PixelRect& pixels, std::uint32_t above) : pixels_(pixels), above_(above) {}

  const PixelRect& pixels() const { return pixels_; }

  void cover(std::uint32_t* row) {
    if (pixels_.width() > kNarrow) return pixelOver(above_, row + pixels_.left, pixels_.width());
    // Down a line most pixels are like the one before.
    for (int u = pixels_.left; u < pixels_.right; ++u) {
      if (row[u] != below_) {
        below_ = row[u];
        covered_ = pixelOver(above_, below_);
      }
      row[u] = covered_;
    }
  }

 private:
  static constexpr int kNarrow = 2;

  PixelRect pixels_;
  std::uint32_t above_;
  std::uint32_t below_ = 0;
  std::uint32_t covered_ = above_;
};

}  // namespace

PixelTarget::PixelTarget(const CairoCanvas& canvas)
    : surface_(canvas.surface()), layRows_(waysToLayStampRows().back()) {
  cairo_surface_flush(surface_);
  pixels_ = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface_));
  rowLength_ = cairo_image_surface_get_stride(surface_) / 4;
  left_ = static_cast<int>(canvas.visible().minX());
  top_ = static_cast<int>(canvas.visible().minY());
  const CGRect& clip = canvas.clipBox();
  whole_ = {roundedUp(clip.minX()), roundedUp(clip.minY()), roundedDown(clip.maxX()),
            roundedDown(clip.maxY())};
  touched_ = {roundedDown(clip.minX()), roundedDown(clip.minY()), roundedUp(clip.maxX()),
              roundedUp(clip.maxY())};
}

PixelTarget::~PixelTarget() {
  cairo_surface_mark_dirty(surface_);
}

template <class Shape>
PixelRect PixelTarget::visiblePart(const Shape& shape, int x, int y) const {
  return {std::max(shape.left + x, touched_.left), std::max(shape.top + y, touched_.top),
          std::min(shape.left + x + shape.width, touched_.right),
          std::min(shape.top + y + shape.height, touched_.bottom)};
}

template <class Shape>
bool PixelTarget::canTake(const Shape& shape, int x, int y) const {
  const PixelRect part = visiblePart(shape, x, y);
  if (part.isEmpty()) return true;
  return part.left >= whole_.left && part.right <= whole_.right && part.top >= whole_.top &&
         part.bottom <= whole_.bottom;
}

void PixelTarget::fill(const PixelRect& box, std::uint32_t pixel) {
  if (box.isEmpty()) return;
  const bool isGray = pixel == (pixel & 255u) * 0x01010101u;
  for (int v = box.top; v < box.bottom; ++v) {
    std::uint32_t* const pixels = row(v);
    // Twice as fast, for white and black backgrounds.
    if (isGray)
      std::memset(pixels + box.left, static_cast<int>(pixel & 255u),
                  static_cast<std::size_t>(box.width()) * sizeof pixel);
    else
      std::fill(pixels + box.left, pixels + box.right, pixel);
  }
}

void PixelTarget::copy(const PixelTarget& source, int dx, int dy) {
  const PixelRect visible = clip();
  const PixelBuffer pixels = source.buffer();
  const int left = std::max(visible.left, source.left_ + dx);
  const int right = std::min(visible.right, source.left_ + dx + pixels.width);
  const int top = std::max(visible.top, source.top_ + dy);
  const int bottom = std::min(visible.bottom, source.top_ + dy + pixels.height);
  if (left >= right || top >= bottom) return;
  const std::uint32_t* from = source.row(top - dy) + left - dx;
  std::uint32_t* to = row(top) + left;
  const std::ptrdiff_t toLength = rowLength_;
  for (int v = top; v < bottom; ++v, from += pixels.stride, to += toLength)
    copyRow(from, to, right - left);
}

void PixelTarget::cover(std::span<const CGRect> boxes, std::uint32_t premultipliedColor) {
  const PixelRect visible = clip();
  if (visible.isEmpty()) return;
  std::vector<CoveredArea> areas;
  for (const CGRect& box : boxes) {
    const auto columnParts = partsOf(box.minX(), box.maxX(), visible.left, visible.right);
    for (const Part& rows : partsOf(box.minY(), box.maxY(), visible.top, visible.bottom))
      for (const Part& columns : columnParts) {
        const PixelRect area{columns.begin, rows.begin, columns.end, rows.end};
        const auto weight =
            static_cast<std::uint32_t>(std::floor(255 * rows.share * columns.share + 0.5));
        if (!area.isEmpty()) areas.emplace_back(area, scaledPixel(premultipliedColor, weight));
      }
  }
  for (int top = visible.top; top < visible.bottom; top += kRowsAtOnce)
    for (CoveredArea& area : areas) {
      const int end = std::min(top + kRowsAtOnce, area.pixels().bottom);
      for (int v = std::max(top, area.pixels().top); v < end; ++v) area.cover(row(v));
    }
}

PixelBuffer PixelTarget::buffer() const {
  return {pixels_, cairo_image_surface_get_width(surface_),
          cairo_image_surface_get_height(surface_), rowLength_};
}

std::optional<PixelRect> PixelTarget::wholeClip() const {
  if (whole_ != touched_) return std::nullopt;
  const PixelRect clip{whole_.left - left_, whole_.top - top_, whole_.right - left_,
                       whole_.bottom - top_};
  return buffer().clipped(clip);
}

PixelRect PixelTarget::clip() const {
  const PixelBuffer pixels = buffer();
  return {std::max(touched_.left, left_), std::max(touched_.top, top_),
          std::min(touched_.right, left_ + pixels.width),
          std::min(touched_.bottom, top_ + pixels.height)};
}

bool PixelTarget::blend(const PixelStamp& stamp, int x, int y) {
  if (!canTake(stamp.mask, x, y)) return false;
  const PixelRect part = visiblePart(stamp.mask, x, y);
  constexpr int kRows = 32;
  for (int top = part.top; top < part.bottom; top += kRows) {
    const int bottom = std::min(top + kRows, part.bottom);
    blend(stamp, x, y, {touched_.left, top, touched_.right, bottom}, ~0u >> (top + kRows - bottom));
  }
  return true;
}

bool PixelTarget::blend(const CoverageMask& mask, std::uint32_t premultipliedColor, int x, int y) {
  if (!canTake(mask, x, y)) return false;
  const PixelRect part = visiblePart(mask, x, y);
  for (int v = part.top; v < part.bottom; ++v) {
    const std::uint8_t* from = placed(mask.coverage.data(), mask, x, y, v);
    std::uint32_t* to = row(v);
    for (int u = part.left; u < part.right; ++u)
      to[u] = pixelOver(scaledPixel(premultipliedColor, from[u]), to[u]);
  }
  return true;
}

}  // namespace vexel
