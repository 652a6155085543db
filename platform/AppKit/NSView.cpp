#include <AppKit/NSView.h>

#include <algorithm>
#include <utility>

#include <AppKit/NSWindow.h>
#include <Foundation/FatalError.h>

#include "AcceptedGeometry.h"

namespace vexel {

NSView::NSView(CGRect frame)
    : frame_{acceptedPoint(frame.origin), acceptedSize(frame.size)}, dirtyRects_{bounds()} {}

NSView::~NSView() {
  // Subviews that outlive this view, or act in their own destruction, find no superview.
  for (const auto& view : subviews_) view->superview_ = nullptr;
}

std::shared_ptr<NSView> NSView::superview() const {
  auto* view = superview_.get();
  return view ? view->weak_from_this().lock() : nullptr;
}

std::shared_ptr<NSWindow> NSView::window() const {
  const NSView* root = this;
  while (const auto* above = root->superview_.get()) root = above;
  auto* window = root->window_.get();
  return window ? window->weak_from_this().lock() : nullptr;
}

bool NSView::isDescendantOf(const NSView& view) const {
  const NSView* candidate = this;
  while (candidate && candidate != &view) candidate = candidate->superview_.get();
  return candidate != nullptr;
}

void NSView::addSubview(std::shared_ptr<NSView> view) {
  if (!view) return;
  if (isDescendantOf(*view)) fatalError("a view cannot be added to itself or to a view inside it");

  NSView& added = *view;
  if (added.superview_.get() == this) {
    const auto place = std::find(subviews_.begin(), subviews_.end(), view);
    std::rotate(place, place + 1, subviews_.end());
  } else {
    added.removeFromSuperview();
    added.superview_ = this;
    subviews_.push_back(std::move(view));
    markConstraintsStale();
  }
  setNeedsDisplayInRect(added.frame_);
  added.setNeedsDisplay(true);
}

void NSView::removeFromSuperview() {
  if (auto* window = window_.get()) {
    window->setContentView(nullptr);
    return;
  }
  auto* above = superview_.get();
  if (!above) return;
  const auto place = std::find_if(above->subviews_.begin(), above->subviews_.end(),
                                  [&](const auto& view) { return view.get() == this; });
  const auto keptUntilTheEnd = *place;
  above->subviews_.erase(place);
  superview_ = nullptr;
  above->dropConstraintsNaming(*this);
  above->markConstraintsStale();
  above->setNeedsDisplayInRect(frame_);
}

}  // namespace vexel
