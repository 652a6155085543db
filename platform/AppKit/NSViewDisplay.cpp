#include <algorithm>
#include <cmath>

#include <AppKit/NSView.h>

namespace vexel {

namespace {

/// What is narrower than this many points cannot be seen.
constexpr CGFloat kInvisible = 1e-3;

CGRect moved(const CGRect& rect, CGPoint by) {
  return {rect.origin + by, rect.size};
}

bool covers(const CGRect& rect, const CGRect& part) {
  return part.isEmpty() ||
         (part.minX() >= rect.minX() - kInvisible && part.maxX() <= rect.maxX() + kInvisible &&
          part.minY() >= rect.minY() - kInvisible && part.maxY() <= rect.maxY() + kInvisible);
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
  dirtyRect_ = needsDisplay ? bounds() : CGRect{};
}

void NSView::setNeedsDisplayInRect(CGRect rect) {
  if (!isNumber(rect)) return;
  const CGRect part = rect.intersection(bounds());
  if (part.isEmpty()) return;
  needsDisplay_ = true;
  dirtyRect_ = dirtyRect_.unionWith(part);
}

/// The smallest rectangle around what is marked here and below and can be seen, in own
/// coordinates.
CGRect NSView::subtreeDirtyRect() const {
  if (hidden_) return {};
  CGRect dirty = dirtyRect_;
  for (const auto& view : subviews_)
    dirty =
        dirty.unionWith(moved(view->subtreeDirtyRect(), view->frame_.origin - view->boundsOrigin_));
  return dirty.intersection(bounds());
}

bool NSView::subtreeNeedsLayout() const {
  return !hidden_ &&
         (needsLayout_ || std::any_of(subviews_.begin(), subviews_.end(),
                                      [](const auto& view) { return view->subtreeNeedsLayout(); }));
}

bool NSView::subtreeNeedsDisplay() const {
  return subtreeNeedsLayout() || !subtreeDirtyRect().isEmpty();
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
  if (covers(rect, dirtyRect_.intersection(visible))) setNeedsDisplay(false);

  const CGSavedState state(context);
  const CGPoint origin = offset - boundsOrigin_;
  if (origin != CGPoint{}) context.translate(origin.x, origin.y);
  context.clip(rect);
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
}

}  // namespace vexel
