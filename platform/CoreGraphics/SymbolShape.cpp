#include "SymbolShape.h"

#include "SafePath.h"
#include "TransformFacts.h"

namespace vexel {

std::optional<CGPath> symbolShape(const CGPath& symbol, const CGAffineTransform& t) {
  constexpr CGFloat kLargest = 512;
  CGPath shape = symbol.transformed({t.a, t.b, t.c, t.d, 0, 0});
  const CGRect room = CGRect::make(-kLargest, -kLargest, 2 * kLargest, 2 * kLargest);
  if (!keepsShapes(t) || !liesInside(shape, room)) return std::nullopt;
  return shape;
}

}  // namespace vexel
