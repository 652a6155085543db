#include <Vexel/PlotView.h>
#include <VexelQt/ViewCopies.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QClipboard>
#include <QPdfWriter>
#include <QRegularExpression>

#include "ShownWidget.h"

namespace vexel {
namespace {

class Disc : public NSView {
 public:
  using NSView::NSView;

  void draw(CGContext& context, CGRect) override {
    CGMutablePath path;
    path.addEllipse(bounds().insetBy(10, 10));
    context.fill(path, CGColor::deviceRGB(0, 0, 1));
  }
};

class PlotWidgetCopies : public testing::Test {
 protected:
  PlotWidgetCopies() { showOn(widget, 1.25); }

  std::shared_ptr<Disc> view = std::make_shared<Disc>(CGRect::make(0, 0, 200, 120));
  PlotWidget widget{view};
};

TEST_F(PlotWidgetCopies, AnImageIsTransparentWhereNoViewDraws) {
  const QImage image = widget.image(2);
  EXPECT_EQ(image.size(), QSize(400, 240));
  EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
  EXPECT_EQ(image.pixelColor(200, 120), QColor(0, 0, 255));
}

TEST_F(PlotWidgetCopies, TheClipboardHoldsAnImageAndVectors) {
  widget.copy();
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), QSize(500, 300));
  EXPECT_TRUE(data->data("application/pdf").startsWith("%PDF"));
  EXPECT_TRUE(data->data("image/svg+xml").contains("<svg"));
}

class Symbols : public NSView {
 public:
  Symbols(CGRect frame, std::size_t count) : NSView(frame), centers_(count, CGPoint{20, 20}) {}

  void draw(CGContext& context, CGRect) override {
    CGMutablePath disc;
    disc.addEllipse(CGRect::make(-2, -2, 4, 4));
    const CGColor color = CGColor::deviceRGB(1, 0, 0);
    context.drawSymbols(disc, &color, nullptr, centers_);
  }

 private:
  std::vector<CGPoint> centers_;
};

TEST_F(PlotWidgetCopies, VeryManySymbolsAreCopiedAsAnImageOnly) {
  for (const std::size_t more : {0, 1}) {
    widget.setContentView(
        std::make_shared<Symbols>(CGRect::make(0, 0, 50, 50), kMostCopiedSymbols + more));
    const auto data = widget.mimeData();
    EXPECT_TRUE(data->hasImage());
    EXPECT_EQ(data->hasFormat("application/pdf"), more == 0);
    EXPECT_EQ(data->hasFormat("image/svg+xml"), more == 0);
  }
}

TEST_F(PlotWidgetCopies, NothingShownIsNothingCopied) {
  widget.setContentView(nullptr);
  EXPECT_TRUE(widget.mimeData()->formats().isEmpty());
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter page(&buffer);
  EXPECT_FALSE(widget.print(page));
}

TEST_F(PlotWidgetCopies, CopiesLeaveMarkedWhatIsToBeDrawn) {
  settle();
  ASSERT_FALSE(widget.viewWindow().needsDisplay());
  widget.image(1);
  EXPECT_FALSE(widget.viewWindow().needsDisplay());
  view->setNeedsDisplay(true);
  widget.image(1);
  widget.mimeData();
  EXPECT_TRUE(widget.viewWindow().needsDisplay());
}

struct Page {
  double widthInches;
  int dotsPerInch;
  QSize size;
  QSize expected;
};

TEST_F(PlotWidgetCopies, APageHoldsItInItsOwnSizeOrReducedAtTheResolutionOfThePrinter) {
  // 200 x 120 points are 2.78 x 1.67 inches.
  const Page pages[] = {
      {8, 72, {200, 120}, {200, 120}},
      {8, 300, {200, 120}, {833, 500}},
      {1, 300, {200, 120}, {300, 180}},
      {8, 1200, {1400, 1400}, {8192, 8192}},
  };
  for (const auto& [inches, dots, size, expected] : pages) {
    widget.resize(size);
    settle();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
      QPdfWriter page(&buffer);
      page.setResolution(dots);
      page.setPageSize(QPageSize(QSizeF(inches, 20), QPageSize::Inch));
      page.setPageMargins({0, 0, 0, 0});
      EXPECT_TRUE(widget.print(page));
    }
    const QString file = QString::fromLatin1(buffer.data());
    const auto image =
        QRegularExpression("/Subtype /Image\\s+/Width (\\d+)\\s+/Height (\\d+)").match(file);
    ASSERT_TRUE(image.hasMatch());
    EXPECT_NEAR(image.captured(1).toInt(), expected.width(), 1) << inches << ' ' << dots;
    EXPECT_NEAR(image.captured(2).toInt(), expected.height(), 1) << inches << ' ' << dots;
  }
}

class Square : public NSView {
 public:
  using NSView::NSView;

  void draw(CGContext& context, CGRect) override {
    CGMutablePath path;
    path.addRect(bounds().insetBy(10, 10));
    context.fill(path, CGColor::deviceRGB(0, 0, 1));
  }
};

/// The streams of a PDF document, one after the other.
QByteArray contentOf(const QByteArray& document) {
  static const QByteArray kBegin = "stream\n", kEnd = "endstream";
  // Qt wants to know a size beforehand, which may be wrong.
  const QByteArray size("\0\0\x40\0", 4);
  QByteArray content;
  for (qsizetype begin = document.indexOf(kBegin); begin >= 0;) {
    begin += kBegin.size();
    const qsizetype end = document.indexOf(kEnd, begin);
    content += qUncompress(size + document.mid(begin, end - begin));
    begin = document.indexOf(kBegin, end + kEnd.size());
  }
  return content;
}

struct PdfPage {
  QSizeF inches;
  qreal margins;
  const char* paper;
  /// Two corners of the square, from the bottom left.
  const char* corners[2];
};

TEST_F(PlotWidgetCopies, APdfPageHoldsItInItsOwnSizeOrReducedAsVectors) {
  const PdfPage pages[] = {
      {{10, 8}, 0.5, "[ 0 0 720 576 ]", {"270 430 m", "450 530 l"}},
      {{1, 20}, 0, "[ 0 0 72 1440 ]", {"3.6 1400.4 m", "68.4 1436.4 l"}},
      {{20, 1}, 0, "[ 0 0 1440 72 ]", {"666 6 m", "774 66 l"}},
  };
  widget.setContentView(std::make_shared<Square>(CGRect::make(0, 0, 200, 120)));
  for (const auto& [inches, margins, paper, corners] : pages) {
    const QPageLayout layout(QPageSize(inches, QPageSize::Inch), QPageLayout::Portrait,
                             QMarginsF(margins, margins, margins, margins), QPageLayout::Inch);
    const QByteArray document = widget.pdfPage(layout);
    EXPECT_TRUE(document.contains(paper)) << document.toStdString();
    const QByteArray content = contentOf(document);
    for (const char* const corner : corners)
      EXPECT_TRUE(content.contains(corner)) << content.toStdString();
  }
}

TEST_F(PlotWidgetCopies, NoPdfPageHoldsNothingOrHasASizeBeyondAll) {
  const QPageLayout none;
  const QPageLayout huge(QPageSize(QSizeF(500, 500), QPageSize::Inch), QPageLayout::Portrait, {});
  EXPECT_TRUE(widget.pdfPage(none).isEmpty());
  EXPECT_TRUE(widget.pdfPage(huge).isEmpty());
  widget.setContentView(nullptr);
  EXPECT_TRUE(
      widget.pdfPage(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {})).isEmpty());
}

TEST_F(PlotWidgetCopies, APrinterThatCannotBeginIsReported) {
  QPdfWriter page("/no such folder/page.pdf");
  EXPECT_FALSE(widget.print(page));
}

}  // namespace
}  // namespace vexel
