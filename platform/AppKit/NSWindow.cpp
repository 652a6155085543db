#include <AppKit/NSWindow.h>

#include <utility>

#include "AcceptedGeometry.h"
#include "DirtyRects.h"

namespace vexel {

NSWindow::NSWindow(CGSize contentSize) : contentSize_(acceptedSize(contentSize)) {
  setContentView(std::make_shared<NSView>());
}

NSWindow::~NSWindow() = default;

void NSWindow::setContentView(std::shared_ptr<NSView> view) {
  if (view == contentView_) return;
  if (view) view->removeFromSuperview();
  if (contentView_) contentView_->window_ = nullptr;
  const auto former = std::exchange(contentView_, std::move(view));
  const auto shown = contentView_;
  if (!shown) return;
  shown->window_ = this;
  shown->setFrame({{}, contentSize_});
  shown->setNeedsDisplay(true);
}

void NSWindow::setContentSize(CGSize size) {
  contentSize_ = acceptedSize(size);
  if (const auto view = contentView_) view->setFrame({{}, contentSize_});
}

bool NSWindow::needsDisplay() const {
  return contentView_ && contentView_->subtreeNeedsDisplay();
}

CGRect NSWindow::dirtyRect() {
  return boundingRect(dirtyRects());
}

std::vector<CGRect> NSWindow::dirtyRects() {
  std::vector<CGRect> rects;
  if (const auto view = contentView_) {
    view->layoutSubtreeIfNeeded();
    view->addSubtreeDirtyRects(view->bounds(), view->convertPointToView({}, nullptr), rects);
  }
  return rects;
}

void NSWindow::display(CGContext& context) {
  if (const auto view = contentView_) view->display(context);
}

void NSWindow::displayRect(CGRect rect, CGContext& context) {
  if (const auto view = contentView_)
    view->displayRect({view->convertPointFromView(rect.origin, nullptr), rect.size}, context);
}

NSView* NSWindow::firstResponder() const {
  return ifShown(firstResponder_).get();
}

bool NSWindow::makeFirstResponder(NSView* view) {
  if (view && !(contentView_ && view->isDescendantOf(*contentView_))) return false;
  firstResponder_ = view;
  return true;
}

void NSWindow::sendEvent(const NSEvent& event) {
  const auto keptUntilTheEnd = weak_from_this().lock();
  const auto sendToViewBelow = [&](void (NSView::*method)(const NSEvent&)) {
    hoverOver(viewAt(event.locationInWindow), event);
    if (const auto view = viewAt(event.locationInWindow)) (view.get()->*method)(event);
  };
  const auto sendToResponder = [&](void (NSView::*method)(const NSEvent&)) {
    const auto responder = ifShown(firstResponder_);
    if (const auto view = responder ? responder : contentView_) (view.get()->*method)(event);
  };
  switch (event.type) {
    case NSEventType::mouseMoved:
      return sendToViewBelow(&NSView::mouseMoved);
    case NSEventType::scrollWheel:
      return sendToViewBelow(&NSView::scrollWheel);
    case NSEventType::leftMouseDown:
      return press(pressed_, &NSView::mouseDown, event);
    case NSEventType::rightMouseDown:
      return press(rightPressed_, &NSView::rightMouseDown, event);
    case NSEventType::leftMouseDragged:
      if (const auto view = ifShown(pressed_)) view->mouseDragged(event);
      return;
    case NSEventType::rightMouseDragged:
      if (const auto view = ifShown(rightPressed_)) view->rightMouseDragged(event);
      return;
    case NSEventType::leftMouseUp:
      return release(pressed_, &NSView::mouseUp, event);
    case NSEventType::rightMouseUp:
      return release(rightPressed_, &NSView::rightMouseUp, event);
    case NSEventType::mouseEntered:
      return hoverOver(viewAt(event.locationInWindow), event);
    case NSEventType::mouseExited:
      return hoverOver(nullptr, event);
    case NSEventType::keyDown:
      return sendToResponder(&NSView::keyDown);
    case NSEventType::keyUp:
      return sendToResponder(&NSView::keyUp);
  }
}

std::shared_ptr<NSView> NSWindow::viewAt(CGPoint location) const {
  const auto content = contentView_;
  auto* view = content ? content->hitTest(location) : nullptr;
  return view ? view->weak_from_this().lock() : nullptr;
}

/// The view as long as it is in this window.
std::shared_ptr<NSView> NSWindow::ifShown(const NSWeak<NSView>& view) const {
  auto* object = view.get();
  const bool isShown = object && contentView_ && object->isDescendantOf(*contentView_);
  return isShown ? object->weak_from_this().lock() : nullptr;
}

void NSWindow::hoverOver(const std::shared_ptr<NSView>& view, NSEvent event) {
  if (pressed_ || rightPressed_) return;
  const auto former = ifShown(hovered_);
  if (former == view) return;
  hovered_ = view.get();
  if (former) {
    event.type = NSEventType::mouseExited;
    former->mouseExited(event);
  }
  // Leaving the former view may have removed the new one, or led to yet another.
  if (view && ifShown(hovered_) == view) {
    event.type = NSEventType::mouseEntered;
    view->mouseEntered(event);
  }
}

void NSWindow::press(NSWeak<NSView>& pressed, void (NSView::*method)(const NSEvent&),
                     const NSEvent& event) {
  hoverOver(viewAt(event.locationInWindow), event);
  const auto view = viewAt(event.locationInWindow);
  pressed = view.get();
  if (view) (view.get()->*method)(event);
}

void NSWindow::release(NSWeak<NSView>& pressed, void (NSView::*method)(const NSEvent&),
                       const NSEvent& event) {
  const auto view = ifShown(pressed);
  pressed = nullptr;
  if (view) (view.get()->*method)(event);
  hoverOver(viewAt(event.locationInWindow), event);
}

}  // namespace vexel
