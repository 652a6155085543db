#pragma once

#include <string>

#include <AppKit/NSEventModifierFlags.h>
#include <AppKit/NSEventType.h>
#include <CoreGraphics/CGPoint.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Something the user did with the mouse or the keyboard. A value, made by whoever hosts a
/// window and handed to NSWindow::sendEvent().
struct VEXEL_API NSEvent {
  /// What was done.
  NSEventType type = NSEventType::mouseMoved;
  /// Where the pointer is, in points from the window's bottom-left corner; y grows upwards.
  CGPoint locationInWindow = {};
  /// The modifier keys that were down.
  NSEventModifierFlags modifierFlags = NSEventModifierFlags::none;
  /// 1 for a click, 2 for a double click, and so on; 0 for events that are no clicks.
  int clickCount = 0;
  /// How far a scroll wheel moves the content, in points; positive is to the right.
  CGFloat scrollingDeltaX = 0;
  /// The same vertically; positive moves the content down, towards what is above it.
  CGFloat scrollingDeltaY = 0;
  /// The text of a key, UTF-8; empty for other events. Keys without text have the characters of
  /// NSFunctionKeys.h.
  std::string characters = {};
  /// The number of the key on the keyboard, as the host of the window counts; 0 for other events.
  int keyCode = 0;
  /// Seconds since a moment that is the same for all events of a window.
  double timestamp = 0;

  friend bool operator==(const NSEvent&, const NSEvent&) = default;
};

}  // namespace vexel
