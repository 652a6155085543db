#include <CorePlot/CPTDefinitions.h>
#include <CorePlot/CPTPlotDataSource.h>

#include <gtest/gtest.h>

namespace vexel {
namespace {

TEST(CPTDefinitions, TheEnumerationsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(CPTAxisLabelingPolicy::none), 0);
  EXPECT_EQ(static_cast<int>(CPTAxisLabelingPolicy::locationsProvided), 1);
  EXPECT_EQ(static_cast<int>(CPTAxisLabelingPolicy::fixedInterval), 2);
  EXPECT_EQ(static_cast<int>(CPTAxisLabelingPolicy::automatic), 3);
  EXPECT_EQ(static_cast<int>(CPTAxisLabelingPolicy::equalDivisions), 4);
  EXPECT_EQ(static_cast<int>(CPTCoordinate::X), 0);
  EXPECT_EQ(static_cast<int>(CPTCoordinate::Y), 1);
  EXPECT_EQ(static_cast<int>(CPTScaleTypeLinear), 0);
  EXPECT_EQ(static_cast<int>(CPTScaleTypeLog), 1);
  EXPECT_EQ(static_cast<int>(CPTSign::negative), -1);
  EXPECT_EQ(static_cast<int>(CPTSign::none), 0);
  EXPECT_EQ(static_cast<int>(CPTSign::positive), 1);
}

TEST(CPTDefinitions, TheSymbolTypesAreNumberedInOrder) {
  using Type = CPTPlotSymbolType;
  int number = 0;
  for (const Type type : {Type::none, Type::rectangle, Type::ellipse, Type::diamond, Type::triangle,
                          Type::star, Type::pentagon, Type::hexagon, Type::cross, Type::plus,
                          Type::dash, Type::snow, Type::custom})
    EXPECT_EQ(static_cast<int>(type), number++);
}

}  // namespace
}  // namespace vexel
