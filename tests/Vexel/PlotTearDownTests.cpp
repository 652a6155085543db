#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Vexel/TestPlot.h"

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::shared_ptr<NSLayoutConstraint> constraint(NSView& first, NSView* second,
                                               std::optional<std::string> identifier) {
  auto result = NSLayoutConstraint::constraint({.firstItem = first,
                                                .firstAttribute = NSLayoutAttribute::width,
                                                .secondItem = second,
                                                .secondAttribute = NSLayoutAttribute::width});
  result->setIdentifier(std::move(identifier));
  return result;
}

/// A host with two views; constraints are kept by the plot when they have a name.
class PlotTearDown : public testing::Test {
 protected:
  PlotTearDown() {
    host->addSubview(a);
    host->addSubview(b);
  }

  std::shared_ptr<NSLayoutConstraint> add(NSView& first, NSView* second,
                                          std::optional<std::string> identifier) {
    const auto added = constraint(first, second, identifier);
    host->addConstraint(added);
    if (identifier) plot.viewConstraints()[*identifier] = added;
    return added;
  }

  std::vector<std::string> keptNames() {
    std::vector<std::string> names;
    for (const auto& [name, kept] : plot.viewConstraints()) names.push_back(name);
    return names;
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  std::shared_ptr<NSView> a = std::make_shared<NSView>();
  std::shared_ptr<NSView> b = std::make_shared<NSView>();
  TestPlot plot;
};

TEST_F(PlotTearDown, OfNoViewDoesNothing) {
  const auto kept = add(*a, host.get(), "a");
  plot.cleanRemoveFromSuperview(nullptr);
  EXPECT_THAT(host->subviews(), ElementsAre(a, b));
  EXPECT_THAT(host->constraints(), ElementsAre(kept));
  EXPECT_THAT(keptNames(), ElementsAre("a"));
}

TEST_F(PlotTearDown, OfAViewWithoutSuperviewDoesNothing) {
  add(*host, nullptr, "host");
  plot.cleanRemoveFromSuperview(host);
  EXPECT_EQ(host->constraints().size(), 1u);
  EXPECT_THAT(keptNames(), ElementsAre("host"));
}

TEST_F(PlotTearDown, RemovesTheViewAndItsConstraintsOnEitherSide) {
  add(*a, host.get(), "first");
  add(*host, a.get(), "second");
  add(*b, a.get(), "other first");
  add(*a, a.get(), "both");
  const auto stays = add(*b, host.get(), "b");
  const auto hosts = add(*host, nullptr, "host");
  plot.cleanRemoveFromSuperview(a);
  EXPECT_EQ(a->superview(), nullptr);
  EXPECT_THAT(host->subviews(), ElementsAre(b));
  EXPECT_THAT(host->constraints(), ElementsAre(stays, hosts));
  EXPECT_THAT(keptNames(), ElementsAre("b", "host"));
}

TEST_F(PlotTearDown, RemovesConstraintsWithoutIdentifierFromTheHostAlone) {
  add(*a, host.get(), std::nullopt);
  add(*host, a.get(), std::nullopt);
  plot.viewConstraints()[""] = constraint(*a, nullptr, std::nullopt);
  plot.viewConstraints()["kept"] = constraint(*a, nullptr, std::nullopt);
  plot.cleanRemoveFromSuperview(a);
  EXPECT_THAT(host->constraints(), IsEmpty());
  EXPECT_THAT(keptNames(), ElementsAre("", "kept"));
}

TEST_F(PlotTearDown, ForgetsWhatIsKeptUnderTheIdentifierWhateverItIs) {
  add(*a, host.get(), "name");
  plot.viewConstraints()["name"] = constraint(*b, nullptr, "name");
  host->addConstraint(constraint(*a, nullptr, "never kept"));
  plot.cleanRemoveFromSuperview(a);
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
}

TEST_F(PlotTearDown, LooksOnlyAtTheSuperviewsConstraints) {
  const auto child = std::make_shared<NSView>();
  a->addSubview(child);
  const auto ofA = constraint(*child, a.get(), "inside");
  a->addConstraint(ofA);
  plot.viewConstraints()["inside"] = ofA;
  plot.cleanRemoveFromSuperview(a);
  EXPECT_THAT(a->constraints(), ElementsAre(ofA));
  EXPECT_THAT(keptNames(), ElementsAre("inside"));
}

TEST_F(PlotTearDown, RemovesAViewFromASuperviewThatIsNotTheHost) {
  plot.plotView() = std::make_shared<NSView>();
  add(*a, host.get(), "a");
  plot.cleanRemoveFromSuperview(a);
  EXPECT_THAT(host->subviews(), ElementsAre(b));
  EXPECT_THAT(plot.viewConstraints(), IsEmpty());
}

TEST_F(PlotTearDown, GoesThroughTheConstraintsInOrderWhileTheViewIsStillThere) {
  class Watched : public TestPlot {
   public:
    ViewConstraints& viewConstraints() override {
      std::string step = watchedView && watchedView->superview() ? "in place:" : "";
      for (const auto& [name, kept] : TestPlot::viewConstraints()) step += " " + name;
      steps.push_back(step);
      return TestPlot::viewConstraints();
    }
    std::shared_ptr<NSView> watchedView;
    std::vector<std::string> steps;
  };
  Watched watched;
  for (const char* name : {"m", "z", "a"}) {
    const auto added = constraint(*a, host.get(), name);
    host->addConstraint(added);
    watched.viewConstraints()[name] = added;
  }
  watched.watchedView = a;
  watched.steps.clear();
  watched.cleanRemoveFromSuperview(a);
  EXPECT_THAT(watched.steps, ElementsAre("in place: a m z", "in place: a z", "in place: a"));
}

TEST_F(PlotTearDown, OfAllBandsUnhostsAndRemovesOneAfterTheOther) {
  class Watched : public TestPlot {
   public:
    std::vector<std::shared_ptr<CPTXYGraph>>& graphs() override {
      note("graphs");
      return TestPlot::graphs();
    }
    void cleanRemoveFromSuperview(const std::shared_ptr<NSView>& view) override {
      const auto& bands = TestPlot::hostingViews();
      const auto found = std::find(bands.begin(), bands.end(), view);
      note("remove band " + std::to_string(found - bands.begin()));
      TestPlot::cleanRemoveFromSuperview(view);
    }
    std::vector<std::string> steps;

   private:
    void note(const std::string& step) {
      std::string hosting;
      for (const auto& band : TestPlot::hostingViews()) hosting += band->hostedGraph() ? "+" : "-";
      steps.push_back(step + " " + hosting + " of " + std::to_string(TestPlot::graphs().size()));
    }
  };
  Watched watched;
  watched.initPlot(host, PlotTheme::white);
  watched.setViews(3, 0, 0);
  for (const auto& band : watched.hostingViews())
    watched.graphs().push_back(watched.format(band, {0, 0, 0, 0}, {0, 0, 0, 0}));
  watched.steps.clear();

  watched.removeViews();

  EXPECT_THAT(watched.steps, ElementsAre("remove band 0 -++ of 3", "remove band 1 --+ of 3",
                                         "remove band 2 --- of 3", "graphs  of 3"));
  EXPECT_THAT(watched.hostingViews(), IsEmpty());
  EXPECT_THAT(watched.graphs(), IsEmpty());
  EXPECT_THAT(watched.viewConstraints(), IsEmpty());
  EXPECT_THAT(host->subviews(), ElementsAre(a, b));
}

TEST_F(PlotTearDown, OfAllBandsKeepsTheConstraintsThatBelongToNone) {
  plot.initPlot(host, PlotTheme::white);
  plot.setViews(2, 0, 0);
  add(*a, host.get(), "own");
  plot.removeViews();
  EXPECT_THAT(keptNames(), ElementsAre("own"));
  EXPECT_EQ(host->constraints().size(), 1u);
}

TEST_F(PlotTearDown, OfBandsThatAreInNoViewOnlyForgetsThem) {
  const auto band = std::make_shared<CPTGraphHostingView>();
  band->setHostedGraph(std::make_shared<CPTXYGraph>());
  plot.hostingViews() = {band};
  plot.graphs() = {std::make_shared<CPTXYGraph>()};
  plot.removeViews();
  EXPECT_EQ(band->hostedGraph(), nullptr);
  EXPECT_THAT(plot.hostingViews(), IsEmpty());
  EXPECT_THAT(plot.graphs(), IsEmpty());
}

TEST_F(PlotTearDown, WithoutBandsChangesNothing) {
  plot.removeViews();
  plot.removeViews();
  EXPECT_THAT(host->subviews(), ElementsAre(a, b));
}

TEST_F(PlotTearDown, UsesTheAdoptersWayOfRemovingAViewWhenBandsAreStackedAnew) {
  class OwnRemoval : public TestPlot {
   public:
    void cleanRemoveFromSuperview(const std::shared_ptr<NSView>&) override {
      calls.push_back("own removal");
    }
  };
  OwnRemoval own;
  own.initPlot(host, PlotTheme::white);
  own.setViews(2, 0, 0);
  own.setViews(1, 0, 0);
  EXPECT_THAT(own.calls, ElementsAre("setupPlot", "own removal", "own removal"));
  EXPECT_EQ(host->subviews().size(), 2u + 2u + 1u);
}

}  // namespace
}  // namespace vexel
