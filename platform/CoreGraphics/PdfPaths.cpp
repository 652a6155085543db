#include "PdfPaths.h"

#include "DevicePen.h"
#include "PageArea.h"
#include "PdfOperators.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// The file has y up.
CGAffineTransform toFile(const CairoCanvas& canvas) {
  return {1, 0, 0, -1, 0, canvas.page().size.height};
}

}  // namespace

std::string pdfStroke(const CGPath& path, const CGStrokeStyle& style, const CairoCanvas& canvas,
                      PdfForms& forms) {
  const double opacity = visibleOpacity(style);
  if (opacity == 0) return {};
  const CGAffineTransform& t = canvas.transform();
  std::string lines;
  for (const ClippedPiece& piece :
       visibleStroke(path.transformed(t), style, meanScale(t), canvas.page())) {
    if (piece.path.isEmpty()) continue;
    appendPen(lines, style, devicePen(style, t, piece.lengthBefore));
    appendPath(lines, piece.path.transformed(toFile(canvas)));
    lines += "S\n";
  }
  return lines.empty() ? lines : forms.opacity(1, opacity) + " gs\n" + lines;
}

std::string pdfFill(const CGPath& path, const CGColor& color, const CairoCanvas& canvas,
                    PdfForms& forms) {
  const CGPath device = visibleFill(path.transformed(canvas.transform()), canvas.page());
  if (device.isEmpty() || visibleOpacity(color) == 0) return {};
  std::string content = forms.opacity(visibleOpacity(color), 1) + " gs\n";
  appendColor(content, color, "rg");
  appendPath(content, device.transformed(toFile(canvas)));
  return content + "f\n";
}

}  // namespace vexel
