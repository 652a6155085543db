#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Notes which part of the state is asked for, and which parts had been reset by then.
class WatchedPlot : public TestPlot {
 public:
  std::shared_ptr<NSView>& plotView() override { return note("plotView"), TestPlot::plotView(); }
  std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() override {
    return note("hostingViews"), TestPlot::hostingViews();
  }
  std::vector<std::shared_ptr<CPTXYGraph>>& graphs() override {
    return note("graphs"), TestPlot::graphs();
  }
  ViewConstraints& viewConstraints() override {
    return note("viewConstraints"), TestPlot::viewConstraints();
  }
  PlotTheme& theme() override { return note("theme"), TestPlot::theme(); }
  std::string& auxiliaryText() override { return note("auxiliaryText"), TestPlot::auxiliaryText(); }
  std::vector<double>& auxiliaryValues() override {
    return note("auxiliaryValues"), TestPlot::auxiliaryValues();
  }
  double& xUnitScale() override { return note("xUnitScale"), TestPlot::xUnitScale(); }
  double& yUnitScale() override { return note("yUnitScale"), TestPlot::yUnitScale(); }

  void setupPlot() override { note("setupPlot"); }

  std::vector<std::string> steps;

 private:
  void note(const std::string& step) { steps.push_back(step + resetParts()); }

  std::string resetParts() {
    std::string parts;
    if (TestPlot::auxiliaryText().empty()) parts += " t";
    if (TestPlot::auxiliaryValues().empty()) parts += " v";
    if (TestPlot::xUnitScale() == 1.0) parts += " x";
    if (TestPlot::yUnitScale() == 1.0) parts += " y";
    if (TestPlot::plotView()) parts += " view";
    if (TestPlot::theme() == PlotTheme::black) parts += " theme";
    if (TestPlot::viewConstraints().empty()) parts += " constraints";
    return parts;
  }
};

/// Fills all of the state with something else than initialisation does.
void spoil(Vexel& plot) {
  plot.plotView() = nullptr;
  plot.hostingViews() = {std::make_shared<CPTGraphHostingView>()};
  plot.graphs() = {std::make_shared<CPTXYGraph>()};
  plot.viewConstraints()["left over"] = nullptr;
  plot.theme() = PlotTheme::print;
  plot.auxiliaryText() = "text";
  plot.auxiliaryValues() = {1, 2};
  plot.xUnitScale() = 3;
  plot.yUnitScale() = 4;
}

TEST(Vexel, IsInitialisedStepByStepAndThenSetUp) {
  WatchedPlot plot;
  spoil(plot);
  plot.steps.clear();
  plot.initPlot(std::make_shared<NSView>(), PlotTheme::black);
  EXPECT_THAT(plot.steps, ElementsAre("auxiliaryText", "auxiliaryValues t", "xUnitScale t v",
                                      "yUnitScale t v x", "plotView t v x y", "theme t v x y view",
                                      "viewConstraints t v x y view theme",
                                      "setupPlot t v x y view theme constraints"));
}

TEST(Vexel, TakesViewAndThemeAndResetsTheRestButBandsAndGraphs) {
  TestPlot plot;
  spoil(plot);
  const auto bands = plot.hostingViews();
  const auto graphs = plot.graphs();
  const auto view = std::make_shared<NSView>();

  plot.initPlot(view, PlotTheme::white);

  EXPECT_EQ(plot.plotView(), view);
  EXPECT_EQ(plot.hostingViews(), bands);
  EXPECT_EQ(plot.graphs(), graphs);
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
  EXPECT_EQ(plot.theme(), PlotTheme::white);
  EXPECT_EQ(plot.auxiliaryText(), "");
  EXPECT_THAT(plot.auxiliaryValues(), IsEmpty());
  EXPECT_EQ(plot.xUnitScale(), 1.0);
  EXPECT_EQ(plot.yUnitScale(), 1.0);
  EXPECT_THAT(plot.calls, ElementsAre("setupPlot"));
}

TEST(Vexel, LeavesTheConstraintsOfTheHostWhenItForgetsThem) {
  TestPlot plot;
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  plot.initPlot(host, PlotTheme::white);
  plot.setViews(2, 0, 0);
  plot.initPlot(host, PlotTheme::white);
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
  EXPECT_EQ(host->constraints().size(), 8u);
  EXPECT_EQ(plot.hostingViews().size(), 2u);

  plot.removeViews();
  EXPECT_THAT(host->constraints(), IsEmpty());
  EXPECT_THAT(host->subviews(), IsEmpty());
}

TEST(Vexel, MayBeInitialisedWithoutView) {
  TestPlot plot;
  spoil(plot);
  plot.initPlot(nullptr, PlotTheme::black);
  EXPECT_EQ(plot.plotView(), nullptr);
  EXPECT_EQ(plot.theme(), PlotTheme::black);
  EXPECT_THAT(plot.calls, ElementsAre("setupPlot"));
}

TEST(Vexel, ShowsByDrawingNothingPresented) {
  TestPlot plot;
  plot.show();
  EXPECT_THAT(plot.calls, ElementsAre("draw"));
  EXPECT_THAT(plot.lastPresented, IsEmpty());
}

TEST(Vexel, UpdatesByRefreshingNothingPresented) {
  TestPlot plot;
  plot.update();
  EXPECT_THAT(plot.calls, ElementsAre("refresh"));
  EXPECT_THAT(plot.lastPresented, IsEmpty());
}

TEST(Vexel, DrawsAndDoesNotRefreshWhenItUpdatesWithSomethingPresented) {
  TestPlot plot;
  plot.update({3, 1, 2, 1});
  EXPECT_THAT(plot.calls, ElementsAre("draw"));
  EXPECT_THAT(plot.lastPresented, ElementsAre(3, 1, 2, 1));
  plot.update(std::vector<double>());
  EXPECT_THAT(plot.calls, ElementsAre("draw", "draw"));
  EXPECT_THAT(plot.lastPresented, IsEmpty());
}

TEST(Vexel, CanBeToldToDoEachOfItsOperationsInAnotherWay) {
  class OwnWay : public TestPlot {
   public:
    void initPlot(std::shared_ptr<NSView>, PlotTheme) override { calls.push_back("own init"); }
    void show() override { calls.push_back("own show"); }
    void update() override { calls.push_back("own update"); }
    void update(const std::vector<double>&) override { calls.push_back("own presented"); }
  };
  OwnWay own;
  Vexel& plot = own;
  plot.initPlot(nullptr, PlotTheme::black);
  plot.show();
  plot.update();
  plot.update({1});
  EXPECT_THAT(own.calls, ElementsAre("own init", "own show", "own update", "own presented"));
}

}  // namespace
}  // namespace vexel
