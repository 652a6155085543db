#pragma once

#include <memory>

#include <CorePlot/CPTPlotArea.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// Holds the plot area; its paddings are the room for tick labels and axis titles. Unless it
/// masks to its border they may also lie outside. It draws its fill and the plot area's; its border
/// is drawn above the grid. Where the superlayer has room for it the middle of the border lies on
/// the edges of the frame, as axis lines do at the edges of the plot area.
class VEXEL_API CPTPlotAreaFrame : public CPTBorderedLayer {
 public:
  CPTPlotAreaFrame();

  /// What the frame holds.
  const std::shared_ptr<CPTPlotArea>& plotArea() const { return plotArea_; }
  /// Null: the graph has no plot area and draws only its background.
  void setPlotArea(std::shared_ptr<CPTPlotArea> plotArea);

  void drawBorder(CGContext& context) const override;

 protected:
  void draw(CGContext& context) override;
  void layoutSublayers() override;

 private:
  std::shared_ptr<CPTPlotArea> plotArea_;
};

}  // namespace vexel
