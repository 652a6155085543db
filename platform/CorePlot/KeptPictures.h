#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "ChartParts.h"

namespace vexel {

/// Pictures of parts of a chart as they were at the last display, so that on bitmaps only what has
/// changed is drawn again. At most three, each of the size of the graph: two of the first parts, up
/// to a change, and one of the parts above the first mark, from the first that is no mark to the
/// last one. The latter are put together apart also when nothing is kept, so that the rounding of
/// colours does not tell pictures that were kept from others.
///
/// A display of some rows of the graph draws only these rows of the pictures of first parts; the
/// others are drawn when they are first shown. So a window can draw a chart of many points in
/// several goes.
class KeptPictures {
 public:
  /// Draws the parts inside `rect`, or all of them when it is absent. Each is cut at the border of
  /// `rounded` unless that is null. `bounds` are those of the graph.
  void draw(const ChartParts& parts, const CPTBorderedLayer* rounded, const CGRect& bounds,
            CGContext& context, const std::optional<CGRect>& rect);

 private:
  using Part = ChartParts::Part;
  struct Picture {
    std::unique_ptr<CGLayer> layer;
    std::vector<const void*> owners;
    /// What has not been drawn yet.
    std::vector<CGRect> missing = {};

    /// Whether the picture is of these parts, unchanged.
    bool shows(std::span<const Part> parts) const;
  };
  class Drawing;

  void complete(std::span<Picture> pictures, const CGRect& rect, const Drawing& drawing);
  void drawApart(std::span<const Part> parts, const Drawing& drawing, CGContext& context);

  std::vector<Picture> lower_;
  std::optional<Picture> apart_;
  /// The first part below the text that had changed at the last display; null when none had.
  const void* changed_ = nullptr;
};

}  // namespace vexel
