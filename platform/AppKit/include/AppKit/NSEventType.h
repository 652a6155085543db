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
  mouseEntered,
  mouseExited,
  scrollWheel,
  keyDown,
  keyUp,
};

}  // namespace vexel
