#include <CoreGraphics/CGRecordingContext.h>

#include <algorithm>
#include <cmath>

#include "DecimalText.h"

namespace vexel {

namespace {

std::string words(std::initializer_list<double> numbers) {
  std::string text;
  for (const double n : numbers) text += (text.empty() ? "" : " ") + decimalText(n);
  return text;
}

std::string words(CGPoint p) {
  return words({p.x, p.y});
}

std::string words(const CGRect& r) {
  return words({r.origin.x, r.origin.y, r.size.width, r.size.height});
}

std::string words(const CGColor& color) {
  const auto hex = [](double component) {
    const double bounded = component > 0 ? std::min(component, 1.0) : 0;
    const auto value = static_cast<unsigned>(std::lround(bounded * 255));
    constexpr char kDigits[] = "0123456789abcdef";
    return std::string{kDigits[value / 16], kDigits[value % 16]};
  };
  std::string text = "#" + hex(color.red()) + hex(color.green()) + hex(color.blue());
  if (color.alpha() != 1) text += hex(color.alpha());
  return text;
}

std::string words(const CGPath& path) {
  std::string text;
  for (const CGPathElement& element : path.elements()) {
    if (!text.empty()) text += " ";
    switch (element.type) {
      case CGPathElement::Type::move:
        text += "M " + words(element.point);
        break;
      case CGPathElement::Type::line:
        text += "L " + words(element.point);
        break;
      case CGPathElement::Type::curve:
        text += "C " + words(element.control1) + " " + words(element.control2) + " " +
                words(element.point);
        break;
      case CGPathElement::Type::close:
        text += "Z";
        break;
    }
  }
  return text;
}

// Whatever differs from the defaults is named.
std::string words(const CGStrokeStyle& style) {
  const CGStrokeStyle defaults;
  std::string text = words(style.color) + " width " + decimalText(style.width);
  if (style.cap == CGLineCap::round) text += " cap round";
  if (style.cap == CGLineCap::square) text += " cap square";
  if (style.join == CGLineJoin::round) text += " join round";
  if (style.join == CGLineJoin::bevel) text += " join bevel";
  if (style.miterLimit != defaults.miterLimit) text += " miter " + decimalText(style.miterLimit);
  if (!style.dashPattern.empty()) {
    text += " dash";
    for (const CGFloat length : style.dashPattern) text += " " + decimalText(length);
    if (style.dashPhase != 0) text += " phase " + decimalText(style.dashPhase);
  }
  if (style.alignsToPixels) text += " aligned";
  return text;
}

std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '\n') {
      result += "\\n";
      continue;
    }
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + "\"";
}

std::string words(const CGTextRun& run) {
  std::string text = quoted(run.text) + " " + run.font.family + " " + decimalText(run.font.size);
  if (run.font.bold) text += " bold";
  if (run.font.italic) text += " italic";
  if (run.superscript > 0) text += " superscript";
  if (run.superscript < 0) text += " subscript";
  return text + " " + words(run.color);
}

}  // namespace

void CGRecordingContext::line(const std::string& call) {
  text_.append(2 * static_cast<std::size_t>(depth_), ' ').append(call).append("\n");
}

void CGRecordingContext::saveState() {
  line("save");
  ++depth_;
}

void CGRecordingContext::restoreState() {
  depth_ = std::max(0, depth_ - 1);
  line("restore");
}

void CGRecordingContext::concatenate(const CGAffineTransform& t) {
  line("transform " + words({t.a, t.b, t.c, t.d, t.tx, t.ty}));
}

void CGRecordingContext::clip(const CGPath& path) {
  line("clip " + words(path));
}

void CGRecordingContext::stroke(const CGPath& path, const CGStrokeStyle& style) {
  line("stroke " + words(style) + ": " + words(path));
}

void CGRecordingContext::fill(const CGPath& path, const CGColor& color) {
  line("fill " + words(color) + ": " + words(path));
}

void CGRecordingContext::fillAligned(const CGRect& rect, const CGColor& color) {
  line("fill " + words(color) + " aligned: " + words(rect));
}

void CGRecordingContext::drawImage(const CGImage& image, const CGRect& rect) {
  line("image " + std::to_string(image.width()) + " x " + std::to_string(image.height()) +
       " over " + words(rect));
}

void CGRecordingContext::drawText(const CGText& text, CGPoint origin) {
  std::string call = "text";
  for (const CGTextRun& run : text.runs) call += " " + words(run);
  if (text.alignment == CGTextAlignment::center) call += " center";
  if (text.alignment == CGTextAlignment::right) call += " right";
  line(call + " at " + words(origin));
}

void CGRecordingContext::drawSymbols(const CGPath& symbol, const CGColor* fillColor,
                                     const CGStrokeStyle* strokeStyle,
                                     std::span<const CGPoint> centers) {
  std::string call = "symbols";
  if (fillColor) call += " fill " + words(*fillColor);
  if (strokeStyle) call += " stroke " + words(*strokeStyle);
  call += ": " + words(symbol) + " at";
  for (std::size_t i = 0; i < centers.size(); ++i)
    call += (i == 0 ? " " : ", ") + words(centers[i]);
  line(call);
}

}  // namespace vexel
