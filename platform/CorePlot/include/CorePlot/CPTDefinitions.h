#pragma once

namespace vexel {

/// A side or direction: negative is down or left, positive up or right.
enum class CPTSign { negative = -1, none = 0, positive = 1 };

/// Along the horizontal or the vertical axis.
enum class CPTCoordinate { X = 0, Y = 1 };

/// Whether equal differences or equal ratios get equal lengths.
enum class CPTScaleType { linear = 0, log = 1 };
/// The same under other names.
inline constexpr CPTScaleType CPTScaleTypeLinear = CPTScaleType::linear;
inline constexpr CPTScaleType CPTScaleTypeLog = CPTScaleType::log;

/// How an axis comes to its ticks and labels.
enum class CPTAxisLabelingPolicy {
  /// Only the tick locations and labels that were set by hand.
  none = 0,
  /// Tick locations set by hand, labels made from them.
  locationsProvided = 1,
  /// A tick every major interval from the labelling origin.
  fixedInterval = 2,
  /// A round interval chosen for about `preferredNumberOfMajorTicks` ticks.
  automatic = 3,
  /// The visible range in equal parts, ticks at both ends.
  equalDivisions = 4,
};

}  // namespace vexel
