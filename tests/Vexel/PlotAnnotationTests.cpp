#include <Vexel/PlotAnnotation.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace vexel {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Alignment = PlotAnnotation::Alignment;
using Coordinates = PlotAnnotation::Coordinates;

class PlotSpaceWithoutCoordinates : public CPTPlotSpace {
 public:
  std::optional<CGPoint> plotAreaViewPoint(double, double, CGSize) const override {
    return std::nullopt;
  }
};

PlotAnnotation::Arguments arguments() {
  return {.location = std::vector<double>{0.25, 0.5},
          .coordinates = Coordinates::data,
          .color = NSColor::redColor(),
          .fontSize = 9,
          .label = "Stream",
          .alignment = Alignment::bottom};
}

class PlotAnnotationTest : public testing::Test {
 protected:
  CPTXYPlotSpace& space() { return dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()); }
  CPTPlotArea& area() { return *graph->plotAreaFrame()->plotArea(); }
  CPTPlotSpaceAnnotation& placed(std::size_t index = 0) {
    return dynamic_cast<CPTPlotSpaceAnnotation&>(*area().annotations().at(index));
  }
  std::size_t count() { return area().annotations().size(); }

  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 300, 200));
};

using PlotAnnotationDeathTest = PlotAnnotationTest;

TEST_F(PlotAnnotationTest, HasItsCasesInOrder) {
  EXPECT_EQ(static_cast<int>(Alignment::top), 0);
  EXPECT_EQ(static_cast<int>(Alignment::bottom), 1);
  EXPECT_EQ(static_cast<int>(Alignment::left), 2);
  EXPECT_EQ(static_cast<int>(Alignment::right), 3);
  EXPECT_EQ(static_cast<int>(Coordinates::data), 0);
  EXPECT_EQ(static_cast<int>(Coordinates::normal), 1);
}

TEST_F(PlotAnnotationTest, KeepsItsPropertiesAndLetsThemBeChanged) {
  PlotAnnotation note(arguments());
  EXPECT_THAT(note.location(), ElementsAre(0.25, 0.5));
  EXPECT_EQ(note.coordinates(), Coordinates::data);
  EXPECT_EQ(note.color(), NSColor::redColor());
  EXPECT_EQ(note.fontSize(), 9.0f);
  EXPECT_EQ(note.label(), "Stream");
  EXPECT_EQ(note.attributedLabel(), std::nullopt);
  EXPECT_EQ(note.alignment(), Alignment::bottom);
  note.setLocation({1, 2});
  note.setCoordinates(Coordinates::normal);
  note.setColor(NSColor::blueColor());
  note.setFontSize(20);
  note.setLabel(std::nullopt);
  note.setAttributedLabel(NSAttributedString("b"));
  note.setAlignment(Alignment::right);
  EXPECT_THAT(note.location(), ElementsAre(1, 2));
  EXPECT_EQ(note.coordinates(), Coordinates::normal);
  EXPECT_EQ(note.color(), NSColor::blueColor());
  EXPECT_EQ(note.fontSize(), 20.0f);
  EXPECT_EQ(note.label(), std::nullopt);
  EXPECT_EQ(note.attributedLabel(), NSAttributedString("b"));
  EXPECT_EQ(note.alignment(), Alignment::right);
}

TEST_F(PlotAnnotationTest, PlacesAPlainLabelInItsStyle) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  ASSERT_EQ(count(), 1u);
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(0.25, 0.5));
  EXPECT_EQ(placed().plotSpace(), &space());
  const CPTTextLayer& text = *placed().contentLayer();
  CPTTextStyle expected;
  expected.color = CPTColor::redColor();
  expected.fontSize = 9;
  expected.textAlignment = CPTTextAlignment::center;
  EXPECT_EQ(text.text(), "Stream");
  EXPECT_EQ(text.textStyle(), expected);
  EXPECT_EQ(text.fill(), std::nullopt);
  for (const CGFloat padding :
       {text.paddingLeft(), text.paddingTop(), text.paddingRight(), text.paddingBottom()})
    EXPECT_EQ(padding, 2);
}

TEST_F(PlotAnnotationTest, PlacesAnAttributedLabelOnlyWithoutAPlainOne) {
  NSAttributedString styled("m", {.fontName = "Times", .fontSize = 15, .bold = true});
  styled.append("2", {.fontSize = 15, .italic = true, .superscript = 1});
  auto both = arguments();
  both.attributedLabel = styled;
  PlotAnnotation note(both);
  note.annotate(graph);
  EXPECT_EQ(placed().contentLayer()->attributedText(), std::nullopt);
  note.setLabel(std::nullopt);
  note.annotate(graph);
  EXPECT_EQ(placed(1).contentLayer()->attributedText(), styled);
  EXPECT_EQ(placed(1).contentLayer()->paddingTop(), 2);
}

TEST_F(PlotAnnotationTest, IsDisplacedByItsAlignment) {
  const struct {
    Alignment alignment;
    double x, y;
  } cases[] = {{Alignment::top, 0.5, -0.5},
               {Alignment::bottom, 0.5, 0.5},
               {Alignment::left, 0.5, 0.5},
               {Alignment::right, -0.5, 0.5}};
  for (const auto& c : cases) {
    PlotAnnotation note(arguments());
    note.setAlignment(c.alignment);
    note.annotate(graph);
    auto& annotation = placed(count() - 1);
    const CGSize size = annotation.contentLayer()->frame().size;
    EXPECT_GT(size.width, 20);
    EXPECT_GT(size.height, 8);
    EXPECT_EQ(annotation.displacement(), (CGPoint{c.x * size.width, c.y * size.height}));
  }
}

TEST_F(PlotAnnotationTest, ReadsNormalisedLocationsOnLinearRanges) {
  space().setXRange({0, 10});
  space().setYRange({100, 100});
  PlotAnnotation note(arguments());
  note.setCoordinates(Coordinates::normal);
  note.setLocation({0.5, 0.5});
  note.annotate(graph);
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(5, 150));
  space().setXRange({10, -10});
  note.setLocation({-0.5, 2, 99});
  note.updateLocation();
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(15, 300));
}

TEST_F(PlotAnnotationTest, ReadsNormalisedLocationsByDecadesOnLogarithmicRanges) {
  space().setXRange({1, 999});
  space().setXScaleType(CPTScaleTypeLog);
  space().setYRange({2, 6});
  PlotAnnotation note(arguments());
  note.setCoordinates(Coordinates::normal);
  note.setLocation({0.5, 0.5});
  note.annotate(graph);
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(DoubleNear(31.6227766, 1e-7), 5));
  space().setYScaleType(CPTScaleTypeLog);
  space().setXScaleType(CPTScaleTypeLinear);
  note.updateLocation();
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(500.5, DoubleNear(4, 1e-12)));
  space().setYRange({-1, 1});
  note.updateLocation();
  EXPECT_TRUE(std::isnan(placed().anchorPlotPoint()[1]));
}

TEST_F(PlotAnnotationTest, DoesNothingWithoutGraphTextOrXYPlotSpace) {
  PlotAnnotation note(arguments());
  note.annotate(nullptr);
  note.setLabel(std::nullopt);
  note.annotate(graph);
  EXPECT_EQ(count(), 0u);
  note.setLabel("a");
  graph->removePlotSpace(space());
  for (const Coordinates coordinates : {Coordinates::data, Coordinates::normal}) {
    note.setCoordinates(coordinates);
    note.annotate(graph);
    graph->addPlotSpace(std::make_shared<PlotSpaceWithoutCoordinates>());
    note.annotate(graph);
  }
  EXPECT_EQ(count(), 0u);
  note.update("b");
  note.updateLocation();
}

TEST_F(PlotAnnotationTest, AnEmptyLabelIsALabel) {
  PlotAnnotation note(arguments());
  note.setLabel("");
  note.annotate(graph);
  EXPECT_EQ(count(), 1u);
}

TEST_F(PlotAnnotationTest, IsRememberedEvenWithoutAPlotArea) {
  PlotAnnotation note(arguments());
  const auto frame = graph->plotAreaFrame();
  graph->setPlotAreaFrame(nullptr);
  note.annotate(graph);
  graph->setPlotAreaFrame(frame);
  note.update("later");
  EXPECT_EQ(count(), 0u);
  note.remove(graph);
  ASSERT_EQ(count(), 1u);
  EXPECT_EQ(placed().contentLayer()->text(), "later");
}

TEST_F(PlotAnnotationTest, ForgetsAnEarlierLabelWithoutRemovingIt) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  note.annotate(graph);
  ASSERT_EQ(count(), 2u);
  note.update("second");
  EXPECT_EQ(placed(0).contentLayer()->text(), "Stream");
  EXPECT_EQ(placed(1).contentLayer()->text(), "second");
}

TEST_F(PlotAnnotationTest, UpdatesTheTextOfTheLabelAndNothingElse) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  const CGPoint displacement = placed().displacement();
  note.update("a much longer text");
  EXPECT_EQ(placed().contentLayer()->text(), "a much longer text");
  note.update(NSAttributedString("styled"));
  EXPECT_EQ(placed().contentLayer()->attributedText(), NSAttributedString("styled"));
  EXPECT_EQ(note.label(), "Stream");
  EXPECT_EQ(note.attributedLabel(), std::nullopt);
  EXPECT_EQ(placed().displacement(), displacement);
}

TEST_F(PlotAnnotationTest, StaysOnTheGraphWhenRemovedButIsNoLongerUpdated) {
  PlotAnnotation note(arguments());
  note.remove(graph);
  note.annotate(graph);
  note.remove(graph);
  EXPECT_EQ(count(), 1u);
  note.update("gone");
  note.update(NSAttributedString("gone"));
  note.setLocation({0, 0});
  note.updateLocation();
  EXPECT_EQ(placed().contentLayer()->text(), "Stream");
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(0.25, 0.5));
}

TEST_F(PlotAnnotationTest, PutsALabelBackThatSomebodyTookOff) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  area().removeAllAnnotations();
  note.remove(graph);
  EXPECT_EQ(count(), 1u);
}

TEST_F(PlotAnnotationTest, ForgetsItsLabelAlsoWithoutAGraph) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  note.remove(nullptr);
  note.update("gone");
  EXPECT_EQ(placed().contentLayer()->text(), "Stream");
  note.annotate(graph);
  graph->setPlotAreaFrame(nullptr);
  note.remove(graph);
}

TEST_F(PlotAnnotationTest, MovesWithUpdateLocation) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  note.setLocation({3, 4});
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(0.25, 0.5));
  note.updateLocation();
  EXPECT_THAT(placed().anchorPlotPoint(), ElementsAre(3, 4));
}

TEST_F(PlotAnnotationTest, HoldsItsGraphWeakly) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  const std::weak_ptr<CPTXYGraph> weak = graph;
  graph.reset();
  EXPECT_TRUE(weak.expired());
  note.updateLocation();
  note.update("still held");
  note.remove(nullptr);
}

TEST_F(PlotAnnotationTest, IsDrawnWhereItsAnchorIs) {
  graph->setPadding(0);
  PlotAnnotation note(arguments());
  note.annotate(graph);
  EXPECT_EQ(placed().anchor(), (CGPoint{75, 100}));
  space().setXRange({0, 0.5});
  EXPECT_EQ(placed().anchor(), (CGPoint{150, 100}));
}

TEST_F(PlotAnnotationDeathTest, NeedsTwoNumbersOfALocation) {
  PlotAnnotation note(arguments());
  note.annotate(graph);
  for (const Coordinates coordinates : {Coordinates::data, Coordinates::normal})
    for (const std::vector<double>& location : {std::vector<double>{}, {1}}) {
      note.setCoordinates(coordinates);
      note.setLocation(location);
      EXPECT_DEATH(note.annotate(graph), "Fatal error: .*two numbers");
      EXPECT_DEATH(note.updateLocation(), "Fatal error: .*two numbers");
      note.annotate(nullptr);
    }
}

}  // namespace
}  // namespace vexel
