#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include <CorePlot/CPTAxis.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The axes of a graph, in the order in which they are drawn.
class VEXEL_API CPTAxisSet : public CPTLayer {
 public:
  /// From back to front.
  const std::vector<std::shared_ptr<CPTAxis>>& axes() const { return axes_; }
  /// Nulls are left out.
  void setAxes(std::vector<std::shared_ptr<CPTAxis>> axes);

  /// The style that the theme gave the labels and titles of the present axes; absent without a
  /// theme. Axes that join later take it in place of the default text style, so that their text
  /// shows on the theme's background; what they have been given already stays.
  const std::optional<CPTTextStyle>& themeTextStyle() const { return themeTextStyle_; }
  void setThemeTextStyle(std::optional<CPTTextStyle> style) { themeTextStyle_ = std::move(style); }

 private:
  std::vector<std::shared_ptr<CPTAxis>> axes_;
  std::optional<CPTTextStyle> themeTextStyle_;
};

}  // namespace vexel
