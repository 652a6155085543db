#include <Vexel/PlotView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <AppKit/NSWindow.h>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

static_assert(std::is_abstract_v<PlotViewDelegate>);
static_assert(std::derived_from<PlotView, NSView>);

/// Notes every size that it is told, and the size that the view had at that moment.
class SizeKeeper : public PlotViewDelegate {
 public:
  explicit SizeKeeper(const NSView* view = nullptr) : view_(view) {}

  void setFrameSize(CGSize size) override {
    told.push_back(size);
    if (view_) ofView.push_back(view_->frame().size);
  }

  std::vector<CGSize> told;
  std::vector<CGSize> ofView;

 private:
  const NSView* view_;
};

TEST(PlotView, StartsWithItsFrameAndWithoutDelegate) {
  EXPECT_EQ(PlotView().frame(), CGRect());
  EXPECT_EQ(PlotView().delegate(), nullptr);
  const PlotView view(CGRect::make(1, 2, 30, 40));
  EXPECT_EQ(view.frame(), CGRect::make(1, 2, 30, 40));
  EXPECT_EQ(view.delegate(), nullptr);
}

TEST(PlotView, TellsItsDelegateEverySizeAfterItTookIt) {
  PlotView view;
  SizeKeeper keeper(&view);
  view.setDelegate(&keeper);
  EXPECT_EQ(view.delegate(), &keeper);

  view.setFrameSize({30, 40});
  view.setFrameSize({0, 0});
  view.setFrameSize({1, 10000});

  EXPECT_THAT(keeper.told, ElementsAre(CGSize{30, 40}, CGSize{0, 0}, CGSize{1, 10000}));
  EXPECT_EQ(keeper.ofView, keeper.told);
  EXPECT_EQ(view.frame().size, (CGSize{1, 10000}));
  EXPECT_EQ(view.bounds().size, (CGSize{1, 10000}));
}

TEST(PlotView, TellsItsDelegateASizeThatItHasAlready) {
  PlotView view(CGRect::make(0, 0, 30, 40));
  SizeKeeper keeper;
  view.setDelegate(&keeper);
  view.setFrameSize({30, 40});
  view.setFrameSize({30, 40});
  EXPECT_THAT(keeper.told, ElementsAre(CGSize{30, 40}, CGSize{30, 40}));
}

TEST(PlotView, TellsItsDelegateTheSizeAsItWasAskedFor) {
  PlotView view(CGRect::make(0, 0, 30, 40));
  SizeKeeper keeper(&view);
  view.setDelegate(&keeper);
  view.setFrameSize({-1, kInfinity});
  EXPECT_THAT(keeper.told, ElementsAre(CGSize{-1, kInfinity}));
  EXPECT_THAT(keeper.ofView, ElementsAre(CGSize{0, 0}));

  view.setFrameSize({kNaN, 5});
  ASSERT_EQ(keeper.told.size(), 2u);
  EXPECT_TRUE(std::isnan(keeper.told.back().width));
  EXPECT_EQ(keeper.ofView.back(), (CGSize{0, 5}));
}

TEST(PlotView, TakesSizesWithoutDelegate) {
  PlotView view;
  view.setFrameSize({30, 40});
  EXPECT_EQ(view.frame().size, (CGSize{30, 40}));
}

TEST(PlotView, ForgetsADelegateThatIsGone) {
  PlotView view;
  {
    SizeKeeper keeper;
    view.setDelegate(&keeper);
  }
  EXPECT_EQ(view.delegate(), nullptr);
  view.setFrameSize({30, 40});
  EXPECT_EQ(view.frame().size, (CGSize{30, 40}));
}

TEST(PlotView, DoesNotKeepItsDelegateAlive) {
  PlotView view;
  auto keeper = std::make_shared<SizeKeeper>();
  view.setDelegate(keeper.get());
  EXPECT_EQ(keeper.use_count(), 1);
}

TEST(PlotView, TellsOnlyItsPresentDelegate) {
  PlotView view;
  SizeKeeper former;
  SizeKeeper present;
  view.setDelegate(&former);
  view.setDelegate(&present);
  view.setFrameSize({1, 2});
  view.setDelegate(nullptr);
  view.setFrameSize({3, 4});
  EXPECT_THAT(former.told, IsEmpty());
  EXPECT_THAT(present.told, ElementsAre(CGSize{1, 2}));
}

TEST(PlotView, DoesNotTellOfMoves) {
  PlotView view(CGRect::make(0, 0, 30, 40));
  SizeKeeper keeper;
  view.setDelegate(&keeper);
  view.setFrameOrigin({5, 6});
  EXPECT_THAT(keeper.told, IsEmpty());
}

TEST(PlotView, TellsOfSizesThatItsSurroundingsGiveIt) {
  const auto parent = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto view = std::make_shared<PlotView>(CGRect::make(10, 10, 80, 80));
  view->setAutoresizingMask(NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable);
  parent->addSubview(view);
  SizeKeeper keeper(view.get());
  view->setDelegate(&keeper);

  const auto window = std::make_shared<NSWindow>(CGSize{100, 100});
  window->setContentView(parent);
  window->setContentSize({200, 150});
  EXPECT_THAT(keeper.told, ElementsAre(CGSize{180, 130}));
  view->setFrame(CGRect::make(0, 0, 7, 8));
  EXPECT_THAT(keeper.told, ElementsAre(CGSize{180, 130}, CGSize{7, 8}));
  EXPECT_EQ(keeper.ofView, keeper.told);
}

TEST(PlotView, MayLoseItsDelegateWhileTellingIt) {
  class Leaver : public PlotViewDelegate {
   public:
    explicit Leaver(PlotView& view) : view_(view) {}
    void setFrameSize(CGSize) override {
      ++calls;
      view_.setDelegate(nullptr);
    }
    int calls = 0;

   private:
    PlotView& view_;
  };
  PlotView view;
  Leaver leaver(view);
  view.setDelegate(&leaver);
  view.setFrameSize({1, 2});
  view.setFrameSize({3, 4});
  EXPECT_EQ(leaver.calls, 1);
}

}  // namespace
}  // namespace vexel
