#include <algorithm>

#include <AppKit/NSView.h>

#include "ConstraintPlacement.h"
#include "LayoutPriority.h"

namespace vexel {

namespace {

/// Counts up for as long as it lives.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

void NSView::setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
  if (translates == translatesAutoresizingMask_) return;
  translatesAutoresizingMask_ = translates;
  constraintsChanged();
}

void NSView::addConstraint(std::shared_ptr<NSLayoutConstraint> constraint) {
  if (!constraint || constraint->host_.get() == this) return;
  if (auto* former = constraint->host_.get()) former->removeConstraint(*constraint);
  constraint->host_ = this;
  constraints_.push_back(std::move(constraint));
  constraintsChanged();
}

void NSView::removeConstraint(const NSLayoutConstraint& constraint) {
  const auto place = std::find_if(constraints_.begin(), constraints_.end(),
                                  [&](const auto& held) { return held.get() == &constraint; });
  if (place == constraints_.end()) return;
  (*place)->host_ = nullptr;
  constraints_.erase(place);
  constraintsChanged();
}

void NSView::dropConstraintsNaming(const NSView& view) {
  std::erase_if(constraints_, [&](const auto& constraint) {
    if (constraint->firstItem() != &view && constraint->secondItem() != &view) return false;
    constraint->host_ = nullptr;
    return true;
  });
}

/// Something that the constraints held here depend on is different.
void NSView::markConstraintsStale() {
  constraintsStale_ = true;
  needsLayout_ = true;
}

/// The same for this view and its superview, who solves what this view holds about itself.
void NSView::constraintsChanged() {
  markConstraintsStale();
  if (auto* above = superview_.get()) above->markConstraintsStale();
}

void NSView::invalidateIntrinsicContentSize() {
  constraintsChanged();
}

float NSView::contentCompressionResistancePriority(
    NSLayoutConstraintOrientation orientation) const {
  return compressionResistance_[static_cast<int>(orientation)];
}

void NSView::setContentCompressionResistancePriority(float priority,
                                                     NSLayoutConstraintOrientation orientation) {
  float& present = compressionResistance_[static_cast<int>(orientation)];
  const float accepted = acceptedLayoutPriority(priority, present);
  if (accepted == present) return;
  present = accepted;
  constraintsChanged();
}

void NSView::setNeedsLayout(bool needsLayout) {
  needsLayout_ = needsLayout;
}

void NSView::layout() {
  if (constraintsStale_) placeByConstraints();
}

void NSView::layoutSubtreeIfNeeded() {
  const auto keptUntilTheEnd = weak_from_this().lock();
  if (needsLayout_) {
    needsLayout_ = false;
    try {
      layout();
    } catch (...) {
      needsLayout_ = true;
      throw;
    }
  }
  const auto present = subviews_;
  for (const auto& view : present) view->layoutSubtreeIfNeeded();
}

void NSView::placeByConstraints() {
  constraintsStale_ = false;
  const unsigned mine = ++placementsBegun_;
  const Counted underWay(placementsUnderWay_);
  try {
    for (const auto& [view, frame] : constraintPlacements(*this)) {
      // Placing a view may lead back here, and then the frames found later are the right ones.
      if (placementsBegun_ != mine) return;
      if (view->superview_.get() == this && frame != view->frame_) view->setFrame(frame);
    }
  } catch (...) {
    markConstraintsStale();
    throw;
  }
}

}  // namespace vexel
