#include "SvgValues.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace vexel {

namespace {

// Writes steps in units of the last decimal, so that what is equal in the file counts as equal.
class PathWriter {
 public:
  PathWriter(std::string& svg, int decimals) : svg_(svg), decimals_(decimals) {}

  void move(CGPoint to) {
    svg_ += 'M';
    start_ = at_ = place(to);
    append(at_);
  }

  void line(CGPoint to) {
    const Place next = place(to);
    if (next.x == at_.x && next.y != at_.y) {
      svg_ += 'V';
      appendUnits(svg_, next.y, decimals_);
    } else if (next.y == at_.y) {
      svg_ += 'H';
      appendUnits(svg_, next.x, decimals_);
    } else {
      svg_ += 'L';
      append(next);
    }
    at_ = next;
  }

  void curve(const CGPathElement& element) {
    svg_ += 'C';
    append(place(element.control1));
    svg_ += ' ';
    append(place(element.control2));
    svg_ += ' ';
    at_ = place(element.point);
    append(at_);
  }

  void close() {
    svg_ += 'Z';
    at_ = start_;
  }

 private:
  struct Place {
    std::int64_t x, y;
  };

  Place place(CGPoint p) const { return {fileUnits(p.x, decimals_), fileUnits(p.y, decimals_)}; }

  void append(Place p) {
    appendUnits(svg_, p.x, decimals_);
    svg_ += ' ';
    appendUnits(svg_, p.y, decimals_);
  }

  std::string& svg_;
  int decimals_;
  Place start_{}, at_{};
};

unsigned eightBits(double component) {
  return static_cast<unsigned>(std::lround((component > 0 ? std::min(component, 1.0) : 0) * 255));
}

// What the byte at the front of a text becomes; `length` is of the character that it stands for.
bool isForbidden(std::string_view text) {
  const auto byte = static_cast<unsigned char>(text.front());
  if (byte < 0x20) return byte != '\t' && byte != '\n';
  // U+FFFE and U+FFFF.
  return text.starts_with("\xef\xbf\xbe") || text.starts_with("\xef\xbf\xbf");
}

}  // namespace

void appendAttribute(std::string& svg, std::string_view name, double value) {
  svg.append(" ").append(name).append("=\"");
  appendNumber(svg, value);
  svg += '"';
}

void appendAttribute(std::string& svg, std::string_view name, std::string_view value) {
  svg.append(" ").append(name).append("=\"");
  appendEscaped(svg, value);
  svg += '"';
}

void appendMatrix(std::string& svg, const CGAffineTransform& t) {
  svg += " transform=\"matrix(";
  for (const double entry : {t.a, t.b, t.c, t.d}) {
    appendNumber(svg, entry, kMatrixDecimals);
    svg += ' ';
  }
  appendNumber(svg, t.tx);
  svg += ' ';
  appendNumber(svg, t.ty);
  svg += ")\"";
}

void appendPaint(std::string& svg, std::string_view name, const CGColor& color) {
  constexpr char kDigits[] = "0123456789abcdef";
  svg.append(" ").append(name).append("=\"#");
  const std::array<unsigned, 3> components = {eightBits(color.red()), eightBits(color.green()),
                                              eightBits(color.blue())};
  const bool isShort = std::ranges::all_of(components, [](unsigned c) { return c % 17 == 0; });
  for (const unsigned c : components) {
    svg += kDigits[c / 16];
    if (!isShort) svg += kDigits[c % 16];
  }
  svg += '"';
  if (color.alpha() >= 1) return;
  svg.append(" ").append(name).append("-opacity=\"");
  appendNumber(svg, std::max(color.alpha(), 0.0));
  svg += '"';
}

void appendPathData(std::string& svg, const CGPath& path, int decimals) {
  PathWriter writer(svg, decimals);
  for (const CGPathElement& element : path.elements()) {
    switch (element.type) {
      case CGPathElement::Type::move:
        writer.move(element.point);
        break;
      case CGPathElement::Type::line:
        writer.line(element.point);
        break;
      case CGPathElement::Type::curve:
        writer.curve(element);
        break;
      case CGPathElement::Type::close:
        writer.close();
        break;
    }
  }
}

void appendEscaped(std::string& svg, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case '&':
        svg += "&amp;";
        break;
      case '<':
        svg += "&lt;";
        break;
      case '>':
        svg += "&gt;";
        break;
      case '"':
        svg += "&quot;";
        break;
      default:
        if (!isForbidden(text.substr(i)))
          svg += text[i];
        else if (static_cast<unsigned char>(text[i]) == 0xef)
          i += 2;
    }
  }
}

}  // namespace vexel
