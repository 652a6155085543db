#include <AppKit/NSView.h>

namespace vexel {

namespace {

void handOn(const NSView& view, void (NSView::*method)(const NSEvent&), const NSEvent& event) {
  if (const auto above = view.superview()) (above.get()->*method)(event);
}

}  // namespace

NSView* NSView::hitTest(CGPoint point) {
  if (hidden_ || frame_.isEmpty() || !frame_.contains(point)) return nullptr;
  const CGPoint inside = point - frame_.origin + boundsOrigin_;
  for (auto view = subviews_.rbegin(); view != subviews_.rend(); ++view)
    if (auto* hit = (*view)->hitTest(inside)) return hit;
  return this;
}

void NSView::mouseDown(const NSEvent& event) {
  handOn(*this, &NSView::mouseDown, event);
}
void NSView::mouseUp(const NSEvent& event) {
  handOn(*this, &NSView::mouseUp, event);
}
void NSView::mouseMoved(const NSEvent& event) {
  handOn(*this, &NSView::mouseMoved, event);
}
void NSView::mouseDragged(const NSEvent& event) {
  handOn(*this, &NSView::mouseDragged, event);
}
void NSView::mouseEntered(const NSEvent& event) {
  handOn(*this, &NSView::mouseEntered, event);
}
void NSView::mouseExited(const NSEvent& event) {
  handOn(*this, &NSView::mouseExited, event);
}
void NSView::rightMouseDown(const NSEvent& event) {
  handOn(*this, &NSView::rightMouseDown, event);
}
void NSView::rightMouseUp(const NSEvent& event) {
  handOn(*this, &NSView::rightMouseUp, event);
}
void NSView::rightMouseDragged(const NSEvent& event) {
  handOn(*this, &NSView::rightMouseDragged, event);
}
void NSView::scrollWheel(const NSEvent& event) {
  handOn(*this, &NSView::scrollWheel, event);
}
void NSView::keyDown(const NSEvent& event) {
  handOn(*this, &NSView::keyDown, event);
}
void NSView::keyUp(const NSEvent& event) {
  handOn(*this, &NSView::keyUp, event);
}

}  // namespace vexel
