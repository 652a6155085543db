#include "SvgText.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "SvgValues.h"
#include "Utf8.h"

namespace vexel {

// Families of the same widths, on systems that lack the first.
const char* const kSvgDefaultFamily = "Helvetica,Arial,'Liberation Sans',sans-serif";

namespace {

constexpr std::array<std::string_view, 5> kGenericFamilies = {"serif", "sans-serif", "monospace",
                                                              "cursive", "fantasy"};

// One family, quoted as style sheets want it.
void appendFamily(std::string& list, std::string_view family) {
  if (!list.empty()) list += ',';
  if (std::ranges::count(kGenericFamilies, family) > 0) {
    list += family;
    return;
  }
  list += '\'';
  for (const char c : family) {
    if (c == '\'' || c == '\\') list += '\\';
    if (c != '\n' && c != '\t') list += c;
  }
  list += '\'';
}

// The families of a font, of which there may be several between commas, and one that every viewer
// has.
std::string familyList(const std::string& families) {
  std::string list;
  std::string_view rest = families;
  while (!rest.empty()) {
    std::string_view family = rest.substr(0, rest.find(','));
    rest.remove_prefix(std::min(rest.size(), family.size() + 1));
    while (family.starts_with(' ')) family.remove_prefix(1);
    while (family.ends_with(' ')) family.remove_suffix(1);
    if (!family.empty()) appendFamily(list, family);
  }
  return list.empty() ? "sans-serif" : list + ",sans-serif";
}

void appendLook(std::string& svg, const CGTextRun& run) {
  if (run.font.family != "Helvetica")
    appendAttribute(svg, "font-family", familyList(validUtf8(run.font.family)));
  appendAttribute(svg, "font-size", drawnFontSize(run));
  if (run.font.bold) appendAttribute(svg, "font-weight", "bold");
  if (run.font.italic) appendAttribute(svg, "font-style", "italic");
  appendPaint(svg, "fill", run.color);
}

void appendPieces(std::string& svg, const CGText& text, const TextLine& line) {
  const CGTextRun& first = text.runs[line.pieces.front().run];
  CGFloat rise = 0;
  if (line.pieces.size() == 1 && baselineRise(first) == 0) {
    appendLook(svg, first);
    svg += '>';
    appendEscaped(svg, line.pieces.front().characters);
    return;
  }
  svg += '>';
  for (const TextPiece& piece : line.pieces) {
    const CGTextRun& run = text.runs[piece.run];
    svg += "<tspan";
    if (baselineRise(run) != rise) appendAttribute(svg, "dy", rise - baselineRise(run));
    rise = baselineRise(run);
    appendLook(svg, run);
    svg += '>';
    appendEscaped(svg, piece.characters);
    svg += "</tspan>";
  }
}

}  // namespace

void appendSvgText(std::string& svg, const CGText& text, const PlacedText& placed) {
  const CGAffineTransform& t = placed.toDevice;
  const bool isUpright = t.a == 1 && t.b == 0 && t.c == 0 && t.d == 1;
  for (const TextLine& line : placed.layout->lines()) {
    if (line.pieces.empty()) continue;
    const CGPoint anchor = t.apply({line.middle, line.baseline});
    svg += "<text";
    if (isUpright) {
      appendAttribute(svg, "x", anchor.x);
      appendAttribute(svg, "y", anchor.y);
    } else {
      appendMatrix(svg, {t.a, t.b, t.c, t.d, anchor.x, anchor.y});
    }
    if (line.isRightToLeft) appendAttribute(svg, "direction", "rtl");
    appendPieces(svg, text, line);
    svg += "</text>\n";
  }
}

}  // namespace vexel
