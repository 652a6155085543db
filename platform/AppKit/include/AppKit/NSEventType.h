#pragma once

namespace vexel {

/// What the user did.
enum class NSEventType {
  mouseMoved,
  leftMouseDown,
  leftMouseUp,
  leftMouseDragged,
  rightMouseDown,
  rightMouseUp,
  rightMouseDragged,
  mouseEntered,
  mouseExited,
  scrollWheel,
  keyDown,
  keyUp,
};

}  // namespace vexel
