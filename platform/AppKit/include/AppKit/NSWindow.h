#pragma once

#include <memory>
#include <vector>

#include <AppKit/NSEvent.h>
#include <AppKit/NSView.h>
#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/CGSize.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The root of a tree of views: it has a size, is drawn to any context, and hands the events it
/// is sent to the views they are meant for. It opens nothing on the screen; whoever does shows
/// what display() draws and sends the events. Made with std::make_shared.
class VEXEL_API NSWindow : public virtual NSObject, public std::enable_shared_from_this<NSWindow> {
 public:
  /// A window with a plain view as its content. Sizes are in points and treated as those of views.
  explicit NSWindow(CGSize contentSize);
  ~NSWindow() override;
  NSWindow(const NSWindow&) = delete;
  NSWindow& operator=(const NSWindow&) = delete;

  /// The root view, which always fills the window; may be null.
  const std::shared_ptr<NSView>& contentView() const { return contentView_; }
  /// Removes the view from where it was before and makes it fill the window. Null leaves the
  /// window without views.
  void setContentView(std::shared_ptr<NSView> view);

  /// The size of the content view, in points.
  CGSize contentSize() const { return contentSize_; }
  /// Resizes the content view with it.
  void setContentSize(CGSize size);

  /// Whether any view that is shown needs layout or display.
  bool needsDisplay() const;
  /// The smallest rectangle around all that is marked in views that are shown, in window
  /// coordinates; lays out what needs it first, since that may move views.
  CGRect dirtyRect();
  /// The same as a few rectangles, which together may cover far less. A host that keeps the
  /// window's pixels calls displayRect() for each of them, after it has filled that part with the
  /// window's background where views are translucent.
  std::vector<CGRect> dirtyRects();
  /// Draws the whole content view with the window's bottom-left corner at the origin of the
  /// context; nothing when there is none.
  void display(CGContext& context);
  /// The same for the part inside `rect`, in window coordinates.
  void displayRect(CGRect rect, CGContext& context);

  /// The view that key events go to; null (the default, or once it has left the window) for the
  /// content view.
  NSView* firstResponder() const;
  /// A view that is not in this window is refused: false, and nothing changes.
  bool makeFirstResponder(NSView* view);

  /// Hands the event to the frontmost view at its location. What follows a press of a button
  /// (dragging, release) goes to the view that got the press, as long as it is in the window.
  /// When the pointer comes over another view the former one gets mouseExited and the new one
  /// mouseEntered, except during a drag, where this waits for the release; an event of type
  /// mouseExited tells that the pointer has left the window. Key events go to the first
  /// responder. Views may be added, removed and destroyed while an event is handled, the one that
  /// handles it and the window included. What a handler throws reaches the caller; later events go
  /// where they would have gone.
  void sendEvent(const NSEvent& event);

 private:
  std::shared_ptr<NSView> viewAt(CGPoint location) const;
  std::shared_ptr<NSView> ifShown(const NSWeak<NSView>& view) const;
  void hoverOver(const std::shared_ptr<NSView>& view, NSEvent event);
  void press(NSWeak<NSView>& pressed, void (NSView::*method)(const NSEvent&), const NSEvent& event);
  void release(NSWeak<NSView>& pressed, void (NSView::*method)(const NSEvent&),
               const NSEvent& event);

  CGSize contentSize_;
  std::shared_ptr<NSView> contentView_;
  NSWeak<NSView> firstResponder_;
  NSWeak<NSView> pressed_;
  NSWeak<NSView> rightPressed_;
  NSWeak<NSView> hovered_;
};

}  // namespace vexel
