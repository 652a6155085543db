#include "SvgContext.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "Base64.h"
#include "CairoImage.h"
#include "DevicePen.h"
#include "PageArea.h"
#include "PenReach.h"
#include "PlacedText.h"
#include "PngFile.h"
#include "SvgText.h"
#include "SvgValues.h"
#include "SymbolShape.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// What the file says once for all elements: SVG's own miter limit is 4.
constexpr CGFloat kMiterLimit = 10;

CGPath rectPath(const CGRect& rect) {
  CGMutablePath path;
  path.addRect(rect);
  return path;
}

CGAffineTransform linearPart(CGAffineTransform t) {
  t.tx = t.ty = 0;
  return t;
}

bool isVisible(const CGColor& color) {
  return color.alpha() > 0;
}

bool isVisible(const CGStrokeStyle& style) {
  return style.width > 0 && std::isfinite(style.width) && isVisible(style.color);
}

void appendStroke(std::string& svg, const CGStrokeStyle& style, const DevicePen& pen) {
  appendPaint(svg, "stroke", style.color);
  if (pen.width != 1) appendAttribute(svg, "stroke-width", pen.width);
  if (style.cap != CGLineCap::butt)
    appendAttribute(svg, "stroke-linecap", style.cap == CGLineCap::round ? "round" : "square");
  if (style.join != CGLineJoin::miter)
    appendAttribute(svg, "stroke-linejoin", style.join == CGLineJoin::round ? "round" : "bevel");
  else if (usableMiterLimit(style) != kMiterLimit)
    appendAttribute(svg, "stroke-miterlimit", usableMiterLimit(style));
  if (pen.dashes.empty()) return;
  svg += " stroke-dasharray=\"";
  for (const double length : pen.dashes) {
    if (svg.back() != '"') svg += ' ';
    appendNumber(svg, length);
  }
  svg += '"';
  if (pen.dashPhase != 0) appendAttribute(svg, "stroke-dashoffset", pen.dashPhase);
}

std::string pngOf(cairo_surface_t* image) {
  // Rows of 32-bit pixels have no padding.
  const int width = cairo_image_surface_get_width(image);
  const int height = cairo_image_surface_get_height(image);
  const auto* pixels = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(image));
  return pngFile({pixels, static_cast<std::size_t>(width) * static_cast<std::size_t>(height)},
                 width, height);
}

}  // namespace

SvgContext::SvgContext(CGSize size)
    : page_{{0, 0}, size}, state_{{1, 0, 0, -1, 0, size.height}, page_, true, ""} {}

bool SvgContext::isDrawable() const {
  return !isFinished_ && hasInverse(state_.transform) && !state_.clipBox.isEmpty();
}

void SvgContext::saveState() {
  saved_.push_back(state_);
}

void SvgContext::restoreState() {
  if (saved_.empty()) return;
  state_ = std::move(saved_.back());
  saved_.pop_back();
}

void SvgContext::concatenate(const CGAffineTransform& transform) {
  state_.transform = transform.followedBy(state_.transform);
}

void SvgContext::clip(const CGPath& path) {
  if (!isDrawable()) return;
  CGPath device = visibleFill(path.transformed(state_.transform), page_);
  const bool isUpright = isRectangle(device);
  const CGRect visible = state_.clipBox.intersection(device.boundingBox());
  // An upright rectangle that cuts nothing off.
  if (isUpright && visible == state_.clipBox) return;
  state_.clipBox = visible;
  if (visible.isEmpty()) return;

  std::string rest = "\"";
  if (isUpright && state_.clipIsRectangle)
    device = rectPath(visible);
  else if (!state_.clipName.empty())
    rest += " clip-path=\"url(#" + state_.clipName + ")\"";
  state_.clipIsRectangle = state_.clipIsRectangle && isUpright;
  rest += "><path d=\"";
  appendPathData(rest, device);
  rest += "\"/></clipPath>\n";
  state_.clipName = definition('c', "<clipPath id=\"", rest);
}

void SvgContext::stroke(const CGPath& path, const CGStrokeStyle& style) {
  if (!isDrawable() || path.isEmpty() || !isVisible(style)) return;
  for (const ClippedPiece& piece :
       visibleStroke(path.transformed(state_.transform), style, meanScale(state_.transform), page_))
    strokePiece(piece.path, style, piece.lengthBefore);
}

void SvgContext::strokePiece(const CGPath& devicePath, const CGStrokeStyle& style,
                             CGFloat lengthBefore) {
  const DevicePen pen = devicePen(style, state_.transform, lengthBefore);
  if (devicePath.isEmpty() || !(pen.width > 0)) return;
  std::string& svg = body();
  svg += "<path";
  if (pen.toDevice != CGAffineTransform{}) appendMatrix(svg, pen.toDevice);
  appendStroke(svg, style, pen);
  svg += " d=\"";
  if (pen.toDevice == CGAffineTransform{})
    appendPathData(svg, devicePath);
  else
    appendPathData(svg, devicePath.transformed(pen.toDevice.inverted()), kMatrixDecimals);
  svg += "\"/>\n";
}

void SvgContext::fill(const CGPath& path, const CGColor& color) {
  if (!isDrawable() || !isVisible(color)) return;
  const CGPath device = visibleFill(path.transformed(state_.transform), page_);
  if (device.isEmpty()) return;
  std::string& svg = body();
  svg += "<path";
  appendPaint(svg, "fill", color);
  svg += " d=\"";
  appendPathData(svg, device);
  svg += "\"/>\n";
}

void SvgContext::fillAligned(const CGRect& rect, const CGColor& color) {
  if (!rect.isEmpty()) fill(rectPath(rect), color);
}

void SvgContext::drawImage(const CGImage& image, const CGRect& rect) {
  if (!isDrawable() || rect.isEmpty()) return;
  // From the top-left corner, y down, in lengths of the device.
  const CGAffineTransform& t = state_.transform;
  const CGFloat across = std::hypot(t.a, t.b), down = std::hypot(t.c, t.d);
  CGAffineTransform toDevice{t.a / across, t.b / across, -t.c / down, -t.d / down, 0, 0};
  const CGPoint corner = t.apply({rect.minX(), rect.maxY()});
  toDevice.tx = corner.x;
  toDevice.ty = corner.y;
  const CGSize size{rect.size.width * across, rect.size.height * down};
  const CGAffineTransform imageToDevice =
      CGAffineTransform::scale(size.width / static_cast<CGFloat>(image.width()),
                               size.height / static_cast<CGFloat>(image.height()))
          .followedBy(toDevice);
  const CGRect box = rectPath({{0, 0}, size}).transformed(toDevice).boundingBox();
  if (!hasInverse(imageToDevice) || box.intersection(state_.clipBox).isEmpty()) return;
  const CairoSurfaceHandle pixels = cairoImage(image, fileRepeat(image, imageToDevice));
  if (!pixels) return;

  std::string& svg = body();
  svg += "<image";
  if (linearPart(toDevice) == CGAffineTransform{}) {
    appendAttribute(svg, "x", toDevice.tx);
    appendAttribute(svg, "y", toDevice.ty);
  } else {
    appendMatrix(svg, toDevice);
  }
  appendAttribute(svg, "width", size.width);
  appendAttribute(svg, "height", size.height);
  svg += " preserveAspectRatio=\"none\"";
  // Viewers know one of the words or the other.
  if (!image.layout().interpolates)
    svg += " image-rendering=\"optimizeSpeed\" style=\"image-rendering:pixelated\"";
  svg += " xlink:href=\"data:image/png;base64,";
  appendBase64(svg, pngOf(pixels.get()));
  svg += "\"/>\n";
}

void SvgContext::drawText(const CGText& text, CGPoint origin) {
  if (!isDrawable()) return;
  const PlacedText placed = placedText(text, origin, state_.transform, page_);
  if (placed.layout) appendSvgText(body(), text, placed);
}

void SvgContext::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                             const CGStrokeStyle* strokeStyle, std::span<const CGPoint> centers) {
  if (!isDrawable() || symbol.isEmpty() || centers.empty()) return;
  drawShape(symbol, shapeOf(symbol), {fillColor, strokeStyle}, centers);
}

void SvgContext::drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                                   std::span<const std::uint32_t> styleOfCenter,
                                   std::span<const CGPoint> centers) {
  if (!isDrawable() || symbol.isEmpty() || centers.empty()) return;
  const Shape shape = shapeOf(symbol);
  std::size_t end = 0;
  for (std::size_t begin = 0; begin < centers.size(); begin = end) {
    const std::uint32_t place = styleOfCenter[begin];
    while (end < centers.size() && styleOfCenter[end] == place) ++end;
    drawShape(symbol, shape, styles[place], centers.subspan(begin, end - begin));
  }
}

SvgContext::Shape SvgContext::shapeOf(const CGPath& symbol) {
  const std::optional<CGPath> shape = symbolShape(symbol, state_.transform);
  if (!shape) return {};
  std::string rest = "\" d=\"";
  appendPathData(rest, *shape);
  return {definition('s', "<path id=\"", rest + "\"/>\n"), shape->boundingBox()};
}

void SvgContext::drawShape(const CGPath& symbol, const Shape& shape, const CGSymbolStyle& style,
                           std::span<const CGPoint> centers) {
  if (shape.name.empty()) {
    const CGAffineTransform before = state_.transform;
    for (const CGPoint center : centers) {
      concatenate(CGAffineTransform::translation(center.x, center.y));
      if (style.fillColor) fill(symbol, *style.fillColor);
      if (style.strokeStyle) stroke(symbol, *style.strokeStyle);
      state_.transform = before;
    }
    return;
  }

  std::string look;
  CGFloat pen = 0;
  if (style.fillColor && isVisible(*style.fillColor)) appendPaint(look, "fill", *style.fillColor);
  if (style.strokeStyle && isVisible(*style.strokeStyle)) {
    appendStroke(look, *style.strokeStyle, devicePen(*style.strokeStyle, state_.transform, 0));
    pen = penReach(*style.strokeStyle) * meanScale(state_.transform);
  }
  if (look.empty()) return;

  // With room for soft edges.
  const CGRect ink = shape.box.insetBy(-pen - 1, -pen - 1);
  const bool isGroup = centers.size() > 1;
  std::string& svg = body();
  const std::size_t before = svg.size();
  if (isGroup) svg += "<g" + look + ">\n";
  const std::size_t empty = svg.size();
  for (const CGPoint center : centers) {
    const CGPoint p = state_.transform.apply(center);
    if (CGRect{ink.origin + p, ink.size}.intersection(state_.clipBox).isEmpty()) continue;
    svg.append("<use xlink:href=\"#").append(shape.name).append("\"");
    appendAttribute(svg, "x", p.x);
    appendAttribute(svg, "y", p.y);
    if (!isGroup) svg += look;
    svg += "/>\n";
  }
  if (svg.size() == empty)
    svg.resize(before);
  else if (isGroup)
    svg += "</g>\n";
}

std::string& SvgContext::body() {
  if (state_.clipName == groupClip_) return body_;
  if (!groupClip_.empty()) body_ += "</g>\n";
  if (!state_.clipName.empty()) body_ += "<g clip-path=\"url(#" + state_.clipName + ")\">\n";
  groupClip_ = state_.clipName;
  return body_;
}

std::string SvgContext::definition(char letter, const char* start, const std::string& rest) {
  std::string& name = names_[letter + rest];
  if (name.empty()) {
    name = letter + std::to_string(names_.size() - 1);
    definitions_.append(start).append(name).append(rest);
  }
  return name;
}

std::string SvgContext::finish() {
  isFinished_ = true;
  std::string svg =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
      "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"";
  const auto appendSides = [&](const char* between, const char* end) {
    appendNumber(svg, page_.size.width, kMatrixDecimals);
    svg += between;
    appendNumber(svg, page_.size.height, kMatrixDecimals);
    svg += end;
  };
  appendSides("pt\" height=\"", "pt\" viewBox=\"0 0 ");
  appendSides(" ", "\" fill=\"none\"");
  appendAttribute(svg, "stroke-miterlimit", kMiterLimit);
  appendAttribute(svg, "font-family", kSvgDefaultFamily);
  svg += " text-anchor=\"middle\" xml:space=\"preserve\">\n";
  if (!definitions_.empty()) svg.append("<defs>\n").append(definitions_).append("</defs>\n");
  svg += body_;
  if (!groupClip_.empty()) svg += "</g>\n";
  return svg + "</svg>\n";
}

}  // namespace vexel
