#include <cmath>

#include <AppKit/NSView.h>

#include "AcceptedGeometry.h"

namespace vexel {

namespace {

/// Where a view stands in one direction.
struct Span {
  CGFloat origin;
  CGFloat size;
};

/// The parts of a superview's length that take part in a change of it.
struct FlexibleParts {
  bool lowerMargin;
  bool size;
  bool upperMargin;
};

Span followed(Span span, FlexibleParts flexible, CGFloat before, CGFloat now) {
  const CGFloat weight[] = {
      flexible.lowerMargin ? std::max(span.origin, 0.0) : 0,
      flexible.size ? span.size : 0,
      flexible.upperMargin ? std::max(before - span.origin - span.size, 0.0) : 0,
  };
  const CGFloat total = weight[0] + weight[1] + weight[2];
  const int parts = flexible.lowerMargin + flexible.size + flexible.upperMargin;
  const auto change = [&](bool isFlexible, CGFloat ofWeight) {
    if (!isFlexible) return 0.0;
    const bool canBeShared = total > 0 && std::isfinite(total);
    return (now - before) * (canBeShared ? ofWeight / total : 1.0 / parts);
  };
  return {span.origin + change(flexible.lowerMargin, weight[0]),
          span.size + change(flexible.size, weight[1])};
}

}  // namespace

void NSView::setFrame(CGRect frame) {
  setFrameOrigin(frame.origin);
  setFrameSize(frame.size);
}

void NSView::setFrameOrigin(CGPoint origin) {
  origin = acceptedPoint(origin);
  if (origin == frame_.origin) return;
  const CGRect before = frame_;
  frame_.origin = origin;
  frameChanged(before);
}

void NSView::setFrameSize(CGSize size) {
  size = acceptedSize(size);
  if (size == frame_.size) return;
  const auto keptUntilTheEnd = weak_from_this().lock();
  const CGRect before = frame_;
  frame_.size = size;
  setNeedsDisplay(true);
  frameChanged(before);
  if (autoresizesSubviews_) {
    const auto present = subviews_;
    for (const auto& view : present)
      if (view->superview_.get() == this) view->autoresize(before.size, size);
  }
  needsLayout_ = true;
  placeByConstraints();
}

void NSView::frameChanged(CGRect before) {
  auto* above = superview_.get();
  if (!above) return;
  above->setNeedsDisplayInRect(before);
  above->setNeedsDisplayInRect(frame_);
  if (above->placementsUnderWay_ == 0) above->markConstraintsStale();
}

void NSView::autoresize(CGSize superviewBefore, CGSize superviewNow) {
  if (!translatesAutoresizingMask_ || autoresizingMask_ == NSAutoresizingMask::none) return;
  const auto isFlexible = [&](NSAutoresizingMask part) {
    return contains(autoresizingMask_, part);
  };
  const Span x = followed(
      {frame_.origin.x, frame_.size.width},
      {isFlexible(NSAutoresizingMask::minXMargin), isFlexible(NSAutoresizingMask::widthSizable),
       isFlexible(NSAutoresizingMask::maxXMargin)},
      superviewBefore.width, superviewNow.width);
  const Span y = followed(
      {frame_.origin.y, frame_.size.height},
      {isFlexible(NSAutoresizingMask::minYMargin), isFlexible(NSAutoresizingMask::heightSizable),
       isFlexible(NSAutoresizingMask::maxYMargin)},
      superviewBefore.height, superviewNow.height);
  const CGRect frame = CGRect::make(x.origin, y.origin, x.size, y.size);
  if (frame != frame_) setFrame(frame);
}

void NSView::setBoundsOrigin(CGPoint origin) {
  origin = acceptedPoint(origin);
  if (origin == boundsOrigin_) return;
  boundsOrigin_ = origin;
  setNeedsDisplay(true);
}

/// What is added to own coordinates to make them those of `ancestor`, or of the root's superview
/// when null.
CGPoint NSView::offsetTo(const NSView* ancestor) const {
  CGPoint offset;
  for (const NSView* view = this; view && view != ancestor; view = view->superview_.get())
    offset = offset + view->frame_.origin - view->boundsOrigin_;
  return offset;
}

CGPoint NSView::convertPointFromView(CGPoint point, const NSView* view) const {
  const NSView* common = view;
  while (common && !isDescendantOf(*common)) common = common->superview_.get();
  const CGPoint inCommon = view ? point + view->offsetTo(common) : point;
  return inCommon - offsetTo(common);
}

CGPoint NSView::convertPointToView(CGPoint point, const NSView* view) const {
  return view ? view->convertPointFromView(point, this) : point + offsetTo(nullptr);
}

}  // namespace vexel
