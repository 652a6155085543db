#pragma once

namespace vexel {

/// How the two sides of a layout constraint compare.
enum class NSLayoutRelation { lessThanOrEqual = -1, equal = 0, greaterThanOrEqual = 1 };

}  // namespace vexel
