#pragma once

#include <AppKit/NSView.h>
#include <AppKit/NSWindow.h>
#include <Foundation/VexelAPI.h>

#include <QByteArray>
#include <QImage>
#include <QMimeData>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>

namespace vexel {

/// A Qt widget that shows a tree of views, such as a PlotView with its figure, and hands them what
/// the user does. It works in layouts, splitters and tabs like any widget, and one application may
/// have many.
///
/// The views fill the widget: one point is one device-independent pixel, and they are drawn at the
/// real ratio of the screen, which may be fractional and change at any time. A change of the
/// widget's size reaches the views at once. What they have marked for display is drawn before the
/// event loop next comes to rest, and nothing else is. What takes longer than a frame, such as
/// millions of points, is drawn band by band with other events in between, from the top, and bands
/// that take much longer in up to three pieces: until its turn comes a band or a piece shows what
/// it did before, stretched if the widget has another size.
///
/// Presses, releases and drags of the left and the right button, moves, the wheel, keys, and the
/// pointer's coming and going become NSEvents of the window whose views these are: viewWindow().
/// Keys are also offered to the parent widget, since views do not tell whether they had a use for
/// one. keyCode is the native scan code, timestamp counts in the seconds of Qt's events.
///
/// Views that draw nothing show the widget's background. To be used in the thread of the
/// application's windows; the widget may be destroyed by what an event does.
///
/// What a view, a data source or a delegate throws while the widget is drawn, as far as it is a
/// std::exception, is told to the log as an error, once as long as it stays the same. All other
/// parts are drawn, the failed ones stay marked for display, and are tried again with the next
/// event of the widget, or a second later. What they throw while they handle an event or another
/// size ends the program, since Qt lets no exception through.
class VEXEL_API PlotWidget : public QWidget {
  Q_OBJECT

 public:
  /// One notch of a wheel scrolls by so many points; touchpads give points of their own.
  static constexpr CGFloat kPointsPerNotch = 40;

  /// Shows a plain view, which draws nothing.
  explicit PlotWidget(QWidget* parent = nullptr);
  /// Shows the view, whose present size becomes the size hint.
  explicit PlotWidget(std::shared_ptr<NSView> contentView, QWidget* parent = nullptr);
  ~PlotWidget() override;

  /// The window that the views find above them; it lives as long as the widget.
  NSWindow& viewWindow() const { return *viewWindow_; }

  /// Null when there is none.
  const std::shared_ptr<NSView>& contentView() const { return viewWindow_->contentView(); }
  /// Shows another view, which is taken from where it was and made to fill the widget; its present
  /// size becomes the size hint. Null shows nothing.
  void setContentView(std::shared_ptr<NSView> view);

  /// The size that the content view came with; invalid when it had none.
  QSize sizeHint() const override { return sizeHint_; }

  /// Copies, as ViewCopies.h has them, of what the widget shows. Null, false or empty when it shows
  /// no view.
  QImage image(qreal pixelsPerPoint) const;
  bool print(QPagedPaintDevice& device) const;
  QByteArray pdfPage(const QPageLayout& layout) const;
  /// The same with an image at twice the pixels of the screen.
  std::unique_ptr<QMimeData> mimeData() const;
  /// Puts mimeData() onto the clipboard.
  void copy() const;

 protected:
  /// Hand what Qt tells to the views.
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void send(const NSEvent& event);
  void sendMouse(const QMouseEvent& event, int clickCount);
  void scheduleDisplay();
  void note(const std::optional<std::string>& failure);

  std::shared_ptr<NSWindow> viewWindow_;
  std::shared_ptr<class WindowBitmap> bitmap_;
  /// Only to be compared; the view may be gone.
  const NSView* shownView_ = nullptr;
  QSize sizeHint_;
  CGPoint pointer_;
  int clickCount_ = 0;
  /// What could not be drawn the last time.
  std::optional<std::string> failure_;
  /// Goes on with what was left, or tries again what could not be drawn.
  QTimer next_;
};

}  // namespace vexel
