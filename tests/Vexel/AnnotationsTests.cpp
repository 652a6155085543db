#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;

class PlotSpaceWithoutCoordinates : public CPTPlotSpace {
 public:
  std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override {
    return std::nullopt;
  }
};

class AnimatedGraph : public CPTXYGraph {
 public:
  using CPTXYGraph::CPTXYGraph;
  void removeAllAnimations() override { ++removals; }
  int removals = 0;
};

class Annotations : public testing::Test {
 protected:
  Annotations() { plot.initPlot(nullptr, PlotTheme::white); }

  CPTXYPlotSpace& space() { return dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()); }
  const auto& all() { return graph->plotAreaFrame()->plotArea()->annotations(); }
  CPTPlotSpaceAnnotation& last() { return dynamic_cast<CPTPlotSpaceAnnotation&>(*all().back()); }
  AnnotationArguments plain() {
    return {.graph = graph, .anchorPlotPoint = std::vector<float>{0.1f, 0.5f}, .fontSize = 9};
  }
  AttributedAnnotationArguments attributed() {
    return {.graph = graph, .anchorPlotPoint = std::vector<float>{0.1f, 0.5f}};
  }

  TestPlot plot;
  std::shared_ptr<AnimatedGraph> graph =
      std::make_shared<AnimatedGraph>(CGRect::make(0, 0, 300, 200));
  const NSAttributedString styled{"styled", {.bold = true}};
};

using AnnotationsDeathTest = Annotations;

TEST_F(Annotations, PlaceAPlainTextWithItsLowerLeftCornerAtTheAnchor) {
  plot.addAnnotation("dust", plain());
  const CPTTextLayer& text = *last().contentLayer();
  CPTTextStyle expected;
  expected.fontSize = 9;
  expected.textAlignment = CPTTextAlignment::center;
  EXPECT_EQ(text.text(), "dust");
  EXPECT_EQ(text.textStyle(), expected);
  EXPECT_EQ(text.fill(), std::nullopt);
  for (const CGFloat padding :
       {text.paddingLeft(), text.paddingTop(), text.paddingRight(), text.paddingBottom()})
    EXPECT_EQ(padding, 2);
  EXPECT_EQ(last().displacement(),
            (CGPoint{0.5 * text.frame().size.width, 0.5 * text.frame().size.height}));
  EXPECT_EQ(last().plotSpace(), graph->defaultPlotSpace().get());
}

TEST_F(Annotations, PlaceAnAttributedTextAsItIs) {
  plot.theme() = PlotTheme::black;
  plot.addAnnotation(styled, attributed());
  const CPTTextLayer& text = *last().contentLayer();
  EXPECT_EQ(text.attributedText(), styled);
  EXPECT_EQ(text.textStyle(), CPTTextStyle());
  EXPECT_EQ(text.paddingRight(), 2);
  EXPECT_EQ(last().displacement(),
            (CGPoint{0.5 * text.frame().size.width, 0.5 * text.frame().size.height}));
}

TEST_F(Annotations, TakeTheFirstColourGiven) {
  auto arguments = plain();
  const auto color = [&] {
    plot.addAnnotation("dust", arguments);
    return last().contentLayer()->textStyle()->color;
  };
  arguments.color = "green";
  plot.theme() = PlotTheme::black;
  EXPECT_EQ(color(), CPTColor::whiteColor());
  plot.theme() = PlotTheme::white;
  EXPECT_EQ(color(), CPTColor::blackColor());
  plot.theme() = PlotTheme::print;
  EXPECT_EQ(color(), CPTColor::blackColor());
  plot.theme() = static_cast<PlotTheme::Case>(7);
  arguments.nsColor = NSColor::colorWithRed(0.1, 0.2, 0.3, 0.4);
  EXPECT_EQ(color(), CPTColor::colorWithComponents(0.1, 0.2, 0.3, 0.4));
  arguments.cptcolor = CPTColor::redColor();
  EXPECT_EQ(color(), CPTColor::redColor());
}

TEST_F(AnnotationsDeathTest, NeedAThemeOnlyForItsColour) {
  plot.theme() = static_cast<PlotTheme::Case>(7);
  plot.addAnnotation(styled, attributed());
  EXPECT_DEATH(plot.addAnnotation("dust", plain()), "Fatal error: PlotTheme");
}

TEST_F(Annotations, TakeTheFontThatIsGiven) {
  auto arguments = plain();
  arguments.fontName = "Times";
  plot.addAnnotation("dust", arguments);
  EXPECT_EQ(last().contentLayer()->textStyle()->fontName, "Times");
}

TEST_F(Annotations, StandAtAPlotPointOfSinglePrecision) {
  auto arguments = plain();
  arguments.anchorPointNormal = std::vector<double>{0.9, 0.9};
  plot.addAnnotation("dust", arguments);
  EXPECT_THAT(last().anchorPlotPoint(), ElementsAre(static_cast<double>(0.1f), 0.5));
  arguments.anchorPlotPoint = std::vector<float>{1, 2, 3};
  plot.addAnnotation("dust", arguments);
  EXPECT_THAT(last().anchorPlotPoint(), ElementsAre(1, 2));
}

TEST_F(Annotations, StandAtFractionsOfTheRanges) {
  space().setXRange({1, 999});
  space().setXScaleType(CPTScaleTypeLog);
  space().setYRange({100, 100});
  auto arguments = plain();
  arguments.anchorPlotPoint = std::nullopt;
  arguments.anchorPointNormal = std::vector<double>{0.5, 0.1};
  plot.addAnnotation("dust", arguments);
  EXPECT_THAT(last().anchorPlotPoint(), ElementsAre(DoubleNear(31.6227766, 1e-7), 110));
  plot.addAnnotation(styled, {.graph = graph, .anchorPointNormal = std::vector<double>{0.5, 0.1}});
  EXPECT_THAT(last().anchorPlotPoint(), ElementsAre(DoubleNear(31.6227766, 1e-7), 110));
}

TEST_F(Annotations, AreNotPlacedWithoutGraphAnchorOrXYPlotSpace) {
  auto nowhere = plain();
  nowhere.graph = std::shared_ptr<CPTXYGraph>();
  plot.addAnnotation("dust", nowhere);
  plot.addAnnotation(styled, {.graph = std::shared_ptr<CPTXYGraph>()});
  EXPECT_EQ(graph->removals, 0);
  plot.addAnnotation("dust", {.graph = graph, .fontSize = 9});
  plot.addAnnotation(styled, {.graph = graph});
  graph->removePlotSpace(space());
  for (int i = 0; i < 2; ++i) {
    plot.addAnnotation("dust", plain());
    plot.addAnnotation(styled, attributed());
    graph->addPlotSpace(std::make_shared<PlotSpaceWithoutCoordinates>());
  }
  EXPECT_EQ(all().size(), 0u);
}

TEST_F(Annotations, EndTheAnimationsOfTheGraphFirst) {
  graph->removePlotSpace(space());
  plot.addAnnotation("dust", plain());
  EXPECT_EQ(graph->removals, 1);
  plot.addAnnotation(styled, attributed());
  EXPECT_EQ(graph->removals, 2);
}

TEST_F(Annotations, DoNoHarmWithoutAPlotArea) {
  graph->plotAreaFrame()->setPlotArea(nullptr);
  plot.addAnnotation("dust", plain());
  graph->setPlotAreaFrame(nullptr);
  plot.addAnnotation(styled, attributed());
}

TEST_F(AnnotationsDeathTest, NeedTwoNumbersOfAnAnchor) {
  for (const std::size_t count : {0u, 1u}) {
    auto atPoint = plain();
    atPoint.anchorPlotPoint = std::vector<float>(count);
    auto atFractions = plain();
    atFractions.anchorPlotPoint = std::nullopt;
    atFractions.anchorPointNormal = std::vector<double>(count);
    EXPECT_DEATH(plot.addAnnotation("dust", atPoint), "Fatal error: .*two numbers");
    EXPECT_DEATH(plot.addAnnotation("dust", atFractions), "Fatal error: .*two numbers");
    EXPECT_DEATH(
        plot.addAnnotation(styled, {.graph = graph, .anchorPlotPoint = std::vector<float>(count)}),
        "Fatal error: .*two numbers");
    EXPECT_DEATH(plot.addAnnotation(
                     styled, {.graph = graph, .anchorPointNormal = std::vector<double>(count)}),
                 "Fatal error: .*two numbers");
  }
}

}  // namespace
}  // namespace vexel
