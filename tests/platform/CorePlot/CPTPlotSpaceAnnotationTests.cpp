#include <CorePlot/CPTPlotSpaceAnnotation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "platform/CorePlot/Charts.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class CPTPlotSpaceAnnotationTest : public testing::Test {
 protected:
  CPTPlotSpaceAnnotationTest() { measureInPoints(*graph); }

  std::shared_ptr<CPTPlotSpaceAnnotation> annotate(std::vector<double> point) {
    auto annotation = std::make_shared<CPTPlotSpaceAnnotation>(spaceOf(*graph).get(), point);
    auto content = std::make_shared<CPTTextLayer>("");
    content->setPadding(5);
    content->setFill(CPTFill(CPTColor::redColor()));
    annotation->setContentLayer(content);
    area->addAnnotation(annotation);
    return annotation;
  }

  std::vector<std::string> transforms() { return calls(recorded(*graph), {"transform"}); }

  std::shared_ptr<CPTXYGraph> graph = bareGraph();
  std::shared_ptr<CPTPlotArea> area = graph->plotAreaFrame()->plotArea();
};

TEST_F(CPTPlotSpaceAnnotationTest, AnAnchorWithoutAPlaceDrawsNothing) {
  const std::vector<double> anchors[] = {
      {}, {1}, {kNaN, 1}, {1, kNaN}, {kInfinity, 1}, {1e308, 1}, {1, -1e300}};
  for (const auto& anchor : anchors) {
    const auto annotation = annotate(anchor);
    EXPECT_THAT(recorded(*graph), Not(HasSubstr("#ff0000")));
    area->removeAnnotation(*annotation);
  }
}

TEST_F(CPTPlotSpaceAnnotationTest, AnAnchorAtZeroOnALogScaleHasNoPlace) {
  spaceOf(*graph)->setXRange({1, 99});
  spaceOf(*graph)->setXScaleType(CPTScaleType::log);
  EXPECT_EQ(annotate({0, 50})->anchor(), std::nullopt);
  EXPECT_EQ(annotate({10, 50})->anchor(), (CGPoint{50, 50}));
}

TEST_F(CPTPlotSpaceAnnotationTest, ItHasNoPlaceWithoutPlotAreaOrPlotSpace) {
  CPTPlotSpaceAnnotation loose(spaceOf(*graph).get(), {1, 2});
  EXPECT_EQ(loose.anchor(), std::nullopt);
  EXPECT_EQ(loose.plotArea(), nullptr);

  const auto annotation = annotate({1, 2});
  EXPECT_NE(annotation->anchor(), std::nullopt);
  graph->removePlotSpace(*spaceOf(*graph));
  EXPECT_EQ(annotation->plotSpace(), nullptr);
  EXPECT_EQ(annotation->anchor(), std::nullopt);
  EXPECT_THAT(recorded(*graph), Not(HasSubstr("#ff0000")));
}

TEST_F(CPTPlotSpaceAnnotationTest, WithoutContentNothingIsDrawn) {
  const auto annotation = annotate({50, 50});
  annotation->setContentLayer(nullptr);
  EXPECT_THAT(recorded(*graph), Not(HasSubstr("#ff0000")));
}

TEST_F(CPTPlotSpaceAnnotationTest, ItsContentIsCentredOnTheAnchor) {
  annotate({30, 40});
  EXPECT_THAT(recorded(*graph), HasSubstr("transform 1 0 0 1 30 40\n"
                                          "      transform 1 0 0 1 -5 -5\n"
                                          "      fill #ff0000 aligned: 0 0 10 10\n"));
}

TEST_F(CPTPlotSpaceAnnotationTest, TheDisplacementMovesItRightAndUp) {
  annotate({30, 40})->setDisplacement({3, -4});
  EXPECT_THAT(transforms(), testing::Contains("transform 1 0 0 1 33 36"));
}

TEST_F(CPTPlotSpaceAnnotationTest, TheRotationTurnsItAboutItsCentre) {
  annotate({30, 40})->setRotation(std::numbers::pi / 2);
  EXPECT_THAT(recorded(*graph), HasSubstr("transform 1 0 0 1 30 40\n"
                                          "      transform 0 1 -1 0 0 0\n"
                                          "      transform 1 0 0 1 -5 -5\n"));
}

TEST_F(CPTPlotSpaceAnnotationTest, ARotationThatIsNotFiniteCountsAsNone) {
  annotate({30, 40})->setRotation(kNaN);
  EXPECT_THAT(recorded(*graph), HasSubstr("transform 1 0 0 1 30 40\n"
                                          "      transform 1 0 0 1 -5 -5\n"));
}

TEST_F(CPTPlotSpaceAnnotationTest, ItMovesWithTheData) {
  annotate({30, 40});
  spaceOf(*graph)->setXRange({20, 50});
  EXPECT_THAT(transforms(), testing::Contains("transform 1 0 0 1 20 40"));
}

TEST_F(CPTPlotSpaceAnnotationTest, EveryChangeAsksForDisplayOfTheAnnotationsAlone) {
  const auto annotation = annotate({30, 40});
  const auto needsDisplayAfter = [&](const auto& change) {
    recorded(*graph);
    EXPECT_FALSE(area->annotationsNeedDisplay());
    change();
    EXPECT_FALSE(area->needsDisplay());
    return area->annotationsNeedDisplay();
  };
  EXPECT_TRUE(needsDisplayAfter([&] { annotation->setAnchorPlotPoint({1, 2}); }));
  EXPECT_TRUE(needsDisplayAfter([&] { annotation->setDisplacement({1, 2}); }));
  EXPECT_TRUE(needsDisplayAfter([&] { annotation->setRotation(1); }));
  EXPECT_TRUE(needsDisplayAfter([&] { annotation->contentLayer()->setText("new"); }));
  EXPECT_TRUE(needsDisplayAfter(
      [&] { annotation->setContentLayer(std::make_shared<CPTTextLayer>("other")); }));
  EXPECT_TRUE(needsDisplayAfter([&] { annotate({5, 5}); }));
  EXPECT_TRUE(needsDisplayAfter([&] { area->removeAnnotation(*annotation); }));
  EXPECT_TRUE(needsDisplayAfter([&] { spaceOf(*graph)->setYRange({0, 7}); }));
}

TEST_F(CPTPlotSpaceAnnotationTest, RepeatedValuesAskForNoDisplay) {
  const auto annotation = annotate({30, 40});
  recorded(*graph);
  annotation->setAnchorPlotPoint({30, 40});
  annotation->setDisplacement({0, 0});
  annotation->setRotation(0);
  annotation->setContentLayer(annotation->contentLayer());
  EXPECT_FALSE(area->annotationsNeedDisplay());
}

TEST_F(CPTPlotSpaceAnnotationTest, AnAnnotationIsOnOnePlotAreaAtATime) {
  const auto annotation = annotate({1, 2});
  area->addAnnotation(annotation);
  area->addAnnotation(nullptr);
  EXPECT_THAT(area->annotations(), ElementsAre(annotation));

  const auto other = bareGraph();
  other->plotAreaFrame()->plotArea()->addAnnotation(annotation);
  EXPECT_THAT(area->annotations(), IsEmpty());
  EXPECT_EQ(annotation->plotArea(), other->plotAreaFrame()->plotArea().get());
  EXPECT_EQ(annotation->contentLayer()->superlayer(), annotation->plotArea());
}

TEST_F(CPTPlotSpaceAnnotationTest, ARemovedAnnotationKnowsNoPlotAreaAndKeepsItsContent) {
  const auto annotation = annotate({1, 2});
  area->removeAnnotation(*annotation);
  area->removeAnnotation(*annotation);
  EXPECT_EQ(annotation->plotArea(), nullptr);
  ASSERT_NE(annotation->contentLayer(), nullptr);
  EXPECT_EQ(annotation->contentLayer()->superlayer(), nullptr);
}

TEST_F(CPTPlotSpaceAnnotationTest, AnAnnotationThatOnlyThePlotAreaHoldsCanBeRemoved) {
  annotate({1, 2});
  area->removeAnnotation(*area->annotations()[0]);
  EXPECT_THAT(area->annotations(), IsEmpty());
}

TEST_F(CPTPlotSpaceAnnotationTest, AllAnnotationsCanBeRemovedAtOnce) {
  annotate({1, 2});
  annotate({3, 4});
  area->removeAllAnnotations();
  EXPECT_THAT(area->annotations(), IsEmpty());
  EXPECT_THAT(area->sublayers(), IsEmpty());
}

TEST_F(CPTPlotSpaceAnnotationTest, ItOutlivesItsGraph) {
  const auto annotation = annotate({1, 2});
  area.reset();
  graph.reset();
  EXPECT_EQ(annotation->plotArea(), nullptr);
  EXPECT_EQ(annotation->plotSpace(), nullptr);
  annotation->setDisplacement({1, 1});
  EXPECT_EQ(annotation->anchor(), std::nullopt);
}

TEST_F(CPTPlotSpaceAnnotationTest, TheLastAddedLiesOnTop) {
  annotate({10, 10})->contentLayer()->setFill(CPTFill(CPTColor::blueColor()));
  annotate({10, 10});
  const std::string text = recorded(*graph);
  EXPECT_LT(text.find("#0000ff"), text.find("#ff0000"));
}

}  // namespace
}  // namespace vexel
