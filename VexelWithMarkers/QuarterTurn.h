#pragma once

namespace vexel {

/// In radians: deliberately the single-precision number one step below the one nearest to a
/// quarter turn.
inline constexpr float kQuarterTurn = 1.5707962513f;

}  // namespace vexel
