#include "CairoCanvas.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "CairoImage.h"
#include "GlyphMasks.h"
#include "PangoText.h"
#include "PenReach.h"
#include "PixelAlignment.h"
#include "SafePath.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// Cairo fills polygons wrongly from about 2e5 pixels on, without an error, and drops what its 24
// bits before the point do not hold; so do viewers of files. Surfaces are half of this at most.
constexpr CGFloat kSafeReach = 65536;
// What lies farther outside the page than this, beside the reach of the pen, is cut away.
constexpr CGFloat kMargin = 4096;
// Pixels to a point that a vector file has of an image that is not smoothed.
constexpr CGFloat kFileResolution = 4;
// From this many on a symbol in a file is one shape that is referred to, if it is not larger than
// this.
constexpr std::size_t kFewSymbols = 4;
constexpr CGFloat kLargeSymbol = 512;
constexpr std::size_t kMaximumFileRepeat = 64;
constexpr std::size_t kMaximumFilePixels = 2048;

CGPath rectPath(const CGRect& rect) {
  CGMutablePath path;
  path.addRect(rect);
  return path;
}

CGRect transformed(const CGRect& rect, const CGAffineTransform& t) {
  return rectPath(rect).transformed(t).boundingBox();
}

CGRect toPixelEdges(const CGRect& rect) {
  const CGFloat left = nearestPixelEdge(rect.minX()), right = nearestPixelEdge(rect.maxX());
  const CGFloat low = nearestPixelEdge(rect.minY()), high = nearestPixelEdge(rect.maxY());
  return CGRect::make(left, low, right - left, high - low);
}

// Coordinates that should be whole differ from it by less than this, in pixels.
constexpr CGFloat kRoundingError = 1e-4;

CGRect outwardToPixels(const CGRect& rect) {
  const CGFloat left = std::floor(rect.minX()), low = std::floor(rect.minY());
  return CGRect::make(left, low, std::ceil(rect.maxX()) - left, std::ceil(rect.maxY()) - low);
}

cairo_matrix_t cairoMatrix(const CGAffineTransform& t) {
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, t.a, t.b, t.c, t.d, t.tx, t.ty);
  return matrix;
}

// How often a file repeats each of `count` pixels that are `points` long in it.
std::size_t fileRepeat(CGFloat points, std::size_t count) {
  const std::size_t most = std::min(kMaximumFileRepeat, kMaximumFilePixels / count);
  if (count == 1 || most < 2) return 1;
  return static_cast<std::size_t>(
      std::clamp(std::ceil(points * kFileResolution), 1.0, static_cast<CGFloat>(most)));
}

// Four lines around a rectangle, in either direction, closed.
bool isRectangle(const CGPath& path) {
  const auto e = path.elements();
  if (e.size() != 5 || e[0].type != CGPathElement::Type::move ||
      e[4].type != CGPathElement::Type::close)
    return false;
  for (int i = 1; i < 4; ++i)
    if (e[i].type != CGPathElement::Type::line) return false;
  const CGPoint a = e[0].point, b = e[1].point, c = e[2].point, d = e[3].point;
  return (a.y == b.y && b.x == c.x && c.y == d.y && d.x == a.x) ||
         (a.x == b.x && b.y == c.y && c.x == d.x && d.y == a.y);
}

std::vector<double> usableDashes(const CGStrokeStyle& style) {
  CGFloat sum = 0;
  for (const CGFloat length : style.dashPattern) {
    if (!(length >= 0 && std::isfinite(length))) return {};
    sum += length;
  }
  if (!(sum > 0 && std::isfinite(sum))) return {};
  return style.dashPattern;
}

cairo_line_cap_t lineCap(CGLineCap cap) {
  if (cap == CGLineCap::round) return CAIRO_LINE_CAP_ROUND;
  return cap == CGLineCap::square ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t lineJoin(CGLineJoin join) {
  if (join == CGLineJoin::round) return CAIRO_LINE_JOIN_ROUND;
  return join == CGLineJoin::bevel ? CAIRO_LINE_JOIN_BEVEL : CAIRO_LINE_JOIN_MITER;
}

double component(double value) {
  return value > 0 ? std::min(value, 1.0) : 0;
}

}  // namespace

CairoCanvas::CairoCanvas(CairoSurfaceHandle surface, Surface kind,
                         const CGAffineTransform& toDevice, const CGRect& visible,
                         const CGRect& page)
    : surface_(std::move(surface)),
      cairo_(cairo_create(surface_.get())),
      kind_(kind),
      visible_(visible),
      page_(page),
      state_{toDevice, visible} {}

void CairoCanvas::saveState() {
  saved_.push_back(state_);
  if (cairo_) cairo_save(cairo_.get());
}

void CairoCanvas::restoreState() {
  if (saved_.empty()) return;
  state_ = saved_.back();
  saved_.pop_back();
  if (cairo_) cairo_restore(cairo_.get());
}

void CairoCanvas::concatenate(const CGAffineTransform& transform) {
  state_.transform = transform.followedBy(state_.transform);
}

bool CairoCanvas::isDrawable() const {
  return cairo_ && hasInverse(state_.transform);
}

bool CairoCanvas::isAxisAligned() const {
  return keepsAxes(state_.transform) || swapsAxes(state_.transform);
}

CGRect CairoCanvas::safeBox(CGFloat pen) const {
  const CGFloat margin = std::min(kMargin + pen, kSafeReach);
  return page_.insetBy(-margin, -margin);
}

CGPath CairoCanvas::fillable(const CGPath& devicePath) const {
  const CGRect box = safeBox(0);
  if (liesInside(devicePath, box)) return devicePath;
  return clippedPolygons(flattenedInside(devicePath, box), box);
}

void CairoCanvas::clip(const CGPath& path) {
  if (!isDrawable()) return;
  CGPath device = fillable(path.transformed(state_.transform));
  // A pixel cut in part would let what lies below shine through, once more with every drawing.
  if (kind_ == Surface::pixels && isRectangle(device) && !device.boundingBox().isEmpty()) {
    const CGRect whole =
        outwardToPixels(device.boundingBox().insetBy(kRoundingError, kRoundingError));
    // Views and layers clip to the same few rectangles again and again.
    if (state_.clipBox.unionWith(whole) == whole) return;
    device = rectPath(whole);
  }
  setPath(device);
  cairo_clip(cairo_.get());
  state_.clipIsRectangle = state_.clipIsRectangle && (isRectangle(device) || device.isEmpty());
  state_.clipBox = state_.clipBox.intersection(device.boundingBox());
}

void CairoCanvas::stroke(const CGPath& path, const CGStrokeStyle& style) {
  if (!isDrawable() || path.isEmpty()) return;
  if (!(style.width > 0 && std::isfinite(style.width))) return;

  CGPath device = path.transformed(state_.transform);
  if (style.alignsToPixels && kind_ == Surface::pixels)
    device = alignedToPixels(device, style.width * meanScale(state_.transform), style.cap, page_);

  const CGRect box = safeBox(penReach(style) * meanScale(state_.transform));
  if (!usableDashes(style).empty()) {
    if (liesInside(device, box)) return strokePath(device, style, style.dashPhase);
    for (const ClippedPiece& piece : clippedPieces(flattenedInside(device, box), box))
      strokePath(piece.path, style,
                 style.dashPhase + piece.lengthBefore / meanScale(state_.transform));
    return;
  }
  if (!liesInside(device, box)) device = clippedLines(flattenedInside(device, box), box);
  strokePath(device, style, 0);
}

void CairoCanvas::strokePath(const CGPath& devicePath, const CGStrokeStyle& style,
                             CGFloat dashOffset) {
  cairo_t* cr = cairo_.get();
  setPath(devicePath);
  setColor(style.color);
  // The path is in the device already; the pen is not. A round one needs no transform there, which
  // keeps files small.
  const CGAffineTransform& t = state_.transform;
  const bool isRound = keepsShapes(t);
  const CGFloat unit = isRound ? meanScale(t) : 1;
  if (!isRound) setMatrix({t.a, t.b, t.c, t.d, 0, 0});

  cairo_set_line_width(cr, std::min(style.width, kSafeReach / meanScale(t)) * unit);
  cairo_set_line_cap(cr, lineCap(style.cap));
  cairo_set_line_join(cr, lineJoin(style.join));
  cairo_set_miter_limit(cr, usableMiterLimit(style));
  std::vector<double> dashes = usableDashes(style);
  CGFloat period = 0;
  for (double& length : dashes) {
    length *= unit;
    period += 2 * length;
  }
  // Scaled to nothing or beyond all numbers.
  if (!(period > 0 && std::isfinite(period))) dashes.clear();
  const CGFloat phase = dashes.empty() ? 0 : std::fmod(dashOffset * unit, period);
  cairo_set_dash(cr, dashes.data(), static_cast<int>(dashes.size()),
                 std::isfinite(phase) ? phase : 0);
  cairo_stroke(cr);
}

void CairoCanvas::fill(const CGPath& path, const CGColor& color) {
  if (!isDrawable()) return;
  setPath(fillable(path.transformed(state_.transform)));
  setColor(color);
  cairo_fill(cairo_.get());
}

void CairoCanvas::fillAligned(const CGRect& rect, const CGColor& color) {
  if (!isDrawable() || rect.isEmpty()) return;
  if (kind_ != Surface::pixels || !isAxisAligned()) return fill(rectPath(rect), color);
  setPath(fillable(rectPath(toPixelEdges(transformed(rect, state_.transform)))));
  setColor(color);
  cairo_fill(cairo_.get());
}

void CairoCanvas::drawImage(const CGImage& image, const CGRect& rect) {
  if (!isDrawable() || rect.isEmpty()) return;
  const CGRect box = transformed(rect, state_.transform);
  // Row 0 of the image at the top, where y is greatest.
  const CGAffineTransform imageToRect{
      rect.size.width / static_cast<CGFloat>(image.width()),    0,           0,
      -rect.size.height / static_cast<CGFloat>(image.height()), rect.minX(), rect.maxY()};
  const CGAffineTransform imageToDevice = imageToRect.followedBy(state_.transform);
  if (!hasInverse(imageToDevice)) return;
  if (kind_ != Surface::pixels || !isAxisAligned())
    return paintImage(image, imageToDevice, rectPath(rect).transformed(state_.transform));

  const CGRect aligned = toPixelEdges(box);
  if (aligned.isEmpty()) return;
  const CGFloat sx = aligned.size.width / box.size.width;
  const CGFloat sy = aligned.size.height / box.size.height;
  const CGAffineTransform imageToPixels = imageToDevice.followedBy(
      {sx, 0, 0, sy, aligned.minX() - sx * box.minX(), aligned.minY() - sy * box.minY()});
  if (image.layout().interpolates) return paintImage(image, imageToPixels, rectPath(aligned));
  const CGRect seen = aligned.intersection(outwardToPixels(state_.clipBox));
  if (seen.isEmpty()) return;
  if (const auto pixels = sampledImage(image, imageToPixels, seen)) drawSurface(pixels.get(), 0, 0);
}

void CairoCanvas::paintImage(const CGImage& image, const CGAffineTransform& imageToDevice,
                             const CGPath& deviceArea) {
  std::size_t repeatX = 1, repeatY = 1;
  if (kind_ != Surface::pixels && !image.layout().interpolates) {
    // Viewers smooth enlarged images, whatever the file says. Pixels that are sent enlarged stay
    // squares; one row or column of them looks alike in any case.
    repeatX = fileRepeat(std::hypot(imageToDevice.a, imageToDevice.b), image.width());
    repeatY = fileRepeat(std::hypot(imageToDevice.c, imageToDevice.d), image.height());
  }
  const CairoSurfaceHandle source = cairoImage(image, repeatX, repeatY);
  if (!source) return;
  const CairoPatternHandle pattern(cairo_pattern_create_for_surface(source.get()));
  const CGAffineTransform toSource = imageToDevice.inverted().followedBy(
      CGAffineTransform::scale(static_cast<CGFloat>(repeatX), static_cast<CGFloat>(repeatY)));
  const cairo_matrix_t matrix = cairoMatrix(toSource);
  cairo_pattern_set_matrix(pattern.get(), &matrix);
  cairo_pattern_set_filter(pattern.get(),
                           image.layout().interpolates ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
  // At the border the last pixels go on, so that no half-transparent seam arises. In a file the
  // pattern has to stay a plain image.
  if (kind_ == Surface::pixels) cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
  cairo_save(cairo_.get());
  setPath(fillable(deviceArea));
  cairo_clip(cairo_.get());
  cairo_set_source(cairo_.get(), pattern.get());
  cairo_paint(cairo_.get());
  cairo_restore(cairo_.get());
}

CairoCanvas::PlacedText CairoCanvas::placedText(const CGText& text, CGPoint origin) const {
  if (!isDrawable()) return {};
  std::shared_ptr<const PangoText> layout = PangoText::layout(text);
  // The layout runs downwards from its top.
  const CGAffineTransform toDevice =
      CGAffineTransform{1, 0, 0, -1, origin.x, origin.y + layout->size().height}.followedBy(
          state_.transform);
  const CGRect box = transformed({origin, layout->size()}, state_.transform);
  const CGFloat height = layout->size().height * meanScale(toDevice);
  constexpr CGFloat kTooSmall = 0.01;
  const bool isVisible = hasInverse(toDevice) && height > kTooSmall && height < kSafeReach &&
                         !box.intersection(safeBox(0)).isEmpty();
  return isVisible ? PlacedText{std::move(layout), toDevice} : PlacedText{};
}

void CairoCanvas::drawText(const CGText& text, CGPoint origin) {
  if (const PlacedText placed = placedText(text, origin); placed.layout) show(placed);
}

void CairoCanvas::show(const PlacedText& text) {
  setMatrix(text.toDevice);
  text.layout->show(cairo_.get());
  cairo_new_path(cairo_.get());
}

void CairoCanvas::fillGlyph(const PlacedGlyph& glyph, const CGAffineTransform& toDevice) {
  cairo_new_path(cairo_.get());
  setMatrix(toDevice);
  addGlyphPath(cairo_.get(), glyph.font, glyph.index);
  setColor(glyph.color);
  cairo_fill(cairo_.get());
}

void CairoCanvas::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                              const CGStrokeStyle* strokeStyle, std::span<const CGPoint> centers) {
  if (!isDrawable() || symbol.isEmpty()) return;
  CGAffineTransform linear = state_.transform;
  linear.tx = linear.ty = 0;
  const CGFloat pen = strokeStyle ? penReach(*strokeStyle) : 0;
  // The ink around a centre, with room for edges that are moved to pixels.
  const CGRect ink = outwardToPixels(
      transformed(symbol.boundingBox().insetBy(-pen, -pen), linear).insetBy(-1, -1));

  CairoSurfaceHandle recording;
  if (kind_ != Surface::pixels && centers.size() >= kFewSymbols &&
      std::max(ink.size.width, ink.size.height) < kLargeSymbol) {
    // A file holds the symbol once and refers to it. Cairo cuts off parts of recordings whose
    // extents do not begin at (0, 0).
    const cairo_rectangle_t extents{0, 0, ink.size.width, ink.size.height};
    recording.reset(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &extents));
    const CGAffineTransform toRecording =
        linear.followedBy(CGAffineTransform::translation(-ink.minX(), -ink.minY()));
    const CGRect whole{{0, 0}, ink.size};
    CairoCanvas recorder(CairoSurfaceHandle(cairo_surface_reference(recording.get())), kind_,
                         toRecording, whole, whole);
    recorder.drawSymbol(symbol, fillColor, strokeStyle);
  }
  for (const CGPoint center : centers) {
    const CGPoint p = state_.transform.apply(center);
    const CGRect box{ink.origin + p, ink.size};
    if (box.intersection(state_.clipBox).isEmpty()) continue;
    if (recording) {
      drawSurface(recording.get(), box.minX(), box.minY());
      continue;
    }
    const CGAffineTransform before = state_.transform;
    concatenate(CGAffineTransform::translation(center.x, center.y));
    drawSymbol(symbol, fillColor, strokeStyle);
    state_.transform = before;
  }
}

void CairoCanvas::drawSymbol(const CGPath& symbol, const CGColor* fillColor,
                             const CGStrokeStyle* strokeStyle) {
  if (fillColor) fill(symbol, *fillColor);
  if (strokeStyle) stroke(symbol, *strokeStyle);
}

void CairoCanvas::drawSurface(cairo_surface_t* source, CGFloat dx, CGFloat dy) {
  if (!isDrawable()) return;
  cairo_identity_matrix(cairo_.get());
  cairo_set_source_surface(cairo_.get(), source, dx, dy);
  cairo_pattern_set_filter(cairo_get_source(cairo_.get()), CAIRO_FILTER_NEAREST);
  cairo_paint(cairo_.get());
}

cairo_status_t CairoCanvas::finish() {
  const cairo_status_t status = cairo_status(cairo_.get());
  cairo_.reset();
  return status;
}

void CairoCanvas::setPath(const CGPath& devicePath) {
  cairo_t* cr = cairo_.get();
  cairo_identity_matrix(cr);
  cairo_new_path(cr);
  for (const CGPathElement& e : devicePath.elements()) {
    switch (e.type) {
      case CGPathElement::Type::move:
        cairo_move_to(cr, e.point.x, e.point.y);
        break;
      case CGPathElement::Type::line:
        cairo_line_to(cr, e.point.x, e.point.y);
        break;
      case CGPathElement::Type::curve:
        cairo_curve_to(cr, e.control1.x, e.control1.y, e.control2.x, e.control2.y, e.point.x,
                       e.point.y);
        break;
      case CGPathElement::Type::close:
        cairo_close_path(cr);
        break;
    }
  }
}

void CairoCanvas::setColor(const CGColor& color) {
  cairo_set_source_rgba(cairo_.get(), component(color.red()), component(color.green()),
                        component(color.blue()), component(color.alpha()));
}

void CairoCanvas::setMatrix(const CGAffineTransform& transform) {
  const cairo_matrix_t matrix = cairoMatrix(transform);
  cairo_set_matrix(cairo_.get(), &matrix);
}

}  // namespace vexel
