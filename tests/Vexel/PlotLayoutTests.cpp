#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "Vexel/LastWords.h"
#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class PlotLayout : public testing::Test {
 protected:
  PlotLayout() { plot.initPlot(host, PlotTheme::white); }

  /// The height that the constraints give a band.
  CGFloat laidOutHeight(std::size_t band) {
    host->layoutSubtreeIfNeeded();
    return plot.hostingViews()[band]->frame().size.height;
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(7, 9, 300, 400));
  TestPlot plot;
};

/// Constraints 4 i to 4 i + 3 of the host are those of band i, in the order of the layout, and are
/// kept under their identifiers.
void expectBandConstraints(TestPlot& plot, std::size_t band, CGFloat topMultiplier,
                           CGFloat heightMultiplier) {
  using enum NSLayoutAttribute;
  const struct {
    const char* suffix;
    NSLayoutAttribute attribute;
    NSLayoutAttribute hostAttribute;
    CGFloat multiplier;
  } rows[] = {
      {"TopMarginConstraint", top, topMultiplier > 0 ? bottom : top,
       topMultiplier > 0 ? topMultiplier : 1.0},
      {"LeftMarginConstraint", left, left, 1.0},
      {"HeightConstraint", height, height, heightMultiplier},
      {"WidthConstraint", width, width, 1.0},
  };
  const auto host = plot.plotView();
  ASSERT_GE(host->constraints().size(), 4 * band + 4);
  ASSERT_GT(plot.hostingViews().size(), band);
  for (std::size_t row = 0; row < 4; ++row) {
    const std::string name = "hostingView" + std::to_string(band) + rows[row].suffix;
    SCOPED_TRACE(name);
    const auto constraint = host->constraints()[4 * band + row];
    EXPECT_EQ(constraint->identifier(), name);
    EXPECT_EQ(constraint->firstItem(), plot.hostingViews()[band].get());
    EXPECT_EQ(constraint->firstAttribute(), rows[row].attribute);
    EXPECT_EQ(constraint->relation(), NSLayoutRelation::equal);
    EXPECT_EQ(constraint->secondItem(), host.get());
    EXPECT_EQ(constraint->secondAttribute(), rows[row].hostAttribute);
    EXPECT_EQ(constraint->multiplier(), rows[row].multiplier);
    EXPECT_EQ(constraint->constant(), 0);
    EXPECT_EQ(constraint->priority(), 750);
    ASSERT_TRUE(plot.viewConstraints().contains(name));
    EXPECT_EQ(plot.viewConstraints()[name], constraint);
  }
}

TEST_F(PlotLayout, StacksNothingInAHostThatIsAbsent) {
  plot.setViews(2, 0, 0);
  const auto bands = plot.hostingViews();
  plot.plotView() = nullptr;
  for (const int count : {-1, 0, 3}) {
    plot.setViews(count, 20, 30);
    EXPECT_THAT(plot.hostingViews(), IsEmpty());
    EXPECT_THAT(plot.viewConstraints(), IsEmpty());
    EXPECT_THAT(host->subviews(), IsEmpty());
  }
}

TEST_F(PlotLayout, StacksNothingWhenNoBandIsAskedFor) {
  plot.setViews(2, 0, 0);
  plot.graphs() = {std::make_shared<CPTXYGraph>()};
  plot.setViews(0, 20, 30);
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
  EXPECT_THAT(plot.graphs(), IsEmpty());
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
  EXPECT_THAT(host->subviews(), IsEmpty());
  EXPECT_THAT(host->constraints(), IsEmpty());
}

TEST_F(PlotLayout, PutsBandsOfDefaultHostingViewsIntoTheHost) {
  plot.setViews(3, 20, 30);
  ASSERT_EQ(plot.hostingViews().size(), 3u);
  EXPECT_EQ(host->subviews().size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    const auto band = plot.hostingViews()[i];
    EXPECT_EQ(host->subviews()[i], band);
    EXPECT_EQ(band->superview(), host);
    EXPECT_EQ(band->frame(), CGRect());
    EXPECT_EQ(band->hostedGraph(), nullptr);
    EXPECT_TRUE(band->autoresizesSubviews());
    EXPECT_FALSE(band->translatesAutoresizingMaskIntoConstraints());
    for (const auto orientation :
         {NSLayoutConstraintOrientation::vertical, NSLayoutConstraintOrientation::horizontal})
      EXPECT_EQ(band->contentCompressionResistancePriority(orientation), 250);
  }
  EXPECT_THAT(plot.graphs(), IsEmpty());
}

TEST_F(PlotLayout, LeavesTheTopPaddingOfASingleBandUncovered) {
  plot.setViews(1, 20, 30);
  EXPECT_EQ(host->constraints().size(), 4u);
  EXPECT_EQ(plot.viewConstraints().size(), 4u);
  expectBandConstraints(plot, 0, 1 - 380.0 / 400, 380.0 / 400);
  EXPECT_NEAR(plot.viewConstraints()["hostingView0TopMarginConstraint"]->multiplier(), 0.05, 1e-15);
  EXPECT_NEAR(laidOutHeight(0), 380, 4e-7);
  EXPECT_EQ(plot.hostingViews()[0]->frame().origin.x, 0);
  EXPECT_NEAR(plot.hostingViews()[0]->frame().origin.y, 0, 4e-7);
}

TEST_F(PlotLayout, AddsTheBottomPaddingToTheLowestBandAndTheTopPaddingToTheHighest) {
  plot.setViews(3, 20, 30);
  const CGFloat h = (400.0 - 20.0 - 30.0) / 3;
  EXPECT_EQ(host->constraints().size(), 12u);
  EXPECT_EQ(plot.viewConstraints().size(), 12u);
  const CGFloat low = 30 + h;
  expectBandConstraints(plot, 0, 1 - low / 400, low / 400);
  expectBandConstraints(plot, 1, 1 - (low + h) / 400, h / 400);
  expectBandConstraints(plot, 2, 0, (20 + h) / 400);

  EXPECT_NEAR(laidOutHeight(0), 146.0 + 2.0 / 3, 4e-7);
  EXPECT_NEAR(laidOutHeight(1), 116.0 + 2.0 / 3, 4e-7);
  EXPECT_NEAR(laidOutHeight(2), 136.0 + 2.0 / 3, 4e-7);
  EXPECT_NEAR(plot.hostingViews()[2]->frame().maxY(), 400, 4e-7);
}

TEST_F(PlotLayout, GivesTheLowestOfTwoBandsTheBottomPaddingAndTheOtherTheTopPadding) {
  plot.setViews(2, 10, 50);
  expectBandConstraints(plot, 0, 1 - 220.0 / 400, 220.0 / 400);
  expectBandConstraints(plot, 1, 0, 180.0 / 400);
}

// Sums of heights need not come out at the host's height exactly. What is left over counts as a
// part of the height, however small.
TEST(PlotLayoutTable, PinsTheTopEdgesTogetherOnlyWhenNothingIsLeftOver) {
  int pinned = 0;
  int leftOver = 0;
  for (const CGFloat hostHeight : {400.0, 100.0, 1.0, 0.1, 1e-300, 1e300, 777.7})
    for (int count = 2; count <= 50; ++count) {
      const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 10, hostHeight));
      TestPlot plot;
      plot.initPlot(host, PlotTheme::white);
      plot.setViews(count, hostHeight / 16, hostHeight / 8);

      const CGFloat h = (hostHeight - hostHeight / 16 - hostHeight / 8) / count;
      CGFloat sum = 0;
      for (int band = 0; band < count; ++band) {
        const CGFloat height = band == 0           ? hostHeight / 8 + h
                               : band == count - 1 ? hostHeight / 16 + h
                                                   : h;
        sum += height;
        const CGFloat m = 1 - sum / hostHeight;
        if (band == count - 1) ++(m > 0 ? leftOver : pinned);
        expectBandConstraints(plot, static_cast<std::size_t>(band), m, height / hostHeight);
      }
    }
  EXPECT_GT(pinned, 0);
  EXPECT_GT(leftOver, 0);
}

TEST_F(PlotLayout, MeasuresTheHostByItsBoundsAtTheTimeOfTheCall) {
  host->setBoundsOrigin({50, 60});
  host->setFrameSize({300, 200});
  plot.setViews(2, 0, 100);
  expectBandConstraints(plot, 0, 1 - 150.0 / 200, 150.0 / 200);
}

TEST_F(PlotLayout, NumbersBandsInDecimalFromZero) {
  plot.setViews(12, 0, 0);
  std::set<std::string> expected;
  for (int i = 0; i < 12; ++i)
    for (const char* suffix :
         {"TopMarginConstraint", "LeftMarginConstraint", "HeightConstraint", "WidthConstraint"})
      expected.insert("hostingView" + std::to_string(i) + suffix);
  std::set<std::string> names;
  for (const auto& [name, constraint] : plot.viewConstraints()) names.insert(name);
  EXPECT_EQ(names, expected);
  EXPECT_TRUE(names.contains("hostingView2HeightConstraint"));
  EXPECT_TRUE(names.contains("hostingView11WidthConstraint"));
}

TEST_F(PlotLayout, RebuildsTheStackFromScratch) {
  plot.setViews(3, 20, 30);
  const auto former = plot.hostingViews();
  former[0]->setHostedGraph(std::make_shared<CPTXYGraph>());
  const auto constraint = host->constraints()[0];
  plot.graphs() = {std::make_shared<CPTXYGraph>()};

  plot.setViews(2, 20, 30);

  ASSERT_EQ(plot.hostingViews().size(), 2u);
  EXPECT_EQ(host->subviews().size(), 2u);
  EXPECT_EQ(host->constraints().size(), 8u);
  EXPECT_EQ(plot.viewConstraints().size(), 8u);
  EXPECT_THAT(plot.graphs(), IsEmpty());
  EXPECT_NE(plot.viewConstraints()["hostingView0TopMarginConstraint"], constraint);
  for (const auto& band : former) {
    EXPECT_EQ(band->superview(), nullptr);
    EXPECT_EQ(band->hostedGraph(), nullptr);
    for (const auto& present : plot.hostingViews()) EXPECT_NE(present, band);
  }
}

TEST_F(PlotLayout, LeavesOtherViewsAndConstraintsOfTheHostAlone) {
  const auto other = std::make_shared<NSView>();
  host->addSubview(other);
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *other, .firstAttribute = NSLayoutAttribute::width, .constant = 10});
  host->addConstraint(constraint);
  plot.viewConstraints()["own"] = constraint;
  plot.setViews(2, 0, 0);
  plot.setViews(1, 0, 0);
  EXPECT_THAT(host->subviews(), ElementsAre(other, plot.hostingViews()[0]));
  EXPECT_EQ(host->constraints().front(), constraint);
  EXPECT_EQ(host->constraints().size(), 5u);
  EXPECT_EQ(plot.viewConstraints()["own"], constraint);
}

TEST_F(PlotLayout, BuildsOneBandAfterTheOther) {
  /// Notes the state of the host whenever bands or constraints are noted down.
  class Watched : public TestPlot {
   public:
    std::vector<std::shared_ptr<CPTGraphHostingView>>& hostingViews() override {
      note("hostingViews", TestPlot::hostingViews().size());
      return TestPlot::hostingViews();
    }
    ViewConstraints& viewConstraints() override {
      note("viewConstraints", TestPlot::viewConstraints().size());
      return TestPlot::viewConstraints();
    }
    void removeViews() override {}

    std::vector<std::string> steps;

   private:
    void note(const std::string& what, std::size_t kept) {
      const auto& view = TestPlot::plotView();
      if (!view) return;
      steps.push_back(what + " " + std::to_string(kept) + ": " +
                      std::to_string(view->subviews().size()) + " views " +
                      std::to_string(view->constraints().size()) + " constraints");
    }
  };
  Watched watched;
  watched.initPlot(host, PlotTheme::white);
  watched.steps.clear();
  watched.setViews(2, 0, 0);
  EXPECT_THAT(
      watched.steps,
      ElementsAre(
          "hostingViews 0: 1 views 0 constraints", "viewConstraints 0: 1 views 1 constraints",
          "viewConstraints 1: 1 views 2 constraints", "viewConstraints 2: 1 views 3 constraints",
          "viewConstraints 3: 1 views 4 constraints", "hostingViews 1: 2 views 4 constraints",
          "viewConstraints 4: 2 views 5 constraints", "viewConstraints 5: 2 views 6 constraints",
          "viewConstraints 6: 2 views 7 constraints", "viewConstraints 7: 2 views 8 constraints"));
}

TEST_F(PlotLayout, RemovesThePresentBandsInTheAdoptersWay) {
  class OwnRemoval : public TestPlot {
   public:
    void removeViews() override {
      calls.push_back("removeViews");
      plotView() = nextView;
    }
    std::shared_ptr<NSView> nextView;
  };
  OwnRemoval own;
  own.initPlot(host, PlotTheme::white);
  own.nextView = std::make_shared<NSView>(CGRect::make(0, 0, 10, 50));
  own.setViews(2, 0, 10);
  EXPECT_THAT(own.calls, ElementsAre("setupPlot", "removeViews"));
  EXPECT_THAT(host->subviews(), IsEmpty());
  EXPECT_EQ(own.nextView->subviews().size(), 2u);
  expectBandConstraints(own, 0, 1 - 30.0 / 50, 30.0 / 50);
}

TEST_F(PlotLayout, TakesAnyNumbersForHeightAndPaddings) {
  const CGFloat numbers[] = {kNaN, kInfinity, -kInfinity, -1e308, 1e308, -50, 0, 5e-324};
  for (const CGFloat height : {0.0, 5e-324, 1e308, 400.0})
    for (const CGFloat top : numbers)
      for (const CGFloat bottom : numbers) {
        host->setFrameSize({300, height});
        plot.setViews(3, top, bottom);
        EXPECT_EQ(plot.hostingViews().size(), 3u);
        EXPECT_EQ(host->constraints().size(), 12u);
        EXPECT_GE(laidOutHeight(0), 0);
      }
}

TEST_F(PlotLayout, PinsBandsOfAHostWithoutHeightToItsTop) {
  host->setFrameSize({300, 0});
  plot.setViews(2, 0, 0);
  for (const char* name : {"hostingView0TopMarginConstraint", "hostingView1TopMarginConstraint"}) {
    EXPECT_EQ(plot.viewConstraints()[name]->secondAttribute(), NSLayoutAttribute::top);
    EXPECT_EQ(plot.viewConstraints()[name]->multiplier(), 1);
  }
  EXPECT_EQ(laidOutHeight(0), 0);
  EXPECT_EQ(plot.hostingViews()[0]->frame().size.width, 300);
}

using PlotLayoutDeathTest = PlotLayout;

TEST_F(PlotLayoutDeathTest, ANegativeCountStopsTheProcessAfterThePresentBandsAreRemoved) {
  plot.setViews(2, 0, 0);
  for (const int count : {-1, std::numeric_limits<int>::min()})
    EXPECT_DEATH(runWithLastWords(
                     [&] {
                       return std::to_string(plot.hostingViews().size()) + " bands " +
                              std::to_string(host->subviews().size()) + " subviews";
                     },
                     [&] { plot.setViews(count, 20, 30); }),
                 "Fatal error: .*setViews.*0 bands 0 subviews");
}

}  // namespace
}  // namespace vexel
