#include <CorePlot/CPTPlotSpaceAnnotation.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

/// Any double at all, the difficult ones more often.
rc::Gen<double> anyDouble() {
  const double infinity = std::numeric_limits<double>::infinity();
  return rc::gen::weightedOneOf<double>(
      {{3, rc::gen::map(rc::gen::arbitrary<std::uint64_t>(),
                        [](std::uint64_t bits) { return std::bit_cast<double>(bits); })},
       {3, rc::gen::element(0.0, -0.0, 1.0, -1.0, 0.5, 1e-9, 1e9, 2451544.5, 1e15, 1e300, -1e300,
                            1e308, -1e308, 1.7976931348623157e308, 5e-324, -5e-324, 1e-300,
                            std::nan(""), infinity, -infinity)},
       {3, rc::gen::map(rc::gen::inRange(-1000, 1000), [](int n) { return n / 10.0; })}});
}

rc::Gen<std::vector<double>> anyDoubles() {
  return rc::gen::container<std::vector<double>>(anyDouble());
}

template <class T>
T any(std::initializer_list<T> values) {
  return *rc::gen::elementOf(std::vector<T>(values));
}

CPTPlotSymbol anySymbol() {
  CPTPlotSymbol symbol;
  symbol.setSymbolType(static_cast<CPTPlotSymbolType>(*rc::gen::inRange(0, 13)));
  symbol.setSize({*anyDouble(), *anyDouble()});
  return symbol;
}

/// The largest number, without sign, in the recorded calls; infinite when one is not finite.
double largestNumber(const std::string& text) {
  double largest = 0;
  bool inQuotes = false;
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '"') inQuotes = !inQuotes;
    const bool startsWord = !inQuotes && at > 0 && (text[at - 1] == ' ');
    if (!startsWord || (!std::isdigit(static_cast<unsigned char>(c)) && c != '-' && c != 'n' &&
                        c != 'i' && c != '+')) {
      ++at;
      continue;
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), number);
    if (error == std::errc::invalid_argument) {
      ++at;
      continue;
    }
    if (!std::isfinite(number) || error != std::errc{})
      return std::numeric_limits<double>::infinity();
    largest = std::max(largest, std::abs(number));
    at = static_cast<std::size_t>(end - text.data());
  }
  return largest;
}

TEST(HostileChart, TheRulerOfTheseTestsFindsBadNumbers) {
  EXPECT_EQ(largestNumber("stroke #000000 width 1: M 0 -7.5 L 3 4"), 7.5);
  EXPECT_EQ(largestNumber("text \"99 1e300\" Helvetica 12 #000000 at 1 2"), 12);
  EXPECT_TRUE(std::isinf(largestNumber("fill #ff0000: M nan 0")));
  EXPECT_TRUE(std::isinf(largestNumber("fill #ff0000: M 0 inf")));
  EXPECT_TRUE(std::isinf(largestNumber("fill #ff0000: M 0 -inf")));
}

class HostileChart {
 public:
  HostileChart() {
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    graph->setFrame(CGRect::make(*anyDouble(), *anyDouble(), *anyDouble(), *anyDouble()));
    if (*rc::gen::arbitrary<bool>()) graph->setFrame(CGRect::make(0, 0, 400, 300));
    const auto space = spaceOf(*graph);
    space->setXRange({*anyDouble(), *anyDouble()});
    space->setYRange({*anyDouble(), *anyDouble()});
    space->setXScaleType(any({CPTScaleType::linear, CPTScaleType::log}));
    space->setYScaleType(any({CPTScaleType::linear, CPTScaleType::log}));
    dressAxes();
    addPlots();
    for (int i = 0; i < 2; ++i) {
      const auto note = std::make_shared<CPTPlotSpaceAnnotation>(
          space.get(), std::vector<double>{*anyDouble(), *anyDouble()});
      note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
      note->setDisplacement({*anyDouble(), *anyDouble()});
      note->setRotation(*anyDouble());
      graph->plotAreaFrame()->plotArea()->addAnnotation(note);
    }
  }

  const std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>();

 private:
  void dressAxes() {
    using Policy = CPTAxisLabelingPolicy;
    for (const auto& axis : graph->axisSet()->axes()) {
      axis->setLabelingPolicy(any({Policy::none, Policy::locationsProvided, Policy::fixedInterval,
                                   Policy::automatic, Policy::equalDivisions}));
      axis->setMajorIntervalLength(*anyDouble());
      axis->setLabelingOrigin(*anyDouble());
      axis->setMinorTicksPerInterval(*rc::gen::inRange(0, std::numeric_limits<int>::max()));
      axis->setPreferredNumberOfMajorTicks(*rc::gen::arbitrary<int>());
      axis->setMajorTickLocations({*anyDouble(), *anyDouble()});
      axis->setMinorTickLocations({*anyDouble(), *anyDouble()});
      const auto label = std::make_shared<CPTAxisLabel>("label");
      label->setTickLocation(*anyDouble());
      axis->setAxisLabels({label});
      axis->setTitle("title");
      axis->setMajorGridLineStyle(CPTLineStyle{});
      axis->setMinorGridLineStyle(CPTLineStyle{});
      axis->setTickDirection(any({CPTSign::negative, CPTSign::none, CPTSign::positive}));
      if (const auto xyAxis = std::dynamic_pointer_cast<CPTXYAxis>(axis))
        xyAxis->setOrthogonalPosition(*anyDouble());
    }
  }

  void addPlots() {
    const auto scatter = addScatter(*graph, scatterSource_);
    scatterSource_.inBulk = *rc::gen::arbitrary<bool>();
    scatterSource_.fields = {*anyDoubles(), *anyDoubles()};
    scatterSource_.records =
        std::min(scatterSource_.fields[0].size(), scatterSource_.fields[1].size());
    scatterSource_.recordSymbols = {anySymbol(), std::nullopt};
    scatter->setPlotSymbol(anySymbol());
    scatter->setInterpolation(
        any({CPTScatterPlotInterpolation::linear, CPTScatterPlotInterpolation::stepped,
             CPTScatterPlotInterpolation::histogram}));
    scatter->setDataLineStyle(CPTLineStyle{.lineWidth = any({0.5, 1.0, 7.0})});
    scatter->setLabelFormatter(graph->axisSet()->axes()[0]->labelFormatter());

    const auto bars = addBars(*graph, barSource_);
    barSource_.fields = {*anyDoubles(), *anyDoubles(), *anyDoubles()};
    bars->setBarBasesVary(*rc::gen::arbitrary<bool>());
    bars->setBarsAreHorizontal(*rc::gen::arbitrary<bool>());
    bars->setBarWidthsAreInViewCoordinates(*rc::gen::arbitrary<bool>());
    bars->setBarWidth(*anyDouble());
    bars->setBarOffset(*anyDouble());
    bars->setBaseValue(*anyDouble());
    bars->setBarCornerRadius(*anyDouble());
    bars->setLabelFormatter(scatter->labelFormatter());
  }

  ListSource scatterSource_{{}};
  ListSource barSource_{{}};
};

RC_GTEST_PROP(HostileChart, WhateverTheNumbersADrawingIsShortAndItsCoordinatesAreSane, ()) {
  HostileChart chart;
  const auto start = std::chrono::steady_clock::now();
  const std::string text = recorded(*chart.graph);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  RC_ASSERT(took.count() < 10);
  RC_ASSERT(std::count(text.begin(), text.end(), ' ') < 600'000);
  const CGSize size = chart.graph->bounds().size;
  // Beside the chart itself, text and symbols may be 10000 points large, and annotations as far
  // away as somebody may look for them.
  const double sane = std::max(size.width, size.height) + 1e6 + 2e4;
  RC_ASSERT(largestNumber(text) <= sane);
}

RC_GTEST_PROP(HostileChart, WhateverTheNumbersTheKeptPictureEqualsAFreshDrawing, ()) {
  HostileChart chart;
  chart.graph->setFrame(CGRect::make(0, 0, 120, 90));
  const double scale = any({1.0, 2.0});
  const auto first = drawn(*chart.graph, scale);
  RC_ASSERT(drawn(*chart.graph, scale) == first);
  RC_ASSERT(drawn(*chart.graph, scale) == first);
}

}  // namespace
}  // namespace vexel
