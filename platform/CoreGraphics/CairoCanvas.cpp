#include "CairoCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "CairoImage.h"
#include "DevicePen.h"
#include "GlyphMasks.h"
#include "PageArea.h"
#include "ParallelLines.h"
#include "PenReach.h"
#include "PixelAlignment.h"
#include "PixelTarget.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

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

PixelRect pixelRect(const CGRect& whole) {
  const auto pixels = [](CGFloat edge) { return static_cast<int>(std::lround(edge)); };
  return {pixels(whole.minX()), pixels(whole.minY()), pixels(whole.maxX()), pixels(whole.maxY())};
}

/// What `hole` leaves of a box.
std::array<PixelRect, 4> partsOutside(const PixelRect& box, const PixelRect& hole) {
  const int left = std::clamp(hole.left, box.left, box.right);
  const int right = std::clamp(hole.right, left, box.right);
  const int top = std::clamp(hole.top, box.top, box.bottom);
  const int bottom = std::clamp(hole.bottom, top, box.bottom);
  return {PixelRect{box.left, box.top, box.right, top}, PixelRect{box.left, top, left, bottom},
          PixelRect{right, top, box.right, bottom},
          PixelRect{box.left, bottom, box.right, box.bottom}};
}

cairo_matrix_t cairoMatrix(const CGAffineTransform& t) {
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, t.a, t.b, t.c, t.d, t.tx, t.ty);
  return matrix;
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

void CairoCanvas::clip(const CGPath& path) {
  if (!isDrawable()) return;
  CGPath device = visibleFill(path.transformed(state_.transform), page_);
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
  if (style.alignsToPixels && kind_ == Surface::pixels) {
    const CGFloat width = style.width * meanScale(state_.transform);
    device = alignedToPixels(device, width, style.cap, page_);
    if (strokeAligned(device, style, width)) return;
  }

  for (const ClippedPiece& piece :
       visibleStroke(std::move(device), style, meanScale(state_.transform), page_))
    strokePath(piece.path, style, piece.lengthBefore);
}

bool CairoCanvas::strokeAligned(const CGPath& devicePath, const CGStrokeStyle& style,
                                CGFloat width) {
  if (!keepsShapes(state_.transform) || !state_.clipIsRectangle) return false;
  PixelTarget target(*this);
  return strokeParallelLines(target, devicePath, style, width);
}

void CairoCanvas::strokePath(const CGPath& devicePath, const CGStrokeStyle& style,
                             CGFloat lengthBefore) {
  const DevicePen pen = devicePen(style, state_.transform, lengthBefore);
  if (!(pen.width > 0)) return;
  cairo_t* cr = cairo_.get();
  setPath(devicePath);
  setColor(style.color);
  setMatrix(pen.toDevice);
  cairo_set_line_width(cr, pen.width);
  cairo_set_line_cap(cr, lineCap(style.cap));
  cairo_set_line_join(cr, lineJoin(style.join));
  cairo_set_miter_limit(cr, usableMiterLimit(style));
  cairo_set_dash(cr, pen.dashes.data(), static_cast<int>(pen.dashes.size()), pen.dashPhase);
  cairo_stroke(cr);
}

void CairoCanvas::fill(const CGPath& path, const CGColor& color) {
  if (!isDrawable()) return;
  setPath(visibleFill(path.transformed(state_.transform), page_));
  setColor(color);
  cairo_fill(cairo_.get());
}

void CairoCanvas::fillAligned(const CGRect& rect, const CGColor& color) {
  if (!isDrawable() || rect.isEmpty()) return;
  if (kind_ != Surface::pixels || !isAxisAligned()) return fill(rectPath(rect), color);
  setPath(visibleFill(rectPath(toPixelEdges(transformed(rect, state_.transform))), page_));
  setColor(color);
  cairo_fill(cairo_.get());
}

bool CairoCanvas::fillPlain(const CGRect& rect, const CGColor& color) {
  const bool isPlain = color.alpha() >= 1 && isAxisAligned() && state_.clipIsRectangle;
  if (!isDrawable() || !isPlain) return false;
  const PixelRect box =
      pixelRect(toPixelEdges(transformed(rect, state_.transform)).intersection(state_.clipBox));
  if (box.isEmpty()) return true;
  if (const auto below = std::exchange(plainFill_, std::nullopt))
    for (const PixelRect& part : partsOutside(below->box, box))
      PixelTarget(*this).fill(part, below->pixel);
  plainFill_ = PlainFill{box, premultipliedPixel(color)};
  isOpaque_ = isOpaque_ || box == pixelRect(visible_);
  return true;
}

void CairoCanvas::clear() {
  constexpr std::uint32_t kTransparent = 0;
  plainFill_ = PlainFill{pixelRect(visible_), kTransparent};
}

void CairoCanvas::finishFill() const {
  if (const auto fill = std::exchange(plainFill_, std::nullopt))
    PixelTarget(*this).fill(fill->box, fill->pixel);
}

cairo_surface_t* CairoCanvas::surface() const {
  finishFill();
  return surface_.get();
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
  const ImageRepeat repeat =
      kind_ == Surface::pixels ? ImageRepeat{} : fileRepeat(image, imageToDevice);
  const CairoSurfaceHandle source = cairoImage(image, repeat);
  if (!source) return;
  const CairoPatternHandle pattern(cairo_pattern_create_for_surface(source.get()));
  const CGAffineTransform toSource = imageToDevice.inverted().followedBy(
      CGAffineTransform::scale(static_cast<CGFloat>(repeat.x), static_cast<CGFloat>(repeat.y)));
  const cairo_matrix_t matrix = cairoMatrix(toSource);
  cairo_pattern_set_matrix(pattern.get(), &matrix);
  cairo_pattern_set_filter(pattern.get(),
                           image.layout().interpolates ? CAIRO_FILTER_GOOD : CAIRO_FILTER_NEAREST);
  // At the border the last pixels go on, so that no half-transparent seam arises. In a file the
  // pattern has to stay a plain image.
  if (kind_ == Surface::pixels) cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
  cairo_save(cairo_.get());
  setPath(visibleFill(deviceArea, page_));
  cairo_clip(cairo_.get());
  cairo_set_source(cairo_.get(), pattern.get());
  cairo_paint(cairo_.get());
  cairo_restore(cairo_.get());
}

PlacedText CairoCanvas::placedText(const CGText& text, CGPoint origin) const {
  return isDrawable() ? vexel::placedText(text, origin, state_.transform, page_) : PlacedText{};
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
  for (const CGPoint center : centers) {
    const CGPoint p = state_.transform.apply(center);
    if (CGRect{ink.origin + p, ink.size}.intersection(state_.clipBox).isEmpty()) continue;
    const CGAffineTransform before = state_.transform;
    concatenate(CGAffineTransform::translation(center.x, center.y));
    if (fillColor) fill(symbol, *fillColor);
    if (strokeStyle) stroke(symbol, *strokeStyle);
    state_.transform = before;
  }
}

void CairoCanvas::drawSurface(cairo_surface_t* source, CGFloat dx, CGFloat dy) {
  if (!isDrawable()) return;
  finishFill();
  cairo_identity_matrix(cairo_.get());
  cairo_set_source_surface(cairo_.get(), source, dx, dy);
  cairo_pattern_set_filter(cairo_get_source(cairo_.get()), CAIRO_FILTER_NEAREST);
  cairo_paint(cairo_.get());
}

void CairoCanvas::paintOverPage(cairo_surface_t* pixel) {
  if (!cairo_) return;
  cairo_identity_matrix(cairo_.get());
  cairo_scale(cairo_.get(), page_.size.width, page_.size.height);
  cairo_set_source_surface(cairo_.get(), pixel, 0, 0);
  cairo_paint(cairo_.get());
}

cairo_status_t CairoCanvas::finish() {
  const cairo_status_t status = cairo_status(cairo_.get());
  cairo_.reset();
  return status;
}

void CairoCanvas::setPath(const CGPath& devicePath) {
  finishFill();
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
  finishFill();
  const cairo_matrix_t matrix = cairoMatrix(transform);
  cairo_set_matrix(cairo_.get(), &matrix);
}

}  // namespace vexel
