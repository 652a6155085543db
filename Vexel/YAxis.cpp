#include <CorePlot/CPTAxisDelegate.h>
#include <Foundation/FatalError.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kitbase/MajorInterval.h>
#include <Vexel/Vexel.h>

#include "AxisStyles.h"

namespace vexel {

namespace {

constexpr int kMinorTicksPerInterval = 3;

std::shared_ptr<NSFormatter> numberFormatter(double majorInterval) {
  const auto formatter = std::make_shared<NSNumberFormatter>();
  formatter->setLocalizesFormat(false);
  formatter->setMinimumIntegerDigits(1);
  formatter->setMinimumFractionDigits(majorInterval < 1.0 ? 1 : 0);
  return formatter;
}

/// Explicit ticks and labels. Deliberate: only the overload for double knows them.
void applyExplicit(CPTAxis& axis, const YAxisArguments<double>& arguments) {
  if (arguments.axisLabels) axis.setAxisLabels(*arguments.axisLabels);
  if (*arguments.tickMarks && arguments.tickLocations) {
    axis.setMajorTickLocations(*arguments.tickLocations);
    axis.setLabelingPolicy(CPTAxisLabelingPolicy::none);
  }
}
void applyExplicit(CPTAxis&, const YAxisArguments<float>&) {}

template <class Number>
std::shared_ptr<CPTAxis> format(Vexel& plot, const std::shared_ptr<CPTXYGraph>& graph,
                                const YAxisArguments<Number>& arguments) {
  if (!graph) return nullptr;
  const auto axisSet = std::dynamic_pointer_cast<CPTXYAxisSet>(graph->axisSet());
  if (!axisSet) return nullptr;
  const auto plotSpace = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());

  const std::vector<Number>& range = *arguments.yRange;
  const Number scale = *arguments.yScale;
  const Number interval = arguments.yMajorIntervalLength ? *arguments.yMajorIntervalLength
                                                         : getOptimimumMajorInterval(range, scale);

  std::shared_ptr<CPTXYAxis> axis;
  if (*arguments.rightAxis) {
    if (!plotSpace) fatalError("Vexel.formatYAxis: the graph has no xy plot space");
    axis = std::make_shared<CPTXYAxis>();
    axis->setCoordinate(CPTCoordinate::Y);
    axis->setPlotSpace(plotSpace);
    axis->setSeparateLayers(false);
    auto axes = axisSet->axes();
    if (!axes.empty()) axes.push_back(axis);
    axisSet->setAxes(axes);
  } else {
    if (!axisSet->xAxis()) return nullptr;
    axis = axisSet->yAxis();
    if (!axis) fatalError("Vexel.formatYAxis: the graph has no vertical axis");
    if (range.size() < 2) fatalError("Vexel.formatYAxis: yRange needs two values");
    if (!plotSpace) fatalError("Vexel.formatYAxis: the graph has no xy plot space");
    plotSpace->setYRange({static_cast<double>(range[0] * scale),
                          static_cast<double>((range[1] - range[0]) * scale)});
  }

  if (*arguments.tickMarks) {
    axis->setMajorIntervalLength(static_cast<double>(interval));
    applyTicks(*axis, plot);
    if (*arguments.rightAxis)
      applySides(*axis, CPTSign::negative, CPTSign::positive);
    else
      applySides(*axis, CPTSign::positive, CPTSign::negative);
    axis->setMinorTicksPerInterval(
        arguments.minorTicksPerInterval.value_or(kMinorTicksPerInterval));
  } else {
    axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
  }
  applyExplicit(*axis, arguments);

  if (*arguments.gridLines) {
    axis->setMajorGridLineStyle(gridLineStyle(plot));
    if (*arguments.minorGridLines) axis->setMinorGridLineStyle(gridLineStyle(plot));
  }
  axis->setAxisLineStyle(axisLineStyle(plot));
  axis->setTitle(arguments.title);
  if (arguments.titleOffset) axis->setTitleOffset(*arguments.titleOffset);
  axis->setDelegate(dynamic_cast<CPTAxisDelegate*>(&plot));
  if (arguments.axisConstraints) axis->setAxisConstraints(arguments.axisConstraints);
  axis->setLabelFormatter(arguments.formatter ? arguments.formatter
                                              : numberFormatter(static_cast<double>(interval)));
  if (*arguments.noLabels) {
    axis->setLabelingPolicy(CPTAxisLabelingPolicy::none);
    axis->setAxisLabels({});
  }
  // Deliberate: the argument has the last word over the plot itself, also when it is absent.
  axis->setDelegate(dynamic_cast<CPTAxisDelegate*>(arguments.delegate));
  return axis;
}

}  // namespace

std::shared_ptr<CPTAxis> Vexel::formatYAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                            const YAxisArguments<double>& arguments) {
  return vexel::format(*this, graph, arguments);
}

std::shared_ptr<CPTAxis> Vexel::formatYAxis(const std::shared_ptr<CPTXYGraph>& graph,
                                            const YAxisArguments<float>& arguments) {
  return vexel::format(*this, graph, arguments);
}

}  // namespace vexel
