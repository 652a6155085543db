#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include <CoreGraphics/CGDocumentContext.h>

#include "CairoContext.h"
#include "CairoStream.h"
#include "SvgRewriting.h"

namespace vexel {

namespace {

CairoSurfaceHandle makeSurface(CGDocumentContext::Format format, CGSize size, std::string* bytes) {
  if (format == CGDocumentContext::Format::pdf) {
    CairoSurfaceHandle surface(
        cairo_pdf_surface_create_for_stream(appendToString, bytes, size.width, size.height));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
    return surface;
  }
  CairoSurfaceHandle surface(
      cairo_svg_surface_create_for_stream(appendToString, bytes, size.width, size.height));
  cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PT);
  return surface;
}

class CairoDocumentContext final : public CairoContext<CGDocumentContext> {
 public:
  CairoDocumentContext(Format format, CairoCanvas canvas, std::unique_ptr<std::string> bytes)
      : CairoContext(std::move(canvas)), format_(format), bytes_(std::move(bytes)) {}

  // What is left to write goes into the bytes while they live.
  ~CairoDocumentContext() override { end(); }

  std::string finish() override {
    end();
    if (status_ != CAIRO_STATUS_SUCCESS) throw CGContextError(cairo_status_to_string(status_));
    return format_ == Format::svg ? rewrittenSvg(*bytes_) : *bytes_;
  }

 private:
  void end() {
    if (isFinished_) return;
    isFinished_ = true;
    status_ = canvas_.finish();
    cairo_surface_finish(canvas_.surface());
    if (status_ == CAIRO_STATUS_SUCCESS) status_ = cairo_surface_status(canvas_.surface());
  }

  Format format_;
  std::unique_ptr<std::string> bytes_;
  cairo_status_t status_ = CAIRO_STATUS_SUCCESS;
  bool isFinished_ = false;
};

}  // namespace

std::unique_ptr<CGDocumentContext> CGDocumentContext::create(Format format, CGSize size) {
  for (const CGFloat side : {size.width, size.height})
    if (!(side > 0 && side <= kMaximumSide))
      throw CGContextError("The sides of a page must be above 0 and at most 14400 points");
  auto bytes = std::make_unique<std::string>();
  CairoSurfaceHandle surface = makeSurface(format, size, bytes.get());
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  const CGRect page{{0, 0}, size};
  CairoCanvas canvas(std::move(surface),
                     format == Format::pdf ? CairoCanvas::Surface::pdf : CairoCanvas::Surface::svg,
                     {1, 0, 0, -1, 0, size.height}, page, page);
  return std::make_unique<CairoDocumentContext>(format, std::move(canvas), std::move(bytes));
}

}  // namespace vexel
