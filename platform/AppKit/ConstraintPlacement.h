#pragma once

#include <memory>
#include <vector>

#include <AppKit/NSView.h>

namespace vexel {

/// The frame that constraints give to a view.
struct ConstraintPlacement {
  std::shared_ptr<NSView> view;
  CGRect frame;
};

/// Solves the constraints held by `host` and those that its subviews hold about themselves alone.
/// The frames of all subviews that are placed by constraints and that one of them names, or that
/// have content they resist to be made smaller than. Changes nothing.
std::vector<ConstraintPlacement> constraintPlacements(const NSView& host);

}  // namespace vexel
