#pragma once

namespace vexel {

/// The direction that a layout priority of a view is meant for.
enum class NSLayoutConstraintOrientation { horizontal = 0, vertical = 1 };

}  // namespace vexel
