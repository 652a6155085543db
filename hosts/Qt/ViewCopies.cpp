#include <VexelQt/ViewCopies.h>

#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGNullContext.h>
#include <Vexel/FigureExport.h>

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <new>

namespace vexel {

namespace {

constexpr qreal kPointsPerInch = 72;
// Of a printed page: 256 MiB.
constexpr qreal kMostPrintedPixels = 1 << 26;

/// Leaves marked what had been marked for display on the screen.
void drawOnto(CGContext& context, NSView& view) {
  const bool wasPending = view.subtreeNeedsDisplay();
  view.display(context);
  if (wasPending) view.setNeedsDisplay(true);
}

/// Null when the bitmap cannot be made.
std::unique_ptr<CGBitmapContext> drawn(NSView& view, qreal pixelsPerPoint) {
  try {
    auto context = CGBitmapContext::create(view.bounds().size, pixelsPerPoint);
    drawOnto(*context, view);
    return context;
  } catch (const CGContextError&) {
    return nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

/// Where a figure stands on a page: in its own size or reduced.
QRectF placeOnPage(const QSizeF& figure, const QRectF& page, qreal unitsPerPoint) {
  const qreal scale =
      std::min({unitsPerPoint, page.width() / figure.width(), page.height() / figure.height()});
  const QSizeF size = scale * figure;
  return {QPointF(page.x() + (page.width() - size.width()) / 2, page.y()), size};
}

/// Draws nothing and counts symbols.
class SymbolCounter final : public CGNullContext {
 public:
  void drawSymbols(const CGPath&, const CGColor*, const CGStrokeStyle*,
                   std::span<const CGPoint> centers) override {
    count += centers.size();
  }
  void drawStyledSymbols(const CGPath&, std::span<const CGSymbolStyle>,
                         std::span<const std::uint32_t>,
                         std::span<const CGPoint> centers) override {
    count += centers.size();
  }

  std::size_t count = 0;
};

/// Borrows the pixels of the context.
QImage pixelsOf(CGBitmapContext& context) {
  const int width = context.pixelWidth();
  QImage image(reinterpret_cast<const uchar*>(context.pixels().data()), width,
               context.pixelHeight(), qsizetype{4} * width, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(context.backingScale());
  return image;
}

}  // namespace

QImage imageOfView(NSView& view, qreal pixelsPerPoint) {
  const auto context = drawn(view, pixelsPerPoint);
  return context ? pixelsOf(*context).copy() : QImage();
}

std::unique_ptr<QMimeData> mimeDataOfView(NSView& view, qreal pixelsPerPoint) {
  auto choice = std::make_unique<QMimeData>();
  if (const QImage shown = imageOfView(view, pixelsPerPoint); !shown.isNull())
    choice->setImageData(shown);
  SymbolCounter symbols;
  drawOnto(symbols, view);
  if (symbols.count > kMostCopiedSymbols) return choice;
  for (const auto& [name, type] :
       {std::pair{"figure.pdf", "application/pdf"}, std::pair{"figure.svg", "image/svg+xml"}}) {
    try {
      choice->setData(type, QByteArray::fromStdString(figureData(view, name, 1)));
    } catch (const FigureExportError&) {
      // Others may do.
    }
  }
  return choice;
}

bool printView(NSView& view, QPagedPaintDevice& device) {
  if (view.bounds().isEmpty()) return false;
  const QSizeF size(view.bounds().size.width, view.bounds().size.height);
  const QRectF page(0, 0, device.width(), device.height());
  const QRectF place = placeOnPage(size, page, device.logicalDpiX() / kPointsPerInch);
  const qreal affordable = std::sqrt(kMostPrintedPixels / (size.width() * size.height()));
  const auto context = drawn(view, std::min(place.width() / size.width(), affordable));
  if (!context) return false;

  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QImage printed = pixelsOf(*context);
  painter.drawImage(place, printed, QRectF(QPointF(), QSizeF(printed.size())));
  return painter.end();
}

QByteArray pdfPageOfView(NSView& view, const QPageLayout& layout) {
  if (view.bounds().isEmpty()) return {};
  const CGSize size = view.bounds().size;
  const QSizeF paper = layout.fullRect(QPageLayout::Point).size();
  const QRectF place =
      placeOnPage({size.width, size.height}, layout.paintRect(QPageLayout::Point), 1);
  const CGFloat scale = place.width() / size.width;
  if (!(scale > 0)) return {};
  try {
    const auto page =
        CGDocumentContext::create(CGDocumentContext::Format::pdf, {paper.width(), paper.height()});
    page->translate(place.x(), paper.height() - place.bottom());
    page->scale(scale, scale);
    drawOnto(*page, view);
    return QByteArray::fromStdString(page->finish());
  } catch (const CGContextError&) {
    return {};
  } catch (const std::bad_alloc&) {
    return {};
  }
}

}  // namespace vexel
