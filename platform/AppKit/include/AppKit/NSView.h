#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <AppKit/NSAutoresizingMask.h>
#include <AppKit/NSEvent.h>
#include <AppKit/NSLayoutConstraint.h>
#include <AppKit/NSLayoutConstraintOrientation.h>
#include <CoreGraphics/CGContext.h>
#include <CoreGraphics/CGRect.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class NSWindow;

/// A rectangle of a window that draws itself and answers events. Views form a tree: a view owns
/// its subviews and knows its superview weakly. Made with std::make_shared.
///
/// Coordinates are points, y up. `frame` is the view's place in the coordinates of its superview
/// (of the window when it has none), `bounds` the same rectangle in its own. Both have the same
/// size. A width or height that is negative or not finite is taken as 0, and so is an origin's
/// coordinate that is not finite.
class VEXEL_API NSView : public virtual NSObject, public std::enable_shared_from_this<NSView> {
 public:
  /// How strongly a view resists being made smaller than its content unless set.
  static constexpr float kDefaultCompressionResistance = 750;

  /// A view without superview that needs layout and display.
  explicit NSView(CGRect frame = {});
  ~NSView() override;
  NSView(const NSView&) = delete;
  NSView& operator=(const NSView&) = delete;

  // Geometry

  /// The place in the coordinates of the superview.
  CGRect frame() const { return frame_; }
  /// setFrameOrigin() and then setFrameSize().
  virtual void setFrame(CGRect frame);
  /// Moves the view within its superview; the bounds stay.
  void setFrameOrigin(CGPoint origin);
  /// The one way of every change of size: by hand, by autoresizing, by constraints. The bounds
  /// take the new size, subviews are autoresized, the constraints held by this view are solved
  /// and their views placed; the view is marked for layout and display. Overriders call this
  /// first. The present size changes nothing.
  virtual void setFrameSize(CGSize size);

  /// The same rectangle in own coordinates.
  CGRect bounds() const { return {boundsOrigin_, frame_.size}; }
  /// Scrolls: the place in own coordinates that stands at the view's bottom-left corner. Default
  /// (0, 0). Autoresizing and constraints place subviews as if it were (0, 0).
  void setBoundsOrigin(CGPoint origin);

  /// A point given in the coordinates of `view` - of the window when null - in own coordinates.
  /// Goes through the nearest common ancestor; for views of different trees the coordinates of
  /// the two roots' superviews are taken for the same.
  CGPoint convertPointFromView(CGPoint point, const NSView* view) const;
  /// A point given in own coordinates in those of `view`, of the window when null.
  CGPoint convertPointToView(CGPoint point, const NSView* view) const;

  // The tree of views

  /// Null for a view that stands alone or is the content of a window.
  std::shared_ptr<NSView> superview() const;
  /// From back to front. Copy the list before a loop that adds or removes views.
  const std::vector<std::shared_ptr<NSView>>& subviews() const { return subviews_; }
  /// Puts the view in front of the present subviews, after removing it from where it was before.
  /// Null does nothing; this view itself or one that contains it is a fatal error.
  void addSubview(std::shared_ptr<NSView> view);
  /// Takes the view out of its superview, with the superview's constraints that name it, or out
  /// of the window whose content it is. Destroys the view when nobody else owns it.
  void removeFromSuperview();
  /// Whether this is `view` or stands somewhere below it.
  bool isDescendantOf(const NSView& view) const;
  /// The window that shows the tree; null when there is none.
  std::shared_ptr<NSWindow> window() const;

  // Layout

  /// Whether a change of this view's size moves and resizes its subviews by their masks; default
  /// true.
  bool autoresizesSubviews() const { return autoresizesSubviews_; }
  void setAutoresizesSubviews(bool autoresizes) { autoresizesSubviews_ = autoresizes; }

  /// How the view follows a change of its superview's size; default none: it keeps its frame.
  /// In each direction the flexible parts share the change in proportion to their sizes (equally
  /// when all are 0 or less; a margin below 0 counts as 0).
  NSAutoresizingMask autoresizingMask() const { return autoresizingMask_; }
  void setAutoresizingMask(NSAutoresizingMask mask) { autoresizingMask_ = mask; }

  /// True, the default: the mask places the view, and constraints take its frame as given.
  /// False: the constraints held by the superview place it.
  bool translatesAutoresizingMaskIntoConstraints() const { return translatesAutoresizingMask_; }
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates);

  /// The constraints that this view holds, in order of addition. They place its direct subviews;
  /// constraints between attributes of this view alone join those that its superview holds.
  const std::vector<std::shared_ptr<NSLayoutConstraint>>& constraints() const {
    return constraints_;
  }
  /// Null, or one that this view holds already, does nothing. One that another view holds moves
  /// here.
  void addConstraint(std::shared_ptr<NSLayoutConstraint> constraint);
  /// One that this view does not hold does nothing.
  void removeConstraint(const NSLayoutConstraint& constraint);

  /// The size that shows the whole content, in points; absent (the default) when the view has no
  /// size of its own.
  virtual std::optional<CGSize> intrinsicContentSize() const { return std::nullopt; }
  /// To be called when the intrinsic content size is another one.
  void invalidateIntrinsicContentSize();
  /// The priority, 1 to 1000, of not being smaller than the intrinsic content size; default 750.
  /// Without such a size it has no effect. Values are treated as NSLayoutConstraint's are.
  float contentCompressionResistancePriority(NSLayoutConstraintOrientation orientation) const;
  void setContentCompressionResistancePriority(float priority,
                                               NSLayoutConstraintOrientation orientation);

  /// Whether layout() is to be called before the next display; true for a new view.
  bool needsLayout() const { return needsLayout_; }
  void setNeedsLayout(bool needsLayout);
  /// Places the subviews; here: solves the constraints that this view holds if anything they
  /// depend on has changed. Views that they do not determine keep what is left open: their size
  /// first, then their origin. Overriders call this first.
  virtual void layout();
  /// Calls layout() for this view and all below that need it, from the top down. A view whose
  /// layout() throws still needs it.
  void layoutSubtreeIfNeeded();

  // Display

  /// A hidden view and all below it are neither drawn nor hit; default false.
  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);

  /// Whether this view itself is to be drawn again; true for a new view.
  bool needsDisplay() const { return needsDisplay_; }
  /// True marks the whole view; false forgets what was marked.
  void setNeedsDisplay(bool needsDisplay);
  /// Marks the part of `rect` (own coordinates) inside the bounds; nothing when it is empty.
  void setNeedsDisplayInRect(CGRect rect);
  /// What is marked, in own coordinates: a few rectangles, which become one where that covers no
  /// more.
  const std::vector<CGRect>& dirtyRects() const { return dirtyRects_; }
  /// Whether something that can be seen of this view or of one below it is marked, or one of
  /// them needs layout. Hidden views do not count.
  bool subtreeNeedsDisplay() const;

  /// Draws this view, not its subviews, in own coordinates. At least what lies in `dirtyRect` is
  /// to be drawn. Nothing by default.
  virtual void draw(CGContext& context, CGRect dirtyRect);
  /// Lays out what needs it and draws this view and those below it, each clipped to its bounds,
  /// with this view's bottom-left corner at the origin of the context. Nothing that can be seen
  /// is marked afterwards, except by the drawing itself. A hidden or empty view draws nothing.
  /// Views may be added and removed meanwhile. What draw() or layout() throws reaches the caller:
  /// the context has its former state, and views that were not drawn to the end stay marked.
  void display(CGContext& context);
  /// The same for the part inside `rect` (own coordinates). What was marked and can be seen above
  /// and below it stays marked; so does all that was, in views it does not cross from side to side
  /// or that have many marks. Drawing each of the window's dirtyRects() leaves nothing marked.
  void displayRect(CGRect rect, CGContext& context);

  // Events

  /// The frontmost view here or below that contains the point, given in the coordinates of the
  /// superview; edges count as inside. Null when there is none, or the view is hidden or empty.
  virtual NSView* hitTest(CGPoint point);

  /// What the user does with this view. Each hands the event on to the superview, where it is
  /// lost if there is none.
  virtual void mouseDown(const NSEvent& event);
  virtual void mouseUp(const NSEvent& event);
  virtual void mouseMoved(const NSEvent& event);
  virtual void mouseDragged(const NSEvent& event);
  virtual void mouseEntered(const NSEvent& event);
  virtual void mouseExited(const NSEvent& event);
  virtual void rightMouseDown(const NSEvent& event);
  virtual void rightMouseUp(const NSEvent& event);
  virtual void rightMouseDragged(const NSEvent& event);
  virtual void scrollWheel(const NSEvent& event);
  virtual void keyDown(const NSEvent& event);
  virtual void keyUp(const NSEvent& event);

 private:
  friend class NSLayoutConstraint;
  friend class NSWindow;

  CGPoint offsetTo(const NSView* ancestor) const;
  void frameChanged(CGRect before);
  void autoresize(CGSize superviewBefore, CGSize superviewNow);
  void markConstraintsStale();
  void constraintsChanged();
  void dropConstraintsNaming(const NSView& view);
  void placeByConstraints();
  void addSubtreeDirtyRects(CGRect visible, CGPoint offset, std::vector<CGRect>& rects) const;
  bool subtreeNeedsLayout() const;
  void drawSubtree(CGRect rect, CGRect visible, CGPoint offset, CGContext& context);

  CGRect frame_;
  CGPoint boundsOrigin_;
  NSWeak<NSView> superview_;
  NSWeak<NSWindow> window_;
  std::vector<std::shared_ptr<NSView>> subviews_;
  std::vector<std::shared_ptr<NSLayoutConstraint>> constraints_;
  NSAutoresizingMask autoresizingMask_ = NSAutoresizingMask::none;
  bool autoresizesSubviews_ = true;
  bool translatesAutoresizingMask_ = true;
  float compressionResistance_[2] = {kDefaultCompressionResistance, kDefaultCompressionResistance};
  bool hidden_ = false;
  bool needsLayout_ = true;
  bool needsDisplay_ = true;
  std::vector<CGRect> dirtyRects_;
  bool constraintsStale_ = true;
  int placementsUnderWay_ = 0;
  unsigned placementsBegun_ = 0;
};

}  // namespace vexel
