#include <AppKit/NSView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGNullContext.h>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NSView, ANewViewStandsAlone) {
  const auto view = std::make_shared<NSView>(CGRect::make(1, 2, 3, 4));
  EXPECT_EQ(view->superview(), nullptr);
  EXPECT_EQ(view->window(), nullptr);
  EXPECT_THAT(view->subviews(), IsEmpty());
  EXPECT_THAT(view->constraints(), IsEmpty());
  EXPECT_TRUE(view->autoresizesSubviews());
  EXPECT_TRUE(view->translatesAutoresizingMaskIntoConstraints());
  EXPECT_EQ(view->autoresizingMask(), NSAutoresizingMask::none);
  EXPECT_FALSE(view->isHidden());
  EXPECT_TRUE(view->needsDisplay());
  EXPECT_TRUE(view->needsLayout());
  EXPECT_FALSE(view->intrinsicContentSize());
}

TEST(NSViewDeathTest, AddingAViewToItselfOrToOneInsideItIsFatal) {
  const auto outer = std::make_shared<NSView>();
  const auto middle = std::make_shared<NSView>();
  const auto inner = std::make_shared<NSView>();
  outer->addSubview(middle);
  middle->addSubview(inner);
  EXPECT_DEATH(inner->addSubview(inner), "Fatal error: a view cannot be added to itself");
  EXPECT_DEATH(inner->addSubview(outer), "Fatal error: a view cannot be added to itself");
}

TEST(NSView, AddingNullDoesNothing) {
  const auto view = std::make_shared<NSView>();
  view->addSubview(nullptr);
  EXPECT_THAT(view->subviews(), IsEmpty());
}

TEST(NSView, RemovingAViewThatStandsAloneDoesNothing) {
  const auto view = std::make_shared<NSView>();
  view->removeFromSuperview();
  EXPECT_EQ(view->superview(), nullptr);
}

TEST(NSView, SubviewsAreKeptFromBackToFront) {
  const auto host = std::make_shared<NSView>();
  const auto a = std::make_shared<NSView>();
  const auto b = std::make_shared<NSView>();
  host->addSubview(a);
  host->addSubview(b);
  EXPECT_THAT(host->subviews(), ElementsAre(a, b));
  EXPECT_EQ(a->superview(), host);
}

TEST(NSView, AddingASubviewAgainBringsItToTheFrontAndKeepsItsConstraints) {
  const auto host = std::make_shared<NSView>();
  const auto a = std::make_shared<NSView>();
  const auto b = std::make_shared<NSView>();
  host->addSubview(a);
  host->addSubview(b);
  host->addConstraint(NSLayoutConstraint::constraint(
      {.firstItem = *a, .firstAttribute = NSLayoutAttribute::width, .constant = 5}));
  host->addSubview(a);
  EXPECT_THAT(host->subviews(), ElementsAre(b, a));
  EXPECT_EQ(host->constraints().size(), 1u);
}

TEST(NSView, AddingToASecondSuperviewRemovesFromTheFirst) {
  const auto first = std::make_shared<NSView>();
  const auto second = std::make_shared<NSView>();
  const auto view = std::make_shared<NSView>();
  first->addSubview(view);
  second->addSubview(view);
  EXPECT_THAT(first->subviews(), IsEmpty());
  EXPECT_THAT(second->subviews(), ElementsAre(view));
  EXPECT_EQ(view->superview(), second);
}

TEST(NSView, ASubviewCanBeGivenByTheListItIsIn) {
  const auto first = std::make_shared<NSView>();
  const auto second = std::make_shared<NSView>();
  first->addSubview(std::make_shared<NSView>());
  first->addSubview(std::make_shared<NSView>());
  const auto moved = first->subviews()[0];
  second->addSubview(first->subviews()[0]);
  EXPECT_THAT(second->subviews(), ElementsAre(moved));
  EXPECT_EQ(first->subviews().size(), 1u);
  first->addSubview(first->subviews()[0]);
  EXPECT_EQ(first->subviews().size(), 1u);
}

TEST(NSView, ASubviewOwnedByItsSuperviewAloneIsDestroyedOnRemoval) {
  const auto host = std::make_shared<NSView>();
  host->addSubview(std::make_shared<NSView>());
  const std::weak_ptr<NSView> view = host->subviews()[0];
  view.lock()->removeFromSuperview();
  EXPECT_TRUE(view.expired());
  host->addSubview(std::make_shared<NSView>());
  host->subviews()[0]->removeFromSuperview();
  EXPECT_THAT(host->subviews(), IsEmpty());
}

TEST(NSView, KnowsNoSuperviewOnceThatIsGone) {
  auto host = std::make_shared<NSView>();
  const auto view = std::make_shared<NSView>();
  host->addSubview(view);
  host.reset();
  EXPECT_EQ(view->superview(), nullptr);
  EXPECT_EQ(view->convertPointToView({1, 2}, nullptr), (CGPoint{1, 2}));
  view->setFrame(CGRect::make(0, 0, 5, 5));
  view->removeFromSuperview();
}

TEST(NSView, AViewCanAddSubviewsWhileItIsConstructed) {
  struct Composite : NSView {
    Composite() { addSubview(std::make_shared<NSView>()); }
  };
  const auto composite = std::make_shared<Composite>();
  ASSERT_EQ(composite->subviews().size(), 1u);
  EXPECT_EQ(composite->subviews()[0]->superview(), composite);
}

/// Takes its superview out of the tree in everything that it can react to.
struct Removing : NSView {
  using NSView::NSView;
  void setFrameSize(CGSize size) override {
    NSView::setFrameSize(size);
    removeSuperview();
  }
  void layout() override {
    NSView::layout();
    removeSuperview();
  }
  void draw(CGContext&, CGRect) override { removeSuperview(); }
  void removeSuperview() {
    if (const auto above = superview()) above->removeFromSuperview();
  }
};

TEST(NSView, MayBeDestroyedByASubviewThatReactsToIt) {
  const auto host = std::make_shared<NSView>();
  CGNullContext context;
  const std::function<void(NSView&)> calls[] = {
      [](NSView& view) {
        view.setFrameSize({20, 20});
      },
      [](NSView& view) { view.layoutSubtreeIfNeeded(); },
      [&](NSView& view) { view.display(context); },
      [&](NSView& view) {
        view.subviews()[0]->setNeedsLayout(false);
        view.display(context);
      },
  };
  for (const auto& call : calls) {
    auto view = std::make_shared<NSView>(CGRect::make(0, 0, 10, 10));
    const auto removing = std::make_shared<Removing>(CGRect::make(0, 0, 10, 10));
    removing->setAutoresizingMask(NSAutoresizingMask::widthSizable);
    view->addSubview(removing);
    host->addSubview(view);
    NSView& unowned = *view;
    view.reset();
    call(unowned);
    EXPECT_THAT(host->subviews(), IsEmpty());
  }
}

TEST(NSView, MayTakeItselfOutOfTheTreeWhileItLaysOut) {
  struct Leaving : NSView {
    void layout() override { removeFromSuperview(); }
  };
  const auto host = std::make_shared<NSView>();
  host->addSubview(std::make_shared<Leaving>());
  host->subviews()[0]->layoutSubtreeIfNeeded();
  EXPECT_THAT(host->subviews(), IsEmpty());
}

TEST(NSView, IsADescendantOfItselfAndOfAllAboveIt) {
  const auto outer = std::make_shared<NSView>();
  const auto inner = std::make_shared<NSView>();
  outer->addSubview(inner);
  EXPECT_TRUE(inner->isDescendantOf(*inner));
  EXPECT_TRUE(inner->isDescendantOf(*outer));
  EXPECT_FALSE(outer->isDescendantOf(*inner));
}

TEST(NSView, KnowsTheWindowOfItsTree) {
  auto window = std::make_shared<NSWindow>(CGSize{10, 10});
  const auto view = std::make_shared<NSView>();
  window->contentView()->addSubview(view);
  EXPECT_EQ(view->window(), window);
  view->removeFromSuperview();
  EXPECT_EQ(view->window(), nullptr);
  const auto content = window->contentView();
  window.reset();
  EXPECT_EQ(content->window(), nullptr);
}

}  // namespace
}  // namespace vexel
