#include <VexelQt/PlotWidget.h>

#include <CocoaLumberjack/DDLog.h>
#include <VexelQt/ViewCopies.h>

#include <QAbstractEventDispatcher>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <chrono>
#include <cmath>

#include "EventTranslation.h"
#include "WindowBitmap.h"

namespace vexel {

namespace {

constexpr qreal kCopiedPixelsPerPoint = 2;
constexpr std::chrono::seconds kUntilRetry(1);

QSize qtSize(CGSize size) {
  return {static_cast<int>(std::lround(size.width)), static_cast<int>(std::lround(size.height))};
}

CGSize cgSize(QSize size) {
  return {static_cast<CGFloat>(size.width()), static_cast<CGFloat>(size.height())};
}

QSize hintFor(const NSView* view) {
  if (!view || view->frame().isEmpty()) return {};
  return qtSize(view->frame().size);
}

CGColor cgColor(const QColor& color) {
  return CGColor::deviceRGB(color.redF(), color.greenF(), color.blueF());
}

}  // namespace

PlotWidget::PlotWidget(QWidget* parent) : PlotWidget(std::make_shared<NSView>(), parent) {}

PlotWidget::PlotWidget(std::shared_ptr<NSView> view, QWidget* parent)
    : QWidget(parent), bitmap_(std::make_shared<WindowBitmap>()), sizeHint_(hintFor(view.get())) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  if (sizeHint_.isValid()) resize(sizeHint_);
  viewWindow_ = std::make_shared<NSWindow>(cgSize(size()));
  viewWindow_->setContentView(std::move(view));
  // What changes at any other time than in an event of this widget.
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          &PlotWidget::scheduleDisplay);
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, &PlotWidget::scheduleDisplay);
}

PlotWidget::~PlotWidget() = default;

void PlotWidget::setContentView(std::shared_ptr<NSView> view) {
  if (view == contentView()) return;
  sizeHint_ = hintFor(view.get());
  viewWindow_->setContentView(std::move(view));
  updateGeometry();
  update();
}

// Display

void PlotWidget::scheduleDisplay() {
  if (!isVisible() || next_.isActive()) return;
  // A view may be taken away by another widget.
  if (contentView().get() != shownView_) return update();
  try {
    for (const CGRect& dirty : viewWindow_->dirtyRects()) {
      const QRectF rect(dirty.minX(), height() - dirty.maxY(), dirty.size.width, dirty.size.height);
      update(rect.toAlignedRect());
    }
  } catch (const std::exception& exception) {
    note(exception.what());
  }
}

void PlotWidget::note(const std::optional<std::string>& failure) {
  next_.stop();
  if (failure) {
    next_.start(kUntilRetry);
    if (failure != failure_)
      ddLog(DDLogFlag::error, [&] { return "a view could not be drawn: " + *failure; });
  }
  failure_ = failure;
}

void PlotWidget::paintEvent(QPaintEvent*) {
  shownView_ = contentView().get();
  if (!contentView()) return;
  const CGColor background = cgColor(palette().color(backgroundRole()));
  if (!bitmap_->update(*viewWindow_, devicePixelRatioF(), background)) return;
  note(bitmap_->failure());
  // Other events come first.
  if (!bitmap_->isComplete()) next_.start(0);
  QPainter painter(this);
  // At a fractional ratio the widget may begin inside a pixel of the window.
  const QTransform toDevice = painter.deviceTransform();
  const QPointF corner = toDevice.map(QPointF());
  const QPointF aligned(std::round(corner.x()), std::round(corner.y()));
  const QTransform fromDevice = toDevice.inverted();
  const QImage image = bitmap_->image();
  // And end inside another: the last pixels are repeated there.
  const bool endsInsidePixel = image.deviceIndependentSize() != QSizeF(size());
  if (endsInsidePixel) painter.drawImage(fromDevice.map(aligned + QPointF(1, 1)), image);
  painter.drawImage(fromDevice.map(aligned), image);
}

void PlotWidget::resizeEvent(QResizeEvent*) {
  viewWindow_->setContentSize(cgSize(size()));
}

bool PlotWidget::event(QEvent* event) {
  const auto type = event->type();
  if (type == QEvent::ScreenChangeInternal) update();
  // The background is a part of what is kept.
  if (type == QEvent::PaletteChange && contentView()) contentView()->setNeedsDisplay(true);
  return QWidget::event(event);
}

// Events

void PlotWidget::send(const NSEvent& event) {
  pointer_ = event.locationInWindow;
  next_.stop();
  // Gone with this widget.
  const std::weak_ptr<WindowBitmap> bitmap = bitmap_;
  viewWindow_->sendEvent(event);
  if (!bitmap.expired()) scheduleDisplay();
}

void PlotWidget::sendMouse(const QMouseEvent& event, int clickCount) {
  if (const auto translated = mouseEvent(event, height(), clickCount)) send(*translated);
}

void PlotWidget::mousePressEvent(QMouseEvent* event) {
  clickCount_ = 1;
  sendMouse(*event, clickCount_);
}

void PlotWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  clickCount_ = 2;
  sendMouse(*event, clickCount_);
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
  sendMouse(*event, clickCount_);
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
  sendMouse(*event, 0);
}

void PlotWidget::wheelEvent(QWheelEvent* event) {
  send(vexel::wheelEvent(*event, height(), kPointsPerNotch));
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  send(keyEvent(*event, pointer_));
}

void PlotWidget::keyReleaseEvent(QKeyEvent* event) {
  event->ignore();
  send(keyEvent(*event, pointer_));
}

void PlotWidget::enterEvent(QEnterEvent* event) {
  send({
      .type = NSEventType::mouseEntered,
      .locationInWindow = locationInWindow(event->position(), height()),
      .modifierFlags = modifierFlags(event->modifiers()),
      .timestamp = seconds(*event),
  });
}

void PlotWidget::leaveEvent(QEvent*) {
  send({
      .type = NSEventType::mouseExited,
      .locationInWindow = pointer_,
      .modifierFlags = modifierFlags(QGuiApplication::queryKeyboardModifiers()),
  });
}

// Copies

QImage PlotWidget::image(qreal pixelsPerPoint) const {
  const auto view = contentView();
  return view ? imageOfView(*view, pixelsPerPoint) : QImage();
}

std::unique_ptr<QMimeData> PlotWidget::mimeData() const {
  const auto view = contentView();
  return view ? mimeDataOfView(*view, kCopiedPixelsPerPoint * devicePixelRatioF())
              : std::make_unique<QMimeData>();
}

void PlotWidget::copy() const {
  QGuiApplication::clipboard()->setMimeData(mimeData().release());
}

bool PlotWidget::print(QPagedPaintDevice& device) const {
  const auto view = contentView();
  return view && printView(*view, device);
}

QByteArray PlotWidget::pdfPage(const QPageLayout& layout) const {
  const auto view = contentView();
  return view ? pdfPageOfView(*view, layout) : QByteArray();
}

}  // namespace vexel
