#include <AppKit/NSLayoutConstraint.h>

#include <AppKit/NSView.h>

#include "LayoutPriority.h"

namespace vexel {

NSLayoutConstraint::NSLayoutConstraint(const NSLayoutConstraintArguments& arguments)
    : firstItem_(&arguments.firstItem),
      firstAttribute_(arguments.firstAttribute),
      relation_(arguments.relation),
      secondItem_(arguments.secondItem),
      secondAttribute_(arguments.secondAttribute),
      hasSecondItem_(arguments.secondItem != nullptr),
      multiplier_(arguments.multiplier),
      constant_(arguments.constant) {}

std::shared_ptr<NSLayoutConstraint> NSLayoutConstraint::constraint(
    const NSLayoutConstraintArguments& arguments) {
  return std::shared_ptr<NSLayoutConstraint>(new NSLayoutConstraint(arguments));
}

void NSLayoutConstraint::setConstant(CGFloat points) {
  if (points == constant_) return;
  constant_ = points;
  changed();
}

void NSLayoutConstraint::setPriority(float priority) {
  const float accepted = acceptedLayoutPriority(priority, priority_);
  if (accepted == priority_) return;
  priority_ = accepted;
  changed();
}

void NSLayoutConstraint::setIdentifier(std::optional<std::string> identifier) {
  identifier_ = std::move(identifier);
}

void NSLayoutConstraint::changed() {
  if (auto* host = host_.get()) host->constraintsChanged();
}

}  // namespace vexel
