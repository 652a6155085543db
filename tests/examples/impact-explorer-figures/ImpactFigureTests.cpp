#include "ImpactFigure.h"

#include <CoreGraphics/CGNullContext.h>
#include <CorePlot/CPTDump.h>
#include <Vexel/PlotView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace explorer {
namespace {

using testing::HasSubstr;
using testing::Not;

Band counts() {
  return makeBand("Impacts per 5 days", BandStyle::bars, {2459000, 2459005, 2459010}, {3, 480, 17});
}

std::vector<std::string> graphsOf(const std::vector<Band>& bands) {
  const auto view = std::make_shared<vexel::PlotView>(vexel::CGRect::make(0, 0, 800, 500));
  const auto figure = vexel::makePlot<ImpactFigure>(view, vexel::PlotTheme::white, bands);
  vexel::CGNullContext context;
  view->display(context);
  std::vector<std::string> texts;
  for (const auto& graph : figure->graphs()) texts.push_back(vexel::dump(*graph));
  return texts;
}

std::string lineOf(const std::string& text, const std::string& start) {
  const auto at = text.find(start);
  return text.substr(at, text.find('\n', at) - at);
}

TEST(ImpactFigure, ReadsABandInItsOtherUnitOnTheRight) {
  Band band = counts();
  band.otherUnit = {.title = "Impacts per day", .size = 5};
  const auto graphs = graphsOf({band, counts()});
  EXPECT_THAT(graphs[0], HasSubstr("labels \"0\" \"100\" \"200\" \"300\" \"400\" \"500\"\n"));
  const auto right = graphs[0].substr(graphs[0].find("axis Y \"Impacts per day\""));
  EXPECT_THAT(right, HasSubstr("major 0 100 200 300 400 500\n"));
  EXPECT_THAT(right, HasSubstr("labels \"0\" \"20\" \"40\" \"60\" \"80\" \"100\"\n"));
}

struct Resized {
  std::size_t bands;
  double height;
  std::vector<double> heights;
};

TEST(ImpactFigure, LetsItsPlotAreasGrowAlikeWhenItIsTheDelegateOfItsView) {
  // 44 points below the lowest band and 10 above the highest of several do not grow.
  const Resized cases[] = {
      {1, 954, {944}},        {2, 954, {494, 460}},      {3, 954, {344, 300, 310}},
      {3, 204, {94, 50, 60}}, {3, 654, {244, 200, 210}},
  };
  for (const auto& [count, height, heights] : cases) {
    const auto view = std::make_shared<vexel::PlotView>(vexel::CGRect::make(0, 0, 800, 500));
    const auto figure = vexel::makePlot<ImpactFigure>(view, vexel::PlotTheme::white,
                                                      std::vector<Band>(count, counts()));
    view->setDelegate(figure.get());
    for (const double passing : {700.0, 0.0, 30.0, height}) view->setFrameSize({1000, passing});
    view->layoutSubtreeIfNeeded();
    double bottom = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const vexel::CGRect frame = figure->hostingViews()[i]->frame();
      EXPECT_NEAR(frame.minY(), bottom, 1e-6) << count << ' ' << height << ' ' << i;
      EXPECT_NEAR(frame.size.height, heights[i], 1e-6) << count << ' ' << height << ' ' << i;
      EXPECT_NEAR(frame.size.width, 1000, 1e-6);
      bottom += heights[i];
    }
  }
}

TEST(ImpactFigure, KeepsBandsBelowEachOtherBesideARightAxis) {
  Band band = counts();
  band.otherUnit = {.title = "Impacts per day", .size = 5};
  const auto widthOf = [](const std::string& graph) {
    const std::string area = lineOf(graph, "  area ");
    return area.substr(area.find(')'), area.find(" x ") - area.find(')'));
  };
  const auto both = graphsOf({band, counts()});
  const auto plain = graphsOf({counts(), counts()});
  EXPECT_EQ(widthOf(both[0]), widthOf(both[1]));
  EXPECT_EQ(widthOf(plain[0]), widthOf(plain[1]));
  EXPECT_NE(widthOf(both[0]), widthOf(plain[0]));
  EXPECT_THAT(both[1], Not(HasSubstr("per day")));
}

TEST(ImpactFigure, WritesFractionsOfTheOtherUnit) {
  Band band = makeBand("Impacts per 5 days", BandStyle::bars, {2459000, 2459005}, {0, 4});
  band.otherUnit = {.title = "Impacts per day", .size = 5};
  EXPECT_THAT(graphsOf({band})[0], HasSubstr("labels \"0\" \"0.2\" \"0.4\" \"0.6\" \"0.8\"\n"));
}

}  // namespace
}  // namespace explorer
