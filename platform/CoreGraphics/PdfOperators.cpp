#include "PdfOperators.h"

#include <algorithm>
#include <cmath>

#include "FileNumber.h"
#include "PenReach.h"

namespace vexel {

namespace {

void appendPoint(std::string& content, CGPoint p) {
  appendNumber(content, p.x);
  content += ' ';
  appendNumber(content, p.y);
  content += ' ';
}

}  // namespace

double visibleOpacity(const CGColor& color) {
  return color.alpha() > 0 ? std::min(color.alpha(), 1.0) : 0;
}

double visibleOpacity(const CGStrokeStyle& style) {
  return style.width > 0 && std::isfinite(style.width) ? visibleOpacity(style.color) : 0;
}

void appendColor(std::string& content, const CGColor& color, const char* operation) {
  for (const double component : {color.red(), color.green(), color.blue()}) {
    appendNumber(content, component > 0 ? std::min(component, 1.0) : 0, 4);
    content += ' ';
  }
  content.append(operation).append("\n");
}

void appendPen(std::string& content, const CGStrokeStyle& style, const DevicePen& pen) {
  appendColor(content, style.color, "RG");
  appendNumber(content, pen.width, kMatrixDecimals);
  content += " w ";
  content += style.cap == CGLineCap::butt ? '0' : style.cap == CGLineCap::round ? '1' : '2';
  content += " J ";
  content += style.join == CGLineJoin::miter ? '0' : style.join == CGLineJoin::round ? '1' : '2';
  content += " j ";
  appendNumber(content, usableMiterLimit(style));
  content += " M [ ";
  for (const double length : pen.dashes) {
    appendNumber(content, length);
    content += ' ';
  }
  content += "] ";
  appendNumber(content, pen.dashPhase);
  content += " d\n";
}

void appendPath(std::string& content, const CGPath& path) {
  for (const CGPathElement& element : path.elements()) {
    switch (element.type) {
      case CGPathElement::Type::move:
        appendPoint(content, element.point);
        content += "m\n";
        break;
      case CGPathElement::Type::line:
        appendPoint(content, element.point);
        content += "l\n";
        break;
      case CGPathElement::Type::curve:
        appendPoint(content, element.control1);
        appendPoint(content, element.control2);
        appendPoint(content, element.point);
        content += "c\n";
        break;
      case CGPathElement::Type::close:
        content += "h\n";
        break;
    }
  }
}

}  // namespace vexel
