#pragma once

#include <VexelQt/PlotWidget.h>

#include <QEventLoop>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace vexel {

inline constexpr double kRatios[] = {1, 1.25, 1.5, 2};
inline constexpr int kScreens = 4;

inline QScreen* screenOfRatio(double ratio) {
  for (QScreen* screen : QGuiApplication::screens())
    if (screen->devicePixelRatio() == ratio) return screen;
  return nullptr;
}

/// Lets everything happen that is about to, and the event loop come to rest.
inline void settle() {
  QEventLoop loop;
  QTimer::singleShot(1, &loop, [&] { loop.quit(); });
  loop.exec();
  QCoreApplication::processEvents();
}

/// Shows a window on the screen of the ratio, or moves it there.
inline void showOn(QWidget& window, double ratio) {
  QScreen* const screen = screenOfRatio(ratio);
  window.setScreen(screen);
  window.move(screen->geometry().topLeft() + QPoint(40, 30));
  window.show();
  settle();
}

/// The pointer as the window system reports it, always long after the last time. (QTest would take
/// the top left corner for the centre.)
class Mouse {
 public:
  explicit Mouse(QWindow* window) : window_(window) {}

  void move(QPointF place) { send(QEvent::MouseMove, place, Qt::NoButton, {}); }
  void press(QPointF place, Qt::MouseButton button) {
    send(QEvent::MouseButtonPress, place, button, button);
  }
  void release(QPointF place, Qt::MouseButton button) {
    send(QEvent::MouseButtonRelease, place, button, {});
  }
  void click(QPointF place, Qt::MouseButton button) {
    press(place, button);
    release(place, button);
  }

 private:
  void send(QEvent::Type type, QPointF place, Qt::MouseButton button, Qt::MouseButtons held) {
    QTest::lastMouseTimestamp += 1000;
    qt_handleMouseEvent(window_, place, window_->mapToGlobal(place), held, button, type,
                        Qt::NoModifier, QTest::lastMouseTimestamp);
    QCoreApplication::processEvents();
  }

  QWindow* window_;
};

/// The pixels of a window. (Those that the screen has are cut where its ratio has changed.)
inline QImage onScreen(QWidget& window) {
  return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// How many pixels differ; -1 when the sizes do.
inline int differingPixels(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return -1;
  int count = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) count += (a.pixel(x, y) ^ b.pixel(x, y)) << 8 != 0;
  return count;
}

}  // namespace vexel
