#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <Vexel/Adopter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Vexel/SeriesExamples.h"
#include "Vexel/TestPlot.h"

namespace vexel {

/// Two refinements of the protocol that one object can adopt together.
class LeftProtocol : public virtual Vexel {
 public:
  virtual int& left() = 0;
};
class RightProtocol : public virtual Vexel {
 public:
  virtual int& right() = 0;
};

template <>
class AdopterState<LeftProtocol> : public virtual LeftProtocol, public virtual AdopterState<Vexel> {
 public:
  int& left() override { return left_; }

 private:
  int left_ = 1;
};
template <>
class AdopterState<RightProtocol> : public virtual RightProtocol,
                                    public virtual AdopterState<Vexel> {
 public:
  int& right() override { return right_; }

 private:
  int right_ = 2;
};

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static_assert(std::is_abstract_v<Vexel>);
static_assert(std::derived_from<Vexel, CPTPlotDataSource>);
static_assert(!std::is_copy_constructible_v<TestPlot>);
static_assert(!std::is_copy_assignable_v<TestPlot>);
static_assert(!std::is_move_constructible_v<TestPlot>);
static_assert(!std::is_move_assignable_v<TestPlot>);

/// What an adopter has to say for itself, without state.
template <class Base>
class Minimal : public Base {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
};

// The state is asked for, and so are these four.
static_assert(std::is_abstract_v<Minimal<Vexel>>);
static_assert(std::is_abstract_v<Adopter<Vexel>>);
static_assert(!std::is_abstract_v<Minimal<Adopter<Vexel>>>);

TEST(Adopter, StartsWithEmptyState) {
  TestPlot plot;
  EXPECT_EQ(plot.plotView(), nullptr);
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
  EXPECT_THAT(plot.graphs(), IsEmpty());
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
  EXPECT_EQ(plot.auxiliaryText(), "");
  EXPECT_THAT(plot.auxiliaryValues(), IsEmpty());
  EXPECT_EQ(plot.xUnitScale(), 1);
  EXPECT_EQ(plot.yUnitScale(), 1);
  EXPECT_THAT(plot.calls, IsEmpty());
}

TEST(Adopter, KeepsEachPartOfTheStateByItself) {
  TestPlot plot;
  plot.xUnitScale() = 2;
  plot.yUnitScale() = 3;
  plot.auxiliaryText() = "text";
  plot.auxiliaryValues() = {4};
  plot.theme() = PlotTheme::print;
  EXPECT_EQ(plot.xUnitScale(), 2);
  EXPECT_EQ(plot.yUnitScale(), 3);
  EXPECT_EQ(plot.auxiliaryText(), "text");
  EXPECT_THAT(plot.auxiliaryValues(), ElementsAre(4));
  EXPECT_EQ(plot.theme(), PlotTheme::print);
}

TEST(Adopter, OfSeveralRefinementsHasOneStateOfTheProtocolThatTheyShare) {
  Minimal<Adopter<LeftProtocol, RightProtocol>> both;
  const auto view = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  both.initPlot(view, PlotTheme::print);
  static_cast<LeftProtocol&>(both).xUnitScale() = 7;
  EXPECT_EQ(static_cast<RightProtocol&>(both).xUnitScale(), 7);
  EXPECT_EQ(both.left(), 1);
  EXPECT_EQ(both.right(), 2);
  both.setViews(2, 0, 0);
  EXPECT_EQ(view->subviews().size(), 2u);
}

TEST(Adopter, MayKeepItsStateWhereItLikes) {
  struct State {
    std::shared_ptr<NSView> view;
    std::vector<std::shared_ptr<CPTGraphHostingView>> bands;
    std::vector<std::shared_ptr<CPTXYGraph>> graphs;
    Vexel::ViewConstraints constraints;
    PlotTheme theme = PlotTheme::black;
    std::string text;
    std::vector<double> values;
    double x = 0, y = 0;
  };
  class Elsewhere : public Minimal<Vexel> {
   public:
    explicit Elsewhere(State& state) : state_(state) {}
    std::shared_ptr<NSView>& plotView() override { return state_.view; }
    std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() override {
      return state_.bands;
    }
    std::vector<std::shared_ptr<CPTXYGraph>>& graphs() override { return state_.graphs; }
    ViewConstraints& viewConstraints() override { return state_.constraints; }
    PlotTheme& theme() override { return state_.theme; }
    std::string& auxiliaryText() override { return state_.text; }
    std::vector<double>& auxiliaryValues() override { return state_.values; }
    double& xUnitScale() override { return state_.x; }
    double& yUnitScale() override { return state_.y; }

   private:
    State& state_;
  };
  State state;
  const auto view = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto plot = makePlot<Elsewhere>(view, PlotTheme::print, state);
  plot->setViews(1, 0, 0);
  EXPECT_EQ(state.view, view);
  EXPECT_EQ(state.theme, PlotTheme::print);
  EXPECT_EQ(state.x, 1);
  EXPECT_EQ(state.y, 1);
  EXPECT_EQ(state.bands.size(), 1u);
  EXPECT_EQ(state.constraints.size(), 4u);
}

TEST(MakePlot, ConstructsTheAdopterAndThenInitialisesIt) {
  class Constructed : public TestPlot {
   public:
    Constructed(std::string name, std::unique_ptr<int> number) : number_(std::move(number)) {
      calls.push_back("constructed " + name);
    }
    void setupPlot() override {
      calls.push_back(plotView() && theme() == PlotTheme::print ? "set up" : "set up too early");
    }

   private:
    std::unique_ptr<int> number_;
  };
  const auto view = std::make_shared<NSView>();
  const auto plot =
      makePlot<Constructed>(view, PlotTheme::print, "by name", std::make_unique<int>(1));
  EXPECT_THAT(plot->calls, ElementsAre("constructed by name", "set up"));
  EXPECT_EQ(plot->plotView(), view);
}

TEST(MakePlot, RunsTheAdoptersOwnInitialisation) {
  class OwnInitialisation : public TestPlot {
   public:
    void initPlot(std::shared_ptr<NSView> view, PlotTheme theme) override {
      calls.push_back("own");
      TestPlot::initPlot(std::move(view), theme);
    }
  };
  EXPECT_THAT(makePlot<OwnInitialisation>(nullptr, PlotTheme::white)->calls,
              ElementsAre("own", "setupPlot"));
}

/// A host with one band that shows what an adopter adds to it, a line and circles in pure red.
class OwnedAdopter : public testing::Test {
 protected:
  void addSeries(Vexel& plot) {
    plot.initPlot(host, PlotTheme::white);
    plot.setViews(1, 0, 0);
    graph = plot.format(plot.hostingViews()[0], {0, 0, 0, 0}, {10, 10, 10, 10});
    plot.graphs().push_back(graph);
    plot.addPlot(cptLine(graph));
    auto circles = cptLine(graph);
    circles.circle = true;
    plot.addPlot(circles);
  }

  std::string drawn() {
    CGRecordingContext context;
    host->display(context);
    return context.text();
  }

  int redPixels() {
    const auto bitmap = CGBitmapContext::create(host->bounds().size, 1);
    host->display(*bitmap);
    const auto pixels = bitmap->pixels();
    return static_cast<int>(std::count(pixels.begin(), pixels.end(), 0xffff0000u));
  }

  void expectSeries() {
    EXPECT_THAT(drawn(), HasSubstr("stroke #ff0000"));
    EXPECT_GT(redPixels(), 0);
  }

  void expectNoSeries() {
    ASSERT_EQ(graph->allPlots().size(), 2u);
    for (const auto& series : graph->allPlots()) EXPECT_EQ(series->dataSource(), nullptr);
    EXPECT_THAT(drawn(), Not(HasSubstr("#ff0000")));
    EXPECT_EQ(redPixels(), 0);
    graph->reloadData();
    EXPECT_THAT(drawn(), Not(HasSubstr("#ff0000")));
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(0, 0, 200, 100));
  std::shared_ptr<CPTXYGraph> graph;
};

TEST_F(OwnedAdopter, OnTheStackShowsItsSeriesForAsLongAsItLives) {
  {
    TestPlot plot;
    addSeries(plot);
    expectSeries();
  }
  expectNoSeries();
}

TEST_F(OwnedAdopter, ThatIsUniqueShowsItsSeriesForAsLongAsItLives) {
  auto plot = makePlot<TestPlot>(host, PlotTheme::white);
  addSeries(*plot);
  expectSeries();
  plot.reset();
  expectNoSeries();
}

TEST_F(OwnedAdopter, ThatIsSharedIsKeptAliveByNoneOfItsViewsAndPlots) {
  std::shared_ptr<TestPlot> plot = makePlot<TestPlot>(host, PlotTheme::white);
  addSeries(*plot);
  expectSeries();
  EXPECT_EQ(plot.use_count(), 1);
  plot.reset();
  expectNoSeries();
}

TEST_F(OwnedAdopter, ThatIsAMemberShowsItsSeriesForAsLongAsItLives) {
  struct Document {
    std::string name;
    TestPlot plot;
  };
  auto document = std::make_unique<Document>();
  addSeries(document->plot);
  expectSeries();
  document.reset();
  expectNoSeries();
}

TEST_F(OwnedAdopter, LeavesNothingInAPictureThatWasKept) {
  auto plot = makePlot<TestPlot>(host, PlotTheme::white);
  addSeries(*plot);
  // The second display keeps what the first one drew.
  EXPECT_GT(redPixels(), 0);
  EXPECT_GT(redPixels(), 0);
  plot.reset();
  EXPECT_EQ(redPixels(), 0);
}

TEST_F(OwnedAdopter, MayDieBeforeItsDataWereRead) {
  {
    TestPlot plot;
    addSeries(plot);
  }
  expectNoSeries();
}

TEST_F(OwnedAdopter, MayDieAfterItsHost) {
  TestPlot plot;
  addSeries(plot);
  std::weak_ptr<NSView> gone = host;
  host.reset();
  EXPECT_FALSE(gone.expired());
  plot.plotView() = nullptr;
  EXPECT_TRUE(gone.expired());
  plot.removeViews();
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
}

}  // namespace
}  // namespace vexel
