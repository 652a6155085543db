#include "EventTranslation.h"

#include <AppKit/NSFunctionKeys.h>

#include <QInputEvent>

namespace vexel {

namespace {

constexpr double kMillisecondsPerSecond = 1000;
// In eighths of a degree, as Qt counts the turns of a wheel.
constexpr CGFloat kTurnPerNotch = 120;

std::optional<NSEventType> typeOf(const QMouseEvent& event) {
  const bool isLeft = event.button() == Qt::LeftButton;
  const bool isRight = event.button() == Qt::RightButton;
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (isLeft) return NSEventType::leftMouseDown;
      if (isRight) return NSEventType::rightMouseDown;
      return std::nullopt;
    case QEvent::MouseButtonRelease:
      if (isLeft) return NSEventType::leftMouseUp;
      if (isRight) return NSEventType::rightMouseUp;
      return std::nullopt;
    default:
      if (event.buttons() & Qt::LeftButton) return NSEventType::leftMouseDragged;
      if (event.buttons() & Qt::RightButton) return NSEventType::rightMouseDragged;
      return NSEventType::mouseMoved;
  }
}

std::optional<char32_t> functionKey(int key) {
  switch (key) {
    case Qt::Key_Up:
      return NSUpArrowFunctionKey;
    case Qt::Key_Down:
      return NSDownArrowFunctionKey;
    case Qt::Key_Left:
      return NSLeftArrowFunctionKey;
    case Qt::Key_Right:
      return NSRightArrowFunctionKey;
    case Qt::Key_Insert:
      return NSInsertFunctionKey;
    case Qt::Key_Delete:
      return NSDeleteFunctionKey;
    case Qt::Key_Home:
      return NSHomeFunctionKey;
    case Qt::Key_End:
      return NSEndFunctionKey;
    case Qt::Key_PageUp:
      return NSPageUpFunctionKey;
    case Qt::Key_PageDown:
      return NSPageDownFunctionKey;
    default:
      if (key < Qt::Key_F1 || key > Qt::Key_F35) return std::nullopt;
      return NSF1FunctionKey + static_cast<char32_t>(key - Qt::Key_F1);
  }
}

}  // namespace

std::optional<NSEvent> mouseEvent(const QMouseEvent& event, qreal height, int clickCount) {
  const auto type = typeOf(event);
  if (!type) return std::nullopt;
  return NSEvent{
      .type = *type,
      .locationInWindow = locationInWindow(event.position(), height),
      .modifierFlags = modifierFlags(event.modifiers()),
      .clickCount = clickCount,
      .timestamp = seconds(event),
  };
}

NSEvent wheelEvent(const QWheelEvent& event, qreal height, CGFloat pointsPerNotch) {
  const QPointF points = event.pixelDelta().isNull()
                             ? QPointF(event.angleDelta()) / kTurnPerNotch * pointsPerNotch
                             : QPointF(event.pixelDelta());
  return {
      .type = NSEventType::scrollWheel,
      .locationInWindow = locationInWindow(event.position(), height),
      .modifierFlags = modifierFlags(event.modifiers()),
      .scrollingDeltaX = points.x(),
      .scrollingDeltaY = points.y(),
      .timestamp = seconds(event),
  };
}

NSEvent keyEvent(const QKeyEvent& event, CGPoint pointer) {
  const auto special = functionKey(event.key());
  return {
      .type = event.type() == QEvent::KeyPress ? NSEventType::keyDown : NSEventType::keyUp,
      .locationInWindow = pointer,
      .modifierFlags = modifierFlags(event.modifiers()),
      .characters = special ? charactersOfFunctionKey(*special) : event.text().toStdString(),
      .keyCode = static_cast<int>(event.nativeScanCode()),
      .timestamp = seconds(event),
  };
}

CGPoint locationInWindow(QPointF position, qreal height) {
  return {position.x(), height - position.y()};
}

NSEventModifierFlags modifierFlags(Qt::KeyboardModifiers modifiers) {
  auto flags = NSEventModifierFlags::none;
  if (modifiers & Qt::ShiftModifier) flags = flags | NSEventModifierFlags::shift;
  if (modifiers & Qt::ControlModifier) flags = flags | NSEventModifierFlags::control;
  if (modifiers & Qt::AltModifier) flags = flags | NSEventModifierFlags::option;
  if (modifiers & Qt::MetaModifier) flags = flags | NSEventModifierFlags::command;
  return flags;
}

double seconds(const QInputEvent& event) {
  return static_cast<double>(event.timestamp()) / kMillisecondsPerSecond;
}

}  // namespace vexel
