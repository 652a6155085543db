// Axes of any kind over any range, formatted as a figure does and then set up by hand.

#include <CorePlot/CPTDump.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <Foundation/NSNumberFormatter.h>
#include <Kitbase/EmptyFormatter.h>
#include <Vexel/Adopter.h>

#include <cstdint>

#include "Drawing.h"
#include "FuzzStyles.h"

namespace {

using namespace vexel;

class Figure : public Adopter<Vexel> {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

std::shared_ptr<NSFormatter> anyFormatter(FuzzInput& input) {
  switch (input.choice(4)) {
    case 0:
      return nullptr;
    case 1:
      return std::make_shared<EmptyFormatter>();
    default: {
      const auto formatter = std::make_shared<NSNumberFormatter>();
      formatter->setMinimumIntegerDigits(input.raw<std::int8_t>());
      formatter->setMinimumFractionDigits(input.raw<std::int8_t>());
      formatter->setMaximumFractionDigits(input.raw<std::int16_t>());
      return formatter;
    }
  }
}

std::optional<std::set<double>> maybeTicks(FuzzInput& input) {
  if (input.choice(4) != 0) return std::nullopt;
  const auto numbers = input.numbers(20);
  // A set cannot hold NaN.
  std::set<double> ticks;
  for (const double number : numbers)
    if (number == number) ticks.insert(number);
  return ticks;
}

std::optional<std::vector<std::shared_ptr<CPTAxisLabel>>> maybeLabels(FuzzInput& input) {
  if (input.choice(4) != 0) return std::nullopt;
  std::vector<std::shared_ptr<CPTAxisLabel>> labels;
  for (const double place : input.numbers(8)) {
    if (input.choice(8) == 0) {
      labels.push_back(nullptr);
      continue;
    }
    labels.push_back(std::make_shared<CPTAxisLabel>(input.text(), anyTextStyle(input)));
    labels.back()->setTickLocation(place);
    labels.back()->setOffset(input.number());
    labels.back()->setRotation(input.number());
  }
  return labels;
}

template <class T, class Make>
std::optional<T> maybe(FuzzInput& input, Make make) {
  if (input.choice(3) != 0) return std::nullopt;
  return make();
}

XAxisArguments anyXAxis(FuzzInput& input) {
  const auto number = [&] { return input.number(); };
  XAxisArguments axis{.gridLines = input.flag(),
                      .noLabels = input.choice(8) == 0,
                      .tickMarks = input.choice(8) != 0,
                      .timeAxis = false,
                      .upperAxis = input.choice(4) == 0,
                      .onNewPlotSpace = input.choice(4) == 0,
                      .separateLayers = input.flag()};
  axis.title = maybe<std::string>(input, [&] { return input.text(); });
  axis.titleOffset = maybe<float>(input, [&] { return input.single(); });
  if (input.choice(8) != 0) axis.xRange = {input.number(), input.number()};
  axis.xScale = maybe<double>(input, number);
  axis.xMajorIntervalLength = maybe<double>(input, number);
  axis.axisConstraints = maybe<CPTConstraints>(input, [&] { return anyConstraints(input); });
  axis.formatter = anyFormatter(input);
  axis.tickLocations = maybeTicks(input);
  axis.axisLabels = maybeLabels(input);
  return axis;
}

template <class Number, class Make>
YAxisArguments<Number> anyYAxis(FuzzInput& input, Make number) {
  const Number start = number();
  const Number end = number();
  YAxisArguments<Number> axis{.yRange = std::vector<Number>{start, end},
                              .yScale = input.flag() ? Number{1} : number(),
                              .gridLines = input.flag(),
                              .minorGridLines = input.flag(),
                              .noLabels = input.choice(8) == 0,
                              .tickMarks = input.choice(8) != 0,
                              .rightAxis = input.choice(4) == 0};
  axis.title = maybe<std::string>(input, [&] { return input.text(); });
  axis.titleOffset = maybe<float>(input, [&] { return input.single(); });
  axis.yMajorIntervalLength = maybe<Number>(input, number);
  axis.axisConstraints = maybe<CPTConstraints>(input, [&] { return anyConstraints(input); });
  axis.formatter = anyFormatter(input);
  // A negative number is a broken invariant.
  axis.minorTicksPerInterval =
      maybe<int>(input, [&] { return input.raw<std::int32_t>() & 0x7fffffff; });
  axis.tickLocations = maybeTicks(input);
  axis.axisLabels = maybeLabels(input);
  return axis;
}

CPTSign anySign(FuzzInput& input) {
  return input.oneOf({CPTSign::negative, CPTSign::none, CPTSign::positive});
}

void setUpByHand(CPTAxis& axis, FuzzInput& input) {
  axis.setLabelingPolicy(static_cast<CPTAxisLabelingPolicy>(input.choice(5)));
  axis.setMajorIntervalLength(input.number());
  axis.setLabelingOrigin(input.number());
  axis.setMinorTicksPerInterval(input.flag() ? input.byte()
                                             : input.raw<std::int32_t>() & 0x7fffffff);
  axis.setPreferredNumberOfMajorTicks(input.flag() ? input.byte() : input.raw<std::int32_t>());
  if (auto ticks = maybeTicks(input)) axis.setMajorTickLocations(std::move(*ticks));
  if (auto ticks = maybeTicks(input)) axis.setMinorTickLocations(std::move(*ticks));
  if (auto labels = maybeLabels(input)) axis.setAxisLabels(std::move(*labels));
  axis.setMajorTickLength(input.number());
  axis.setMinorTickLength(input.number());
  axis.setTickDirection(anySign(input));
  axis.setTickLabelDirection(anySign(input));
  axis.setTitleDirection(anySign(input));
  axis.setAxisLineStyle(maybeLineStyle(input));
  axis.setMajorTickLineStyle(maybeLineStyle(input));
  axis.setMinorTickLineStyle(maybeLineStyle(input));
  axis.setMajorGridLineStyle(maybeLineStyle(input));
  axis.setMinorGridLineStyle(maybeLineStyle(input));
  axis.setLabelFormatter(anyFormatter(input));
  axis.setLabelTextStyle(anyTextStyle(input));
  axis.setLabelOffset(input.number());
  axis.setLabelRotation(input.number());
  if (input.flag()) axis.setTitle(input.text());
  axis.setTitleTextStyle(anyTextStyle(input));
  axis.setTitleOffset(input.number());
  if (auto* xy = dynamic_cast<CPTXYAxis*>(&axis)) {
    if (input.flag()) xy->setOrthogonalPosition(input.number());
    if (input.flag()) xy->setAxisConstraints(anyConstraints(input));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto view = std::make_shared<NSView>(CGRect{{}, figureSize(input)});
  const auto figure = makePlot<Figure>(view, static_cast<PlotTheme::Case>(input.choice(3)));
  figure->setViews(1, 0, 0);
  std::vector<CGFloat> padding(4);
  for (CGFloat& points : padding) points = input.points();
  const auto graph = figure->format(figure->hostingViews()[0], {0, 0, 0, 0}, padding);
  if (input.choice(4) == 0) graph->setTitle(input.text());

  figure->formatXAxis(graph, anyXAxis(input));
  if (input.flag())
    figure->formatYAxis(graph, anyYAxis<double>(input, [&] { return input.number(); }));
  else
    figure->formatYAxis(graph, anyYAxis<float>(input, [&] { return input.single(); }));
  if (input.choice(4) == 0) figure->formatXAxis(graph, anyXAxis(input));
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  if (input.flag()) space->setXScaleType(CPTScaleType::log);
  if (input.flag()) space->setYScaleType(CPTScaleType::log);
  drawEverywhere(*view, input);

  if (input.isAtEnd()) return 0;
  for (const auto& axis : graph->axisSet()->axes()) setUpByHand(*axis, input);
  drawEverywhere(*view, input);
  if (!input.isAtEnd()) {
    setAnyRanges(*space, input);
    drawEverywhere(*view, input);
  }
  dump(*graph);
  return 0;
}
