#include <Vexel/PlotView.h>
#include <gtest/gtest.h>

#include "Vexel/TestPlot.h"
#include "pictures/ReferencePictures.h"

namespace vexel {
namespace {

// 1 January 2001, midnight.
constexpr double kNewYear = 2451910.5;
constexpr double kHour = 1 / 24.0;
constexpr double kMinute = 1 / 1440.0;

const struct {
  PlotTheme theme;
  std::string name;
} kThemes[] = {{PlotTheme::white, "white"}, {PlotTheme::black, "black"}};

/// Bands of the same height, drawn without data.
class Sheet {
 public:
  Sheet(PlotTheme theme, CGSize bandSize, std::size_t bands, const std::vector<CGFloat>& paddings)
      : view_(std::make_shared<PlotView>(
            CGRect::make(0, 0, bandSize.width, bandSize.height * static_cast<double>(bands)))) {
    plot.initPlot(view_, theme);
    plot.points.clear();
    plot.setViews(static_cast<int>(bands), 0, 0);
    for (const auto& band : plot.hostingViews())
      plot.graphs().push_back(plot.format(band, {0, 0, 0, 0}, paddings));
  }

  /// From the top.
  const std::shared_ptr<CPTXYGraph>& graph(std::size_t band) {
    return plot.graphs()[plot.graphs().size() - 1 - band];
  }

  testing::AssertionResult equalsReference(const std::string& name) {
    const auto context = CGBitmapContext::create(view_->bounds().size, 1);
    view_->display(*context);
    return vexel::equalsReference(*context, name);
  }

  TestPlot plot;

 private:
  std::shared_ptr<PlotView> view_;
};

XAxisArguments horizontal(double lower, double upper) {
  return {.titleOffset = 22.0f,
          .xRange = std::vector{lower, upper},
          .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
          .gridLines = true,
          .noLabels = false,
          .tickMarks = true,
          .timeAxis = false,
          .upperAxis = false,
          .onNewPlotSpace = false,
          .separateLayers = false};
}

XAxisArguments time(double start, double end) {
  XAxisArguments arguments = horizontal(start, end);
  arguments.timeAxis = true;
  return arguments;
}

YAxisArguments<double> vertical(double lower, double upper, const std::string& title) {
  return {.title = title,
          .titleOffset = 40.0f,
          .axisConstraints = CPTConstraints::constraintWithLowerOffset(0),
          .yRange = std::vector{lower, upper},
          .yScale = 1.0,
          .gridLines = true,
          .minorGridLines = false,
          .noLabels = false,
          .tickMarks = true,
          .rightAxis = false};
}

YAxisArguments<double> right(double lower, double upper, const std::string& title) {
  auto arguments = vertical(lower, upper, title);
  arguments.axisConstraints = std::nullopt;
  arguments.gridLines = false;
  arguments.rightAxis = true;
  return arguments;
}

std::shared_ptr<CPTXYPlotSpace> spaceOf(const CPTXYGraph& graph) {
  return std::dynamic_pointer_cast<CPTXYPlotSpace>(graph.defaultPlotSpace());
}

TEST(AxisPictures, OfEveryKindOfTimeAxis) {
  const double midday = kNewYear + 6.5;
  const struct {
    double start, end;
  } rows[] = {
      {kNewYear - 1200, kNewYear + 900},                 // years
      {kNewYear - 40.2, kNewYear + 30},                  // days of two years
      {kNewYear + 99.3, kNewYear + 249.7},               // days, every 20th
      {kNewYear + 10, kNewYear + 15},                    // days
      {midday - 10.2 * kHour, midday + 7.9 * kHour},     // hours, every 2nd
      {midday - 1 * kHour, midday + 17 * kHour},         // hours over midnight
      {midday - 100 * kMinute, midday + 350 * kMinute},  // hours
      {midday - 100 * kMinute, midday - 55 * kMinute},   // every 15th minute
      {midday - 58 * kMinute, midday - 38 * kMinute},    // every 5th minute
      {midday - 58 * kMinute, midday - 55.5 * kMinute},  // no ticks
  };
  for (const auto& [theme, name] : kThemes) {
    Sheet sheet(theme, {400, 54}, std::size(rows), {24, 2, 24, 42});
    for (std::size_t i = 0; i < std::size(rows); ++i) {
      sheet.plot.formatXAxis(sheet.graph(i), time(rows[i].start, rows[i].end));
      sheet.graph(i)->axisSet()->axes()[1]->setHidden(true);
    }
    EXPECT_TRUE(sheet.equalsReference("time-axes-" + name));
  }
}

TEST(AxisPictures, OfAxesOnAllSides) {
  for (const auto& [theme, name] : kThemes) {
    Sheet sheet(theme, {430, 250}, 2, {64, 60, 140, 44});
    auto& plot = sheet.plot;

    const auto linear = sheet.graph(0);
    linear->setTitle("Impacts");
    auto below = horizontal(0, 12.5);
    below.title = "Revolution";
    below.xMajorIntervalLength = 2.5;
    plot.formatXAxis(linear, below);
    auto above = time(kNewYear + 20, kNewYear + 120);
    above.gridLines = false;
    above.upperAxis = true;
    above.onNewPlotSpace = true;
    above.axisConstraints = std::nullopt;
    plot.formatXAxis(linear, above);
    spaceOf(*linear)->setXRange({0, 12.5});
    auto left = vertical(-1, 1, "Charge [fC]");
    left.minorGridLines = true;
    plot.formatYAxis(linear, left);
    plot.formatYAxis(linear, right(-1, 1, "first"));
    auto second = right(-1, 1, "second");
    second.tickLocations = std::set<double>{-0.75, 0, 0.75};
    second.axisLabels = std::vector<std::shared_ptr<CPTAxisLabel>>{};
    for (const double place : {-0.75, 0.0, 0.75}) {
      auto label =
          std::make_shared<CPTAxisLabel>(place < 0   ? "low"
                                         : place > 0 ? "high"
                                                     : "zero",
                                         CPTTextStyle{.color = plot.theme().plotCPTColor()});
      label->setTickLocation(place);
      second.axisLabels->push_back(label);
    }
    plot.formatYAxis(linear, second);

    const auto logarithmic = sheet.graph(1);
    auto decades = horizontal(1, 1e6);
    decades.title = "Frequency [Hz]";
    plot.formatXAxis(logarithmic, decades);
    plot.formatYAxis(logarithmic, vertical(1e-15, 1e-11, "Mass [kg]"));
    plot.formatYAxis(logarithmic, right(1e-15, 1e-11, "Mass [kg]"));
    auto upper = horizontal(1, 1e6);
    upper.title = "A frequency as well, in Hz";
    upper.gridLines = false;
    upper.upperAxis = true;
    upper.axisConstraints = std::nullopt;
    plot.formatXAxis(logarithmic, upper);
    spaceOf(*logarithmic)->setXScaleType(CPTScaleTypeLog);
    spaceOf(*logarithmic)->setYScaleType(CPTScaleTypeLog);

    EXPECT_TRUE(sheet.equalsReference("sides-" + name));
  }
}

TEST(AxisPictures, OfValueAxes) {
  const struct {
    double lower, upper;
    bool logarithmic;
  } columns[] = {
      {0, 1, false},        {0, 0.03, false},  {2451544, 2451545.5, false},
      {-3e9, 5e9, false},   {3, 120, true},    {1, 1e4, true},
      {1e-15, 1e-11, true}, {1e-9, 1e9, true}, {3.2, 3.9, true},
  };
  for (const auto& [theme, name] : kThemes) {
    Sheet sheet(theme, {160, 110}, std::size(columns), {70, 10, 60, 10});
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const auto& [lower, upper, logarithmic] = columns[i];
      sheet.plot.formatYAxis(sheet.graph(i), vertical(lower, upper, "left"));
      sheet.plot.formatYAxis(sheet.graph(i), right(lower, upper, ""));
      sheet.graph(i)->axisSet()->axes()[0]->setHidden(true);
      if (logarithmic) spaceOf(*sheet.graph(i))->setYScaleType(CPTScaleTypeLog);
    }
    EXPECT_TRUE(sheet.equalsReference("value-axes-" + name));
  }
}

}  // namespace
}  // namespace vexel
