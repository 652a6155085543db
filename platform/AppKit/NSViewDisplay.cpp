#include <algorithm>
#include <cmath>

#include <AppKit/NSView.h>

#include "DirtyRects.h"

namespace vexel {

namespace {

CGRect moved(const CGRect& rect, CGPoint by) {
  return {rect.origin + by, rect.size};
}

bool isNumber(const CGRect& rect) {
  return !std::isnan(rect.origin.x) && !std::isnan(rect.origin.y) && !rect.isEmpty();
}

}  // namespace

void NSView::setHidden(bool hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  if (auto* above = superview_.get()) above->setNeedsDisplayInRect(frame_);
  if (!hidden) setNeedsDisplay(true);
}

void NSView::setNeedsDisplay(bool needsDisplay) {
  needsDisplay_ = needsDisplay;
  dirtyRects_.clear();
  if (needsDisplay) addDirtyRect(dirtyRects_, bounds());
}

void NSView::setNeedsDisplayInRect(CGRect rect) {
  if (!isNumber(rect)) return;
  const CGRect part = rect.intersection(bounds());
  if (part.isEmpty()) return;
  needsDisplay_ = true;
  addDirtyRect(dirtyRects_, part);
}

/// Adds what is marked here and below and can be seen. `visible` is what superviews leave of the
/// bounds; `offset` is added to what is in own coordinates.
void NSView::addSubtreeDirtyRects(CGRect visible, CGPoint offset,
                                  std::vector<CGRect>& rects) const {
  if (hidden_) return;
  for (const CGRect& dirty : dirtyRects_)
    addDirtyRect(rects, moved(dirty.intersection(visible), offset));
  for (const auto& view : subviews_) {
    const CGPoint toHere = view->frame_.origin - view->boundsOrigin_;
    view->addSubtreeDirtyRects(moved(visible, CGPoint{} - toHere).intersection(view->bounds()),
                               offset + toHere, rects);
  }
}

bool NSView::subtreeNeedsLayout() const {
  return !hidden_ &&
         (needsLayout_ || std::any_of(subviews_.begin(), subviews_.end(),
                                      [](const auto& view) { return view->subtreeNeedsLayout(); }));
}

bool NSView::subtreeNeedsDisplay() const {
  if (subtreeNeedsLayout()) return true;
  std::vector<CGRect> dirty;
  addSubtreeDirtyRects(bounds(), {}, dirty);
  return !dirty.empty();
}

void NSView::draw(CGContext&, CGRect) {}

void NSView::display(CGContext& context) {
  const auto keptUntilTheEnd = weak_from_this().lock();
  layoutSubtreeIfNeeded();
  drawSubtree(bounds(), bounds(), {}, context);
}

void NSView::displayRect(CGRect rect, CGContext& context) {
  const auto keptUntilTheEnd = weak_from_this().lock();
  layoutSubtreeIfNeeded();
  if (isNumber(rect)) drawSubtree(rect.intersection(bounds()), bounds(), {}, context);
}

/// Draws the part inside `rect` of this view and those below it. `visible` is what superviews
/// leave of the bounds; both are inside the bounds. `offset` is where the context has this view's
/// bottom-left corner.
void NSView::drawSubtree(CGRect rect, CGRect visible, CGPoint offset, CGContext& context) {
  if (hidden_ || rect.isEmpty()) return;
  for (CGRect& dirty : dirtyRects_) dirty = dirty.intersection(visible);
  removeDrawnRect(dirtyRects_, rect);
  if (dirtyRects_.empty()) needsDisplay_ = false;

  const CGSavedState state(context);
  const CGPoint origin = offset - boundsOrigin_;
  if (origin != CGPoint{}) context.translate(origin.x, origin.y);
  context.clip(rect);
  try {
    draw(context, rect);
    const auto present = subviews_;
    for (const auto& view : present) {
      if (view->superview_.get() != this) continue;
      const auto within = [&](const CGRect& part) {
        const CGPoint toView = view->boundsOrigin_ - view->frame_.origin;
        return moved(part, toView).intersection(view->bounds());
      };
      view->drawSubtree(within(rect), within(visible), view->frame_.origin, context);
    }
  } catch (...) {
    setNeedsDisplay(true);
    throw;
  }
}

}  // namespace vexel
