#include "PdfSymbols.h"

#include "DevicePen.h"
#include "FileNumber.h"
#include "PdfOperators.h"
#include "PenReach.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

// What a style is in the file.
struct Look {
  /// Sets it.
  std::string operators;
  /// Draws a symbol; empty when nothing can be seen.
  std::string shape;
  CGFloat pen = 0;
};

class Looks {
 public:
  Looks(const CGPath& shape, const CairoCanvas& canvas, PdfForms& forms)
      : canvas_(canvas), forms_(forms) {
    // The file has y up.
    appendPath(path_, shape.transformed({1, 0, 0, -1, 0, 0}));
  }

  Look of(const CGSymbolStyle& style) {
    Look look;
    const CGStrokeStyle* line = style.strokeStyle;
    const double fill = style.fillColor ? visibleOpacity(*style.fillColor) : 0;
    const double stroke = line ? visibleOpacity(*line) : 0;
    if (fill == 0 && stroke == 0) return look;
    look.operators = forms_.opacity(fill, stroke) + " gs\n";
    std::string drawing;
    if (style.fillColor && fill > 0) {
      appendColor(look.operators, *style.fillColor, "rg");
      drawing += path_ + "f\n";
    }
    if (line && stroke > 0) {
      appendPen(look.operators, *line, devicePen(*line, canvas_.transform(), 0));
      drawing += path_ + "S\n";
      look.pen = penReach(*line) * meanScale(canvas_.transform());
    }
    look.shape = forms_.shape(drawing);
    return look;
  }

 private:
  const CairoCanvas& canvas_;
  PdfForms& forms_;
  std::string path_;
};

}  // namespace

std::string pdfSymbols(const CGPath& shape, const CairoCanvas& canvas,
                       std::span<const CGSymbolStyle> styles,
                       std::span<const std::uint32_t> styleOfCenter,
                       std::span<const CGPoint> centers, PdfForms& forms) {
  std::vector<Look> looks;
  Looks maker(shape, canvas, forms);
  for (const CGSymbolStyle& style : styles) looks.push_back(maker.of(style));
  const CGRect box = shape.boundingBox();
  const CGFloat height = canvas.page().size.height;
  std::string content;
  const Look* present = nullptr;
  for (std::size_t i = 0; i < centers.size(); ++i) {
    const Look& look = looks[styleOfCenter[i]];
    if (look.shape.empty()) continue;
    const CGPoint p = canvas.transform().apply(centers[i]);
    // With room for soft edges.
    const CGRect ink = box.insetBy(-look.pen - 1, -look.pen - 1);
    if (CGRect{ink.origin + p, ink.size}.intersection(canvas.clipBox()).isEmpty()) continue;
    if (&look != present) content += look.operators;
    present = &look;
    content += "q 1 0 0 1 ";
    appendNumber(content, p.x);
    content += ' ';
    appendNumber(content, height - p.y);
    content.append(" cm ").append(look.shape).append(" Do Q\n");
  }
  return content;
}

}  // namespace vexel
