#include <CorePlot/CPTPlotSpaceAnnotation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

using testing::ElementsAreArray;

CPTLineStyle colored(double gray) {
  return {.lineColor = CPTColor::colorWithGenericGray(gray)};
}

/// What was drawn, each part known by the colour of its own, in the order of its first call.
std::vector<std::string> partsInOrder(
    const std::string& text, const std::vector<std::pair<std::string, std::string>>& names) {
  std::vector<std::string> order;
  for (const std::string& call : calls(text, {"fill", "stroke", "text"}))
    for (const auto& [color, name] : names)
      if (call.find(color) != std::string::npos && (order.empty() || order.back() != name))
        order.push_back(name);
  return order;
}

TEST(DrawingOrder, BackToFront) {
  const auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 400, 300));
  graph->setFill(CPTFill(CPTColor::colorWithGenericGray(0x01 / 255.0)));
  graph->setTitle("title");
  graph->setTitleTextStyle({.color = CPTColor::colorWithGenericGray(0x0c / 255.0)});
  const auto frame = graph->plotAreaFrame();
  frame->setFill(CPTFill(CPTColor::colorWithGenericGray(0x02 / 255.0)));
  frame->setBorderLineStyle(colored(0x06 / 255.0));
  frame->plotArea()->setFill(CPTFill(CPTColor::colorWithGenericGray(0x03 / 255.0)));
  for (const auto& axis : graph->axisSet()->axes()) {
    axis->setMinorGridLineStyle(colored(0x04 / 255.0));
    axis->setMajorGridLineStyle(colored(0x05 / 255.0));
    axis->setAxisLineStyle(colored(0x07 / 255.0));
    axis->setMajorTickLineStyle(colored(0x07 / 255.0));
    axis->setMinorTickLineStyle(colored(0x07 / 255.0));
    axis->setLabelTextStyle(CPTTextStyle{.color = CPTColor::colorWithGenericGray(0x0a / 255.0)});
    axis->setTitleTextStyle(CPTTextStyle{.color = CPTColor::colorWithGenericGray(0x0b / 255.0)});
    axis->setTitle("axis");
    axis->setSeparateLayers(axis->coordinate() == CPTCoordinate::Y);
  }
  ListSource source({{0, 1}, {0, 1}});
  addScatter(*graph, source)->setDataLineStyle(colored(0x08 / 255.0));
  addScatter(*graph, source)->setDataLineStyle(colored(0x09 / 255.0));
  const auto annotation = std::make_shared<CPTPlotSpaceAnnotation>(spaceOf(*graph).get(),
                                                                   std::vector<double>{0.5, 0.5});
  annotation->setContentLayer(std::make_shared<CPTTextLayer>(
      "note", CPTTextStyle{.color = CPTColor::colorWithGenericGray(0x0d / 255.0)}));
  frame->plotArea()->addAnnotation(annotation);

  const std::vector<std::pair<std::string, std::string>> names{
      {"#010101", "graph fill"},      {"#020202", "frame fill"},  {"#030303", "plot area fill"},
      {"#040404", "minor grid"},      {"#050505", "major grid"},  {"#060606", "frame border"},
      {"#070707", "lines and ticks"}, {"#080808", "first plot"},  {"#090909", "second plot"},
      {"#0a0a0a", "axis labels"},     {"#0b0b0b", "axis titles"}, {"#0c0c0c", "graph title"},
      {"#0d0d0d", "annotation"}};
  std::vector<std::string> expected;
  for (const auto& name : names) expected.push_back(name.second);
  EXPECT_THAT(partsInOrder(recorded(*graph), names), ElementsAreArray(expected));
}

}  // namespace
}  // namespace vexel
