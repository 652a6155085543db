#include "CairoPdfContext.h"

#include <cairo-pdf.h>

#include <new>
#include <string>
#include <utility>

#include "CairoContext.h"
#include "CairoStream.h"
#include "PdfForms.h"
#include "PdfPaths.h"
#include "PdfSymbols.h"
#include "SymbolShape.h"
#include "TransformFacts.h"

namespace vexel {

namespace {

/// Text and images are drawn by Cairo, which knows how to embed fonts; everything between them is
/// collected and written at once, which takes a tenth of the time.
class CairoPdfContext final : public CairoContext<CGDocumentContext> {
 public:
  CairoPdfContext(CairoCanvas canvas, std::unique_ptr<std::string> bytes)
      : CairoContext(std::move(canvas)), bytes_(std::move(bytes)), forms_(canvas_.page().size) {}

  // What is left to write goes into the bytes while they live.
  ~CairoPdfContext() override { end(); }

  void saveState() override {
    savedClips_.push_back(clip_);
    canvas_.saveState();
  }

  void restoreState() override {
    if (savedClips_.empty()) return;
    if (savedClips_.back() != clip_) showOrFail();
    clip_ = savedClips_.back();
    savedClips_.pop_back();
    canvas_.restoreState();
  }

  void clip(const CGPath& path) override {
    show();
    clip_ = ++clips_;
    canvas_.clip(path);
  }
  using CGContext::clip;

  void stroke(const CGPath& path, const CGStrokeStyle& style) override {
    if (!canvas_.isDrawable() || path.isEmpty()) return;
    if (keepsShapes(canvas_.transform())) {
      content_ += pdfStroke(path, style, canvas_, forms_);
    } else {
      show();
      canvas_.stroke(path, style);
    }
  }

  void fill(const CGPath& path, const CGColor& color) override {
    if (canvas_.isDrawable()) content_ += pdfFill(path, color, canvas_, forms_);
  }

  void fillAligned(const CGRect& rect, const CGColor& color) override {
    if (rect.isEmpty()) return;
    CGMutablePath path;
    path.addRect(rect);
    fill(path, color);
  }

  void drawImage(const CGImage& image, const CGRect& rect) override {
    show();
    canvas_.drawImage(image, rect);
  }

  void drawText(const CGText& text, CGPoint origin) override {
    show();
    canvas_.drawText(text, origin);
  }

  void drawSymbols(const CGPath& symbol, const CGColor* fillColor, const CGStrokeStyle* strokeStyle,
                   std::span<const CGPoint> centers) override {
    const CGSymbolStyle style{fillColor, strokeStyle};
    const std::vector<std::uint32_t> places(centers.size(), 0);
    drawStyledSymbols(symbol, {&style, 1}, places, centers);
  }

  void drawStyledSymbols(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                         std::span<const std::uint32_t> styleOfCenter,
                         std::span<const CGPoint> centers) override {
    if (!canvas_.isDrawable() || symbol.isEmpty() || centers.empty()) return;
    if (const auto shape = symbolShape(symbol, canvas_.transform()))
      content_ += pdfSymbols(*shape, canvas_, styles, styleOfCenter, centers, forms_);
    else
      drawOneByOne(symbol, styles, styleOfCenter, centers);
  }

  std::string finish() override {
    show();
    end();
    if (status_ != CAIRO_STATUS_SUCCESS) throw CGContextError(cairo_status_to_string(status_));
    return forms_.insertedInto(*bytes_);
  }

 private:
  /// What has been collected becomes part of the page.
  void show() {
    if (content_.empty()) return;
    canvas_.paintOverPage(forms_.standInFor(std::exchange(content_, {})).get());
  }

  /// The same where nothing may be thrown: a failure is told by finish().
  void showOrFail() noexcept {
    try {
      show();
    } catch (const std::bad_alloc&) {
      status_ = CAIRO_STATUS_NO_MEMORY;
    }
  }

  void drawOneByOne(const CGPath& symbol, std::span<const CGSymbolStyle> styles,
                    std::span<const std::uint32_t> styleOfCenter,
                    std::span<const CGPoint> centers) {
    for (std::size_t i = 0; i < centers.size(); ++i) {
      const CGSymbolStyle& style = styles[styleOfCenter[i]];
      CGContext::drawSymbols(symbol, style.fillColor, style.strokeStyle, centers.subspan(i, 1));
    }
  }

  void end() {
    if (isFinished_) return;
    isFinished_ = true;
    const cairo_status_t drawing = canvas_.finish();
    cairo_surface_finish(canvas_.surface());
    for (const auto status : {drawing, cairo_surface_status(canvas_.surface())})
      if (status_ == CAIRO_STATUS_SUCCESS) status_ = status;
  }

  std::unique_ptr<std::string> bytes_;
  PdfForms forms_;
  std::string content_;
  // Clips by numbers, 0 for none.
  std::size_t clip_ = 0, clips_ = 0;
  std::vector<std::size_t> savedClips_;
  cairo_status_t status_ = CAIRO_STATUS_SUCCESS;
  bool isFinished_ = false;
};

}  // namespace

std::unique_ptr<CGDocumentContext> makePdfContext(CGSize size) {
  auto bytes = std::make_unique<std::string>();
  CairoSurfaceHandle surface(
      cairo_pdf_surface_create_for_stream(appendToString, bytes.get(), size.width, size.height));
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
  // Later versions may hide the table of objects in a stream.
  cairo_pdf_surface_restrict_to_version(surface.get(), CAIRO_PDF_VERSION_1_4);
  const CGRect page{{0, 0}, size};
  CairoCanvas canvas(std::move(surface), CairoCanvas::Surface::pdf, {1, 0, 0, -1, 0, size.height},
                     page, page);
  return std::make_unique<CairoPdfContext>(std::move(canvas), std::move(bytes));
}

}  // namespace vexel
