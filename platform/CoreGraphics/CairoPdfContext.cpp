#include "CairoPdfContext.h"

#include <cairo-pdf.h>

#include <string>
#include <utility>

#include "CairoContext.h"
#include "CairoStream.h"

namespace vexel {

namespace {

class CairoPdfContext final : public CairoContext<CGDocumentContext> {
 public:
  CairoPdfContext(CairoCanvas canvas, std::unique_ptr<std::string> bytes)
      : CairoContext(std::move(canvas)), bytes_(std::move(bytes)) {}

  // What is left to write goes into the bytes while they live.
  ~CairoPdfContext() override { end(); }

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

std::unique_ptr<CGDocumentContext> makePdfContext(CGSize size) {
  auto bytes = std::make_unique<std::string>();
  CairoSurfaceHandle surface(
      cairo_pdf_surface_create_for_stream(appendToString, bytes.get(), size.width, size.height));
  if (const auto status = cairo_surface_status(surface.get()); status != CAIRO_STATUS_SUCCESS)
    throw CGContextError(cairo_status_to_string(status));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
  const CGRect page{{0, 0}, size};
  CairoCanvas canvas(std::move(surface), CairoCanvas::Surface::pdf, {1, 0, 0, -1, 0, size.height},
                     page, page);
  return std::make_unique<CairoPdfContext>(std::move(canvas), std::move(bytes));
}

}  // namespace vexel
