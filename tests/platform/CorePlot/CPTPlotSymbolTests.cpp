#include <CorePlot/CPTPlotSymbol.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
using Type = CPTPlotSymbolType;

CPTPlotSymbol symbol(Type type, CGSize size = {20, 10}) {
  CPTPlotSymbol result;
  result.setSymbolType(type);
  result.setSize(size);
  return result;
}

CGPath corner() {
  CGMutablePath path;
  path.move({100, 200});
  path.addLine({104, 200});
  path.addLine({104, 208});
  path.closeSubpath();
  return path;
}

std::string drawn(const CPTPlotSymbol& symbol, std::vector<CGPoint> centers = {{1, 2}, {3, 4}}) {
  CGRecordingContext context;
  symbol.draw(context, centers);
  return context.text();
}

TEST(CPTPlotSymbol, ASizeThatIsNoneDrawsNothing) {
  const CGSize sizes[] = {{kNaN, 5}, {5, kNaN}, {kInfinity, 5}, {5, kInfinity}, {0, 5},    {5, 0},
                          {-5, 5},   {5, -5},   {1e308, 5},     {5, 1e308},     {10001, 5}};
  for (const CGSize size : sizes)
    for (int type = 0; type <= 12; ++type) {
      CPTPlotSymbol hostile = symbol(static_cast<Type>(type), size);
      hostile.setCustomSymbolPath(corner());
      EXPECT_TRUE(hostile.path().isEmpty()) << type << ": " << size.width << " x " << size.height;
      EXPECT_EQ(drawn(hostile), "");
    }
}

TEST(CPTPlotSymbol, AnAnchorThatIsNotFiniteDrawsNothing) {
  for (const double anchor : {kNaN, kInfinity, -kInfinity, 1e308}) {
    CPTPlotSymbol hostile = symbol(Type::rectangle);
    hostile.setAnchorPoint({anchor, 0.5});
    EXPECT_EQ(drawn(hostile), "") << anchor;
  }
}

TEST(CPTPlotSymbol, TinyAndLargeSizesAreDrawn) {
  for (const double side : {1e-300, 1e-9, 1e4})
    EXPECT_FALSE(symbol(Type::star, {side, side}).path().isEmpty()) << side;
}

TEST(CPTPlotSymbol, WithoutCentresOrWithoutAnyStyleNothingIsDrawn) {
  EXPECT_EQ(drawn(symbol(Type::rectangle), {}), "");
  CPTPlotSymbol invisible = symbol(Type::rectangle);
  invisible.setLineStyle(std::nullopt);
  EXPECT_EQ(drawn(invisible), "");
  CPTPlotSymbol lines = invisible;
  lines.setSymbolType(Type::cross);
  lines.setFill(CPTFill(CPTColor::redColor()));
  EXPECT_EQ(drawn(lines), "");
}

TEST(CPTPlotSymbol, ANewSymbolHasNoShapeFivePointsSizeAndABlackLineWithoutFill) {
  const CPTPlotSymbol fresh;
  EXPECT_EQ(CPTPlotSymbol::plotSymbol().symbolType(), Type::none);
  EXPECT_EQ(fresh.symbolType(), Type::none);
  EXPECT_EQ(fresh.size(), (CGSize{5, 5}));
  EXPECT_EQ(fresh.lineStyle(), CPTLineStyle{});
  EXPECT_FALSE(fresh.fill());
  EXPECT_EQ(fresh.anchorPoint(), (CGPoint{0.5, 0.5}));
  EXPECT_FALSE(fresh.customSymbolPath());
  EXPECT_EQ(drawn(fresh), "");
}

TEST(CPTPlotSymbol, EveryConstructorMakesItsType) {
  const CPTPlotSymbol made[] = {CPTPlotSymbol::plotSymbol(),
                                CPTPlotSymbol::rectanglePlotSymbol(),
                                CPTPlotSymbol::ellipsePlotSymbol(),
                                CPTPlotSymbol::diamondPlotSymbol(),
                                CPTPlotSymbol::trianglePlotSymbol(),
                                CPTPlotSymbol::starPlotSymbol(),
                                CPTPlotSymbol::pentagonPlotSymbol(),
                                CPTPlotSymbol::hexagonPlotSymbol(),
                                CPTPlotSymbol::crossPlotSymbol(),
                                CPTPlotSymbol::plusPlotSymbol(),
                                CPTPlotSymbol::dashPlotSymbol(),
                                CPTPlotSymbol::snowPlotSymbol(),
                                CPTPlotSymbol::customPlotSymbol(corner())};
  int number = 0;
  for (const CPTPlotSymbol& one : made) EXPECT_EQ(static_cast<int>(one.symbolType()), number++);
  EXPECT_EQ(made[12].customSymbolPath(), corner());
}

TEST(CPTPlotSymbol, ShapesKeepToTheirBoxAroundTheDataPoint) {
  const double halfRoot3 = std::sqrt(3.0) / 2;
  const double c18 = std::cos(0.1 * std::numbers::pi), s54 = std::sin(0.3 * std::numbers::pi);
  const struct {
    Type type;
    double left, bottom, right, top;
  } rows[] = {
      {Type::rectangle, -10, -5, 10, 5},
      {Type::ellipse, -10, -5, 10, 5},
      {Type::diamond, -10, -5, 10, 5},
      {Type::triangle, -10, -5, 10, 5},
      {Type::star, -10 * c18, -5 * s54, 10 * c18, 5},
      {Type::pentagon, -10 * c18, -5 * s54, 10 * c18, 5},
      {Type::hexagon, -10 * halfRoot3, -5, 10 * halfRoot3, 5},
      {Type::cross, -10, -5, 10, 5},
      {Type::plus, -10, -5, 10, 5},
      {Type::dash, -10, 0, 10, 0},
      {Type::snow, -10 * halfRoot3, -5, 10 * halfRoot3, 5},
  };
  for (const auto& row : rows) {
    const CGRect box = symbol(row.type).path().boundingBox();
    const int type = static_cast<int>(row.type);
    EXPECT_NEAR(box.minX(), row.left, 1e-12) << type;
    EXPECT_NEAR(box.minY(), row.bottom, 1e-12) << type;
    EXPECT_NEAR(box.maxX(), row.right, 1e-12) << type;
    EXPECT_NEAR(box.maxY(), row.top, 1e-12) << type;
  }
}

TEST(CPTPlotSymbol, ShapesHaveTheirCorners) {
  const auto lines = [](Type type) {
    const CGPath path = symbol(type).path();
    std::size_t count = 0;
    for (const CGPathElement& element : path.elements())
      count += element.type == CGPathElement::Type::line;
    return count;
  };
  // The last side of a closed shape is the way back to its first corner.
  EXPECT_EQ(lines(Type::rectangle), 3u);
  EXPECT_EQ(lines(Type::diamond), 3u);
  EXPECT_EQ(lines(Type::triangle), 2u);
  EXPECT_EQ(lines(Type::star), 9u);
  EXPECT_EQ(lines(Type::pentagon), 4u);
  EXPECT_EQ(lines(Type::hexagon), 5u);
  EXPECT_EQ(lines(Type::cross), 2u);
  EXPECT_EQ(lines(Type::plus), 2u);
  EXPECT_EQ(lines(Type::dash), 1u);
  EXPECT_EQ(lines(Type::snow), 3u);
}

TEST(CPTPlotSymbol, TheSidesOfAStarLieOnStraightLines) {
  const CGPath star = symbol(Type::star, {2, 2}).path();
  const auto elements = star.elements();
  // The corners 0 (top), 1, 3 and 4 of the ten are on one line.
  const CGPoint a = elements[0].point, b = elements[1].point, c = elements[3].point,
                d = elements[4].point;
  const auto turn = [](CGPoint p, CGPoint q, CGPoint r) {
    return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
  };
  EXPECT_NEAR(turn(a, d, b), 0, 1e-12);
  EXPECT_NEAR(turn(a, d, c), 0, 1e-12);
}

TEST(CPTPlotSymbol, TheAnchorPointLiesOnTheDataPoint) {
  CPTPlotSymbol anchored = symbol(Type::rectangle);
  anchored.setAnchorPoint({0, 1});
  EXPECT_EQ(anchored.path().boundingBox(), CGRect::make(0, -10, 20, 10));
}

TEST(CPTPlotSymbol, ACustomShapeIsScaledToTheSizeAndCentred) {
  CPTPlotSymbol custom = CPTPlotSymbol::customPlotSymbol(corner());
  custom.setSize({20, 10});
  EXPECT_EQ(custom.path().boundingBox(), CGRect::make(-10, -5, 20, 10));
}

TEST(CPTPlotSymbol, ACustomShapeWithoutWidthOrHeightIsScaledInTheOtherDirectionAlone) {
  CGMutablePath line;
  line.move({3, 0});
  line.addLine({3, 2});
  CPTPlotSymbol custom = CPTPlotSymbol::customPlotSymbol(line);
  custom.setSize({20, 10});
  EXPECT_EQ(custom.path().boundingBox(), CGRect::make(0, -5, 0, 10));
}

TEST(CPTPlotSymbol, ACustomSymbolWithoutPathDrawsNothing) {
  EXPECT_EQ(drawn(symbol(Type::custom)), "");
  EXPECT_EQ(drawn(CPTPlotSymbol::customPlotSymbol(CGPath())), "");
}

TEST(CPTPlotSymbol, ACustomShapeOfNumbersThatAreNotFiniteDrawsNothing) {
  struct Row {
    CGPoint corner, control;
  };
  for (const Row& row : {Row{{kNaN, 0}, {}}, Row{{0, -kInfinity}, {}}, Row{{0, 0}, {kInfinity, 0}},
                         Row{{1.7e308, 0}, {-1.7e308, 0}}, Row{{1e-320, 0}, {1e308, 0}}}) {
    CGMutablePath path;
    path.move({0, 0});
    path.addLine(row.corner);
    path.addCurve({1, 1}, row.control, {2, 1});
    path.closeSubpath();
    const CPTPlotSymbol custom = CPTPlotSymbol::customPlotSymbol(path);
    const CGPath shape = custom.path();
    for (const CGPathElement& element : shape.elements())
      EXPECT_TRUE(std::isfinite(element.point.x) && std::isfinite(element.control2.x));
    if (!std::isfinite(row.corner.x + row.corner.y + row.control.x)) {
      EXPECT_EQ(drawn(custom), "");
    }
  }
}

TEST(CPTPlotSymbol, AllCentresAreDrawnInOneCallInTheirOrder) {
  CPTPlotSymbol filled = symbol(Type::dash);
  EXPECT_EQ(drawn(filled), "symbols stroke #000000 width 1: M -10 0 L 10 0 at 1 2, 3 4\n");
  filled = symbol(Type::rectangle);
  filled.setFill(CPTFill(CPTColor::redColor()));
  EXPECT_EQ(drawn(filled),
            "symbols fill #ff0000 stroke #000000 width 1: M -10 -5 L 10 -5 L 10 5 L -10 5 Z"
            " at 1 2, 3 4\n");
}

TEST(CPTPlotSymbol, LinesAreNotFilled) {
  for (const Type type : {Type::cross, Type::plus, Type::dash, Type::snow}) {
    CPTPlotSymbol lines = symbol(type);
    lines.setFill(CPTFill(CPTColor::redColor()));
    EXPECT_THAT(drawn(lines), testing::Not(testing::HasSubstr("fill")));
  }
}

TEST(CPTPlotSymbol, AnImageFillsEverySymbolByItself) {
  const auto pixel =
      CGImage::create({.width = 1, .height = 1, .bytesPerRow = 4}, std::vector<std::uint8_t>(4));
  CPTPlotSymbol pictured = symbol(Type::rectangle);
  pictured.setFill(CPTFill(CPTImage{.image = pixel}));
  EXPECT_EQ(drawn(pictured, {{7, 8}}),
            "save\n"
            "  transform 1 0 0 1 7 8\n"
            "  save\n"
            "    clip M -10 -5 L 10 -5 L 10 5 L -10 5 Z\n"
            "    image 1 x 1 over -10 -5 20 10\n"
            "  restore\n"
            "  stroke #000000 width 1: M -10 -5 L 10 -5 L 10 5 L -10 5 Z\n"
            "restore\n");
}

TEST(CPTPlotSymbol, ItsReachCoversShapeAndPen) {
  CPTPlotSymbol thick = symbol(Type::rectangle);
  thick.setLineStyle(CPTLineStyle{.lineWidth = 4});
  const CGRect reach = thick.reach();
  EXPECT_LE(reach.minX(), -12);
  EXPECT_GE(reach.maxX(), 12);
  EXPECT_LE(reach.minY(), -7);
  EXPECT_GE(reach.maxY(), 7);
  thick.setLineStyle(std::nullopt);
  EXPECT_EQ(thick.reach(), CGRect::make(-10, -5, 20, 10));
}

TEST(CPTPlotSymbol, TwoAreEqualWhenEveryFieldIs) {
  CPTPlotSymbol other = symbol(Type::star);
  EXPECT_EQ(other, symbol(Type::star));
  other.setFill(CPTFill(CPTColor::redColor()));
  EXPECT_NE(other, symbol(Type::star));
}

}  // namespace
}  // namespace vexel
