#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSAttributedString.h>
#include <AppKit/NSEvent.h>
#include <AppKit/NSView.h>
#include <CorePlot/CPTBarPlot.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTPlotDataSource.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYGraph.h>
#include <Foundation/VexelAPI.h>
#include <PlotTheme/PlotTheme.h>
#include <Vexel/AnnotationArguments.h>
#include <Vexel/AxisArguments.h>
#include <Vexel/SeriesArguments.h>

namespace vexel {

/// What an application object adopts to draw a figure: it hosts graphs in one view as bands on
/// top of each other, adds series to them, and is their data source. The adopter says in
/// setupPlot, draw and refresh what is special about its figure; everything else has a default
/// that it may replace, and every operation uses the adopter's version of the others.
///
/// An adopter that does not care where the state is kept derives from Adopter<Vexel>. It is made
/// with makePlot, or constructed and then given to initPlot, and may be owned in any way: views
/// and plots refer to it weakly. The usual order of calls is initialisation, setViews, format for
/// each band, axes and series, then show or update. Everything runs on one thread.
///
/// A class that replaces one form of an overloaded operation brings the others back with a
/// using declaration. Protocols that refine this one inherit it virtually, so that one object can
/// adopt several.
class VEXEL_API Vexel : public CPTPlotDataSource {
 public:
  /// Constraints by their identifiers.
  using ViewConstraints = std::map<std::string, std::shared_ptr<NSLayoutConstraint>>;

  Vexel() = default;
  /// Views and plots refer to the one object, so it is not copied.
  Vexel(const Vexel&) = delete;
  Vexel& operator=(const Vexel&) = delete;

  // State. Initialisation resets all but the hosting views and graphs.

  /// The host of the bands; null: there is none, and no band is made.
  virtual std::shared_ptr<NSView>& plotView() = 0;
  /// The bands in the order of creation: the first is the lowest.
  virtual std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() = 0;
  /// Kept by the adopter, who appends what format returns; emptied by removeViews.
  virtual std::vector<std::shared_ptr<CPTXYGraph>>& graphs() = 0;
  /// Every constraint of the layout by its identifier, such as "hostingView0HeightConstraint".
  virtual ViewConstraints& viewConstraints() = 0;
  /// The colours of graphs, axes and series that are added from now on.
  virtual PlotTheme& theme() = 0;
  /// Free for the adopter; empty after initialisation.
  virtual std::string& auxiliaryText() = 0;
  virtual std::vector<double>& auxiliaryValues() = 0;
  /// Factors from data units to plot-space units; 1 after initialisation.
  virtual double& xUnitScale() = 0;
  virtual double& yUnitScale() = 0;

  // The adopter's own part

  /// The last step of initialisation: bands, series and axes may be made here.
  virtual void setupPlot() = 0;
  /// Shows what is presented; what the numbers mean is up to the adopter.
  virtual void draw(const std::vector<double>& presented) = 0;
  /// Takes in what has changed, as update() asks; what is shown may stay.
  virtual void refresh(const std::vector<double>& presented) = 0;

  // Life cycle

  /// Resets the state, takes view and theme, and calls setupPlot. Bands and graphs stay as they
  /// are.
  virtual void initPlot(std::shared_ptr<NSView> plotView, PlotTheme theme);

  /// Draws with nothing presented.
  virtual void show();
  /// Refreshes with nothing presented.
  virtual void update();
  /// Draws, not refreshes, what is presented.
  virtual void update(const std::vector<double>& presented);

  // Bands

  /// Removes the present bands and stacks `count` new ones in the host, from the bottom up, over
  /// its whole width. Each takes an equal part of the height without the paddings; the lowest
  /// takes the bottom padding in addition and the highest of several the top padding, both in
  /// points at the host's present height. A single band leaves the top padding empty. The bands
  /// keep their proportions when the host is resized.
  ///
  /// A host without height gives bands without height: stack them again once it has one.
  /// Without a host only the present bands are removed. A negative count is a fatal error.
  virtual void setViews(int count, CGFloat paddingTop, CGFloat paddingBottom);

  /// Removes the bands with their graphs and constraints and empties hostingViews and graphs.
  virtual void removeViews();

  /// Makes a graph in the current theme, hosts it in the view and sets its paddings, in points:
  /// `graphPadding` is left, right, top, bottom; `frameLayerPadding` is left, top, right, bottom.
  /// The graph is not added to graphs.
  ///
  /// Null without a view, or without a plot area frame, where the graph stays hosted. Fewer than
  /// four paddings are a fatal error; those that are there have been set.
  virtual std::shared_ptr<CPTXYGraph> format(const std::shared_ptr<CPTGraphHostingView>& view,
                                             const std::vector<CGFloat>& graphPadding,
                                             const std::vector<CGFloat>& frameLayerPadding);

  /// Takes a view from its superview with every constraint that names it, also out of
  /// viewConstraints. Does nothing without a view or a superview.
  virtual void cleanRemoveFromSuperview(const std::shared_ptr<NSView>& view);

  // Series

  /// Adds a series of lines or circles to the graph's default plot space, with the adopter as its
  /// data source. Null, and nothing is done, without a graph. This form does the work for the
  /// other two.
  virtual std::shared_ptr<CPTScatterPlot> addPlot(const CPTColorPlotArguments& arguments);
  virtual std::shared_ptr<CPTScatterPlot> addPlot(const NSColorPlotArguments& arguments);
  virtual std::shared_ptr<CPTScatterPlot> addPlot(const PlotArguments& arguments);

  /// Adds a series of bars in the same way.
  virtual std::shared_ptr<CPTBarPlot> addBarPlot(const BarPlotArguments& arguments);

  /// The colour of a name: red, green, blue, cyan, yellow, magenta, orange, purple, brown,
  /// verylightgray, lightgray, gray, darkgray, white or black, exactly as written here. Absent
  /// for any other name and for none.
  virtual std::optional<CPTColor> getCPTColor(const std::optional<std::string>& name);

  // Axes

  /// Styles the graph's vertical axis in the theme's colours and sets the graph's y range to
  /// `yRange` times `yScale`; or adds a right-hand axis, which leaves the range alone. Returns the
  /// axis. Null, and nothing is done, without a graph, without an xy axis set or, for the graph's
  /// own axis, without an x axis. A missing y axis or plot space and a range of fewer than two
  /// values are fatal errors.
  ///
  /// The overload for float ignores `tickLocations` and `axisLabels`.
  virtual std::shared_ptr<CPTAxis> formatYAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                               const YAxisArguments<double>& arguments);
  virtual std::shared_ptr<CPTAxis> formatYAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                               const YAxisArguments<float>& arguments);

  /// Styles the graph's horizontal axis, or adds an upper one, and sets the x range, when there
  /// is one, to `xRange` times `xScale`. A time axis is labelled with years, days of the year,
  /// hours or minutes, whatever suits its range of Julian days. Returns the axis; null, and
  /// nothing is done, without a graph or an xy axis set. A missing plot space, a range of fewer
  /// than two values and a time axis whose ends are no dates are fatal errors.
  virtual std::shared_ptr<CPTAxis> formatXAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                               const XAxisArguments& arguments);

  // Ranges and the pointer

  /// The start and the end of the x range that the graph shows, divided by xUnitScale; empty
  /// without a graph. A graph whose default plot space is missing or not an xy one is a fatal
  /// error.
  virtual std::vector<double> getCurrentShowRange(const std::shared_ptr<CPTXYGraph>& graph);

  /// The number of the band at the height of the pointer, the lower one where two bands meet.
  /// Absent above and below the host, between bands, and without bands, host or its superview.
  virtual std::optional<int> getViewIndex(const NSEvent& event);

  /// Whether the pointer is in the host, edges included, when the event's location is taken as
  /// one in `view`, or in the superview of the host. False without host or view.
  virtual bool mouseInPlotView(const NSEvent& event, const std::shared_ptr<NSView>& view);
  virtual bool mouseInPlotView(const NSEvent& event);

  /// The two ends of an axis on which the first of `amplitudeRange` - 0 when it is above 0 or NaN
  /// - stands at the fraction f[0] of the length and the second at f[1]. Single precision
  /// throughout. `offset` is not used. Fractions of which the first is 0 or that are equal give
  /// infinities or NaN; fewer than two numbers in either list are a fatal error.
  virtual std::vector<float> getLinearPlotRange(float offset,
                                                const std::vector<float>& amplitudeRange,
                                                const std::vector<float>& f);
  /// The two ends, as powers of ten, of a logarithmic axis on which `offset` stands at f[0] and
  /// `maximumAmplitude` at f[1]. Single precision throughout. Values that are not above 0 and
  /// fractions as above give infinities or NaN; fewer than two fractions are a fatal error.
  virtual std::vector<float> getLogPlotRange(float offset, float maximumAmplitude,
                                             const std::vector<float>& f);

  // Annotations

  /// Puts a text on the graph's plot area, its bottom-left corner at the anchor. It moves with
  /// the data; nobody but the plot area keeps it. Does nothing without a graph, an xy plot space
  /// as its default or an anchor. An anchor of fewer than two numbers is a fatal error.
  virtual void addAnnotation(const std::string& text, const AnnotationArguments& arguments);
  virtual void addAnnotation(const NSAttributedString& text,
                             const AttributedAnnotationArguments& arguments);

 protected:
  /// The first step of initialisation: auxiliary text and values are emptied, both scales set to
  /// 1. A protocol with more state overrides it, calls this first and resets its own.
  virtual void resetState();
};

}  // namespace vexel
