#include <Vexel/FigureExport.h>

#include <new>
#include <string>

#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>

#include "FileReplacement.h"

namespace vexel {

namespace {

/// Draws the view and leaves marked what had been marked for display on the screen.
void draw(NSView& view, CGContext& context) {
  const bool wasPending = view.subtreeNeedsDisplay();
  view.display(context);
  if (wasPending) view.setNeedsDisplay(true);
}

std::string documentBytes(NSView& view, CGDocumentContext::Format format) {
  const auto context = CGDocumentContext::create(format, view.bounds().size);
  draw(view, *context);
  return context->finish();
}

std::string bytes(NSView& view, const std::string& extension, CGFloat backingScale) {
  if (extension == ".pdf") return documentBytes(view, CGDocumentContext::Format::pdf);
  if (extension == ".svg") return documentBytes(view, CGDocumentContext::Format::svg);
  const auto context =
      CGBitmapContext::create(view.bounds().size, backingScale, CGBitmapContext::Use::file);
  draw(view, *context);
  return context->pngData();
}

FigureExportError withoutMemory(const std::filesystem::path& file) {
  return FigureExportError(file.string() + ": there is not enough memory");
}

}  // namespace

void exportFigure(NSView& view, const std::filesystem::path& file) {
  exportFigure(view, file, 1);
}

void exportFigure(NSView& view, const std::filesystem::path& file, CGFloat backingScale) {
  const std::string data = figureData(view, file, backingScale);
  try {
    replaceFile(file, data);
  } catch (const std::filesystem::filesystem_error& error) {
    throw FigureExportError(file.string() + ": " + error.code().message());
  } catch (const std::bad_alloc&) {
    throw withoutMemory(file);
  }
}

std::string figureData(NSView& view, const std::filesystem::path& name, CGFloat backingScale) {
  try {
    const std::string extension = name.extension().string();
    if (extension != ".png" && extension != ".pdf" && extension != ".svg")
      throw FigureExportError(name.string() + ": a figure is written as .png, .pdf or .svg");
    return bytes(view, extension, backingScale);
  } catch (const CGContextError& error) {
    throw FigureExportError(name.string() + ": " + error.what());
  } catch (const std::bad_alloc&) {
    throw withoutMemory(name);
  }
}

}  // namespace vexel
