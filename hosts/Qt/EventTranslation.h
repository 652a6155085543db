#pragma once

#include <AppKit/NSEvent.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <optional>

namespace vexel {

// What the user did with a widget of a height in points, in the words of views. Pure.

/// Absent for what views are not told: buttons other than the left and the right one.
std::optional<NSEvent> mouseEvent(const QMouseEvent& event, qreal height, int clickCount);
NSEvent wheelEvent(const QWheelEvent& event, qreal height, CGFloat pointsPerNotch);
/// A press or a release, with the pointer where it was last seen.
NSEvent keyEvent(const QKeyEvent& event, CGPoint pointer);

/// Where views find a position in the widget.
CGPoint locationInWindow(QPointF position, qreal height);
NSEventModifierFlags modifierFlags(Qt::KeyboardModifiers modifiers);
double seconds(const QInputEvent& event);

}  // namespace vexel
