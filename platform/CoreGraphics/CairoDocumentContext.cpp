#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include <CoreGraphics/CGDocumentContext.h>

#include "CairoContext.h"

namespace vexel {

namespace {

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

CairoSurfaceHandle makeSurface(CGDocumentContext::Format format, CGSize size, std::string* bytes) {
  if (format == CGDocumentContext::Format::pdf)
    return CairoSurfaceHandle(
        cairo_pdf_surface_create_for_stream(append, bytes, size.width, size.height));
  CairoSurfaceHandle surface(
      cairo_svg_surface_create_for_stream(append, bytes, size.width, size.height));
  cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PT);
  return surface;
}

class CairoDocumentContext final : public CairoContext<CGDocumentContext> {
 public:
  CairoDocumentContext(CairoCanvas canvas, std::unique_ptr<std::string> bytes)
      : CairoContext(std::move(canvas)), bytes_(std::move(bytes)) {}

  // What is left to write goes into the bytes while they live.
  ~CairoDocumentContext() override { end(); }

  std::string finish() override {
    end();
    if (status_ != CAIRO_STATUS_SUCCESS) throw CGContextError(cairo_status_to_string(status_));
    return *bytes_;
  }

 private:
  void end() {
    if (isFinished_) return;
    isFinished_ = true;
    status_ = canvas_.finish();
    cairo_surface_finish(canvas_.surface());
    if (status_ == CAIRO_STATUS_SUCCESS) status_ = cairo_surface_status(canvas_.surface());
  }

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
  CairoCanvas canvas(std::move(surface), CairoCanvas::Surface::vector,
                     {1, 0, 0, -1, 0, size.height}, page, page);
  return std::make_unique<CairoDocumentContext>(std::move(canvas), std::move(bytes));
}

}  // namespace vexel
