#include <CorePlot/CPTAxisDelegate.h>
#include <Foundation/FatalError.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kitbase/EmptyFormatter.h>
#include <Kitbase/MajorInterval.h>
#include <Vexel/Vexel.h>

#include "AxisStyles.h"
#include "TimeAxis.h"

namespace vexel {

namespace {

// Deliberate: the vertical axis has three.
constexpr int kMinorTicksPerInterval = 4;
constexpr int kMaximumFractionDigits = 3;

std::shared_ptr<NSFormatter> numberFormatter(double majorInterval) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  formatter->setLocalizesFormat(false);
  formatter->setMinimumIntegerDigits(1);
  formatter->setMaximumFractionDigits(kMaximumFractionDigits);
  formatter->setMinimumFractionDigits(majorInterval <= 0.002 ? 3
                                      : majorInterval <= 0.2 ? 2
                                      : majorInterval >= 1.0 ? 0
                                                             : 1);
  return formatter;
}

/// The range the axis shows, in the units of the arguments.
std::vector<double> shownRange(const XAxisArguments& arguments, const CPTXYPlotSpace& plotSpace) {
  if (arguments.xRange) return *arguments.xRange;
  return {plotSpace.xRange().locationDouble(), plotSpace.xRange().endDouble()};
}

void applyTimeAxis(CPTAxis& axis, const std::vector<double>& range, PlotTheme theme) {
  CPTMutableTextStyle style;
  style.color = theme.plotCPTColor();
  std::set<double> locations;
  std::vector<std::shared_ptr<CPTAxisLabel>> labels;
  const TimeAxis time = timeAxis(range);
  for (const auto& [location, text] : time.ticks) {
    locations.insert(location);
    labels.push_back(std::make_shared<CPTAxisLabel>(text, style));
    labels.back()->setTickLocation(location);
  }
  axis.setMajorTickLocations(std::move(locations));
  axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  axis.setAxisLabels(std::move(labels));
  axis.setTitle(time.title);
}

}  // namespace

std::shared_ptr<CPTAxis> Vexel::formatXAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                            const XAxisArguments& arguments) {
  if (!graph) return nullptr;
  const auto axisSet = std::dynamic_pointer_cast<CPTXYAxisSet>(graph->axisSet());
  if (!axisSet) return nullptr;
  const auto defaultSpace = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  if (!defaultSpace) fatalError("Vexel.formatXAxis: the graph has no xy plot space");

  auto plotSpace = defaultSpace;
  if (*arguments.onNewPlotSpace) {
    plotSpace = std::make_shared<CPTXYPlotSpace>();
    plotSpace->setYRange(defaultSpace->yRange());
    graph->addPlotSpace(plotSpace);
  }
  const double scale = arguments.xScale.value_or(1.0);
  if (arguments.xRange) {
    const auto& range = *arguments.xRange;
    if (range.size() < 2) fatalError("Vexel.formatXAxis: xRange needs two values");
    const CPTPlotRange scaled(range[0] * scale, (range[1] - range[0]) * scale);
    plotSpace->setXRange(scaled);
    defaultSpace->setXRange(scaled);
  }

  auto axis = axisSet->xAxis();
  if (*arguments.upperAxis) {
    axis = std::make_shared<CPTXYAxis>();
    axis->setCoordinate(CPTCoordinate::X);
    axis->setSeparateLayers(false);
    axis->setPlotSpace(plotSpace);
    auto axes = axisSet->axes();
    axes.push_back(axis);
    axisSet->setAxes(axes);
  }
  if (!axis) return nullptr;
  if (*arguments.onNewPlotSpace) axis->setPlotSpace(plotSpace);

  const double interval = arguments.xMajorIntervalLength
                              ? *arguments.xMajorIntervalLength
                              : getOptimimumMajorInterval(shownRange(arguments, *plotSpace),
                                                          arguments.xRange ? scale : 1.0);
  axis->setMajorIntervalLength(interval);
  axis->setMinorTicksPerInterval(kMinorTicksPerInterval);

  const bool hasTimeAxis = *arguments.timeAxis && arguments.xRange;
  if (hasTimeAxis) {
    applyTimeAxis(*axis, *arguments.xRange, theme());
  } else {
    if (arguments.tickLocations) {
      axis->setMajorTickLocations(*arguments.tickLocations);
      axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
    }
    if (arguments.axisLabels) axis->setAxisLabels(*arguments.axisLabels);
  }

  if (*arguments.tickMarks) {
    applyTicks(*axis, *this);
  } else {
    // Deliberate: ticks by hand, and those of time, stay on the axis and show in the looks that it
    // had before.
    axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
  }
  if (*arguments.upperAxis)
    applySides(*axis, CPTSign::negative, CPTSign::positive);
  else
    applySides(*axis, CPTSign::positive, CPTSign::negative);
  if (*arguments.gridLines) {
    axis->setMajorGridLineStyle(gridLineStyle(*this));
    axis->setMinorGridLineStyle(gridLineStyle(*this));
  }
  axis->setAxisLineStyle(axisLineStyle(*this));
  axis->setSeparateLayers(*arguments.separateLayers);

  if (*arguments.noLabels) {
    axis->setLabelFormatter(std::make_shared<EmptyFormatter>());
  } else {
    CPTMutableTextStyle style;
    style.color = theme().plotCPTColor();
    axis->setLabelTextStyle(style);
    axis->setLabelFormatter(arguments.formatter ? arguments.formatter : numberFormatter(interval));
  }

  if (arguments.axisConstraints) axis->setAxisConstraints(arguments.axisConstraints);
  if (arguments.title && !hasTimeAxis) axis->setTitle(arguments.title);
  if (arguments.titleOffset) axis->setTitleOffset(*arguments.titleOffset);
  axis->setDelegate(dynamic_cast<CPTAxisDelegate*>(arguments.delegate));
  return axis;
}

}  // namespace vexel
