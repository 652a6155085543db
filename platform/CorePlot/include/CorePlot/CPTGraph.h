#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CorePlot/CPTAxisSet.h>
#include <CorePlot/CPTBorderedLayer.h>
#include <CorePlot/CPTPlot.h>
#include <CorePlot/CPTPlotAreaFrame.h>
#include <CorePlot/CPTPlotSpace.h>
#include <CorePlot/CPTTextStyle.h>
#include <CorePlot/CPTTheme.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class CPTGraphHostingView;
class KeptPictures;
class ShownMarks;
struct AxisArrangement;

/// A chart: a plot area in its frame, plot spaces, axes and plots. Made with std::make_shared of a
/// concrete type, which fills it.
class VEXEL_API CPTGraph : public CPTBorderedLayer {
 public:
  /// On every side of a new graph, in points.
  static constexpr CGFloat kDefaultPadding = 20;

  /// A graph without parts.
  explicit CPTGraph(CGRect frame);
  ~CPTGraph() override;

  /// The view that shows the graph; null when there is none.
  CPTGraphHostingView* hostingView() const { return hostingView_.get(); }

  /// Holds the plot area; null: nothing but the background is drawn.
  const std::shared_ptr<CPTPlotAreaFrame>& plotAreaFrame() const { return plotAreaFrame_; }
  void setPlotAreaFrame(std::shared_ptr<CPTPlotAreaFrame> frame);

  /// The axes; null: none are drawn.
  const std::shared_ptr<CPTAxisSet>& axisSet() const { return axisSet_; }
  void setAxisSet(std::shared_ptr<CPTAxisSet> axisSet);

  /// In order of addition.
  const std::vector<std::shared_ptr<CPTPlotSpace>>& allPlotSpaces() const { return plotSpaces_; }
  /// The first plot space; null when there is none.
  std::shared_ptr<CPTPlotSpace> defaultPlotSpace() const;
  /// Takes the plot space from the graph that had it. Null, and one that is there already, do
  /// nothing.
  void addPlotSpace(std::shared_ptr<CPTPlotSpace> space);
  /// Plots and axes on it stay there, but no longer follow its changes.
  void removePlotSpace(const CPTPlotSpace& space);

  /// From back to front.
  const std::vector<std::shared_ptr<CPTPlot>>& allPlots() const { return plots_; }
  /// Adds a plot on top of the others, on the default plot space or the one given, which is added
  /// too when no graph has it. A plot that is on a graph already moves to the top. Null does
  /// nothing.
  void addPlot(std::shared_ptr<CPTPlot> plot);
  void addPlot(std::shared_ptr<CPTPlot> plot, std::shared_ptr<CPTPlotSpace> space);
  /// The first plot of that identifier; null when there is none.
  std::shared_ptr<CPTPlot> plotWithIdentifier(const std::string& identifier) const;
  /// A plot that is not here does nothing.
  void removePlot(const CPTPlot& plot);
  /// Removes the first plot of that identifier, if there is one.
  void removePlotWithIdentifier(const std::string& identifier);
  /// Asks every plot to read its data again before the next display.
  void reloadData();

  /// Sets fill and axis looks; paddings and plot spaces stay. Null does nothing.
  void applyTheme(const std::shared_ptr<const CPTTheme>& theme);

  /// Text above the plot area; absent: none. Titles of axes keep clear of it. Where the paddings
  /// leave no room for both it stands alone, and it is not shown where it would lie on labels.
  const std::optional<std::string>& title() const { return title_; }
  void setTitle(std::optional<std::string> title);
  /// How the title is drawn.
  const CPTTextStyle& titleTextStyle() const { return titleTextStyle_; }
  void setTitleTextStyle(CPTTextStyle style);
  /// Where the title has its place, in the graph's coordinates; empty when there is none.
  CGRect titleFrame() const;

  /// Draws the chart in its own coordinates and within its bounds, back to front: background,
  /// minor grid, major grid, axis lines and ticks, plots, axis labels, axis titles, annotations.
  /// A hidden graph draws nothing; a hidden plot area, or frame, hides all that lies on it. What
  /// data sources, delegates and formatters throw reaches the caller; nothing half drawn is kept.
  ///
  /// On bitmaps what lies below and above a change since the last display is taken from kept
  /// pictures where there are some: plots of few records, such as markers, and annotations move
  /// without anything else being drawn again.
  void displayChart(CGContext& context);
  /// The same for the part inside `rect`.
  void displayChart(CGContext& context, CGRect rect);

  /// Everything that a plot space places has to be drawn again.
  void plotSpaceDidChange(const CPTPlotSpace& space);

 protected:
  void layoutSublayers() override;
  void contentDidChange() override;

 private:
  friend class CPTGraphHostingView;
  friend class ChartParts;

  /// Marks what has changed in the hosting view.
  void tellHostingView();
  /// In the graph's coordinates; absent when it may have changed anywhere.
  std::optional<std::vector<CGRect>> changedPlaces();
  bool backgroundNeedsDisplay() const;
  bool axesNeedDisplay() const;
  /// The places of the axes; those of the last display when nothing has changed them.
  std::shared_ptr<const AxisArrangement> arrangedAxes();
  void displayParts(CGContext& context, const std::optional<CGRect>& rect);

  NSWeak<CPTGraphHostingView> hostingView_;
  std::shared_ptr<CPTPlotAreaFrame> plotAreaFrame_;
  std::shared_ptr<CPTAxisSet> axisSet_;
  std::shared_ptr<const AxisArrangement> arrangement_;
  std::vector<std::shared_ptr<CPTPlotSpace>> plotSpaces_;
  std::vector<std::shared_ptr<CPTPlot>> plots_;
  std::optional<std::string> title_;
  CPTTextStyle titleTextStyle_;
  mutable std::optional<CGSize> titleSize_;
  /// Whether the hosting view has not been told of a change.
  bool changed_ = true;
  std::unique_ptr<ShownMarks> shown_;
  std::unique_ptr<KeptPictures> kept_;
};

}  // namespace vexel
