// Shows a view in a window and looks at its pixels.
#include <CoreGraphics/CGContext.h>
#include <VexelQt/PlotWidget.h>

#include <QApplication>
#include <cstdio>

struct GreenView : vexel::NSView {
  using NSView::NSView;
  void draw(vexel::CGContext& context, vexel::CGRect) override {
    context.fillAligned(bounds(), vexel::CGColor::genericRGB(0, 1, 0));
  }
};

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  vexel::PlotWidget widget(std::make_shared<GreenView>(vexel::CGRect::make(0, 0, 60, 40)));
  widget.show();
  QApplication::processEvents();
  const QColor color = widget.grab().toImage().pixelColor(30, 20);
  if (color == QColor(0, 255, 0) && widget.sizeHint() == QSize(60, 40)) return 0;
  std::fprintf(stderr, "window: the view is %s, not green\n", qPrintable(color.name()));
  return 1;
}
