#include <AppKit/NSLayoutConstraint.h>
#include <AppKit/NSView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

TEST(NSLayoutConstraint, KeepsWhatItWasMadeWith) {
  const auto a = std::make_shared<NSView>();
  const auto b = std::make_shared<NSView>();
  const auto constraint =
      NSLayoutConstraint::constraint({.firstItem = *a,
                                      .firstAttribute = NSLayoutAttribute::top,
                                      .relation = NSLayoutRelation::greaterThanOrEqual,
                                      .secondItem = b.get(),
                                      .secondAttribute = NSLayoutAttribute::bottom,
                                      .multiplier = 0.5,
                                      .constant = -7});
  EXPECT_EQ(constraint->firstItem(), a.get());
  EXPECT_EQ(constraint->firstAttribute(), NSLayoutAttribute::top);
  EXPECT_EQ(constraint->relation(), NSLayoutRelation::greaterThanOrEqual);
  EXPECT_EQ(constraint->secondItem(), b.get());
  EXPECT_EQ(constraint->secondAttribute(), NSLayoutAttribute::bottom);
  EXPECT_TRUE(constraint->hasSecondItem());
  EXPECT_EQ(constraint->multiplier(), 0.5);
  EXPECT_EQ(constraint->constant(), -7);
  EXPECT_EQ(constraint->priority(), 1000);
  EXPECT_EQ(constraint->identifier(), std::nullopt);
}

TEST(NSLayoutConstraint, IsAnEquationWithAConstantUnlessSaid) {
  const auto view = std::make_shared<NSView>();
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *view, .firstAttribute = NSLayoutAttribute::width});
  EXPECT_EQ(constraint->relation(), NSLayoutRelation::equal);
  EXPECT_EQ(constraint->secondItem(), nullptr);
  EXPECT_FALSE(constraint->hasSecondItem());
  EXPECT_EQ(constraint->secondAttribute(), NSLayoutAttribute::notAnAttribute);
  EXPECT_EQ(constraint->multiplier(), 1);
  EXPECT_EQ(constraint->constant(), 0);
}

TEST(NSLayoutConstraint, RelationsHaveTheirNumbers) {
  EXPECT_EQ(static_cast<int>(NSLayoutRelation::lessThanOrEqual), -1);
  EXPECT_EQ(static_cast<int>(NSLayoutRelation::equal), 0);
  EXPECT_EQ(static_cast<int>(NSLayoutRelation::greaterThanOrEqual), 1);
}

TEST(NSLayoutConstraint, PriorityStaysBetweenOneAndAThousand) {
  const auto view = std::make_shared<NSView>();
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *view, .firstAttribute = NSLayoutAttribute::width});
  constraint->setPriority(750);
  constraint->setPriority(kNaN);
  EXPECT_EQ(constraint->priority(), 750);
  constraint->setPriority(0);
  EXPECT_EQ(constraint->priority(), 1);
  constraint->setPriority(1e30f);
  EXPECT_EQ(constraint->priority(), 1000);
}

TEST(NSLayoutConstraint, IsFoundByItsIdentifier) {
  const auto host = std::make_shared<NSView>();
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *host, .firstAttribute = NSLayoutAttribute::width});
  constraint->setIdentifier("hostingView2HeightConstraint");
  host->addConstraint(constraint);
  EXPECT_EQ(host->constraints()[0]->identifier(), "hostingView2HeightConstraint");
  constraint->setIdentifier(std::nullopt);
  EXPECT_FALSE(host->constraints()[0]->identifier());
}

TEST(NSLayoutConstraint, KnowsNoItemOnceThatIsGone) {
  auto a = std::make_shared<NSView>();
  auto b = std::make_shared<NSView>();
  const auto constraint =
      NSLayoutConstraint::constraint({.firstItem = *a,
                                      .firstAttribute = NSLayoutAttribute::left,
                                      .secondItem = b.get(),
                                      .secondAttribute = NSLayoutAttribute::right});
  a.reset();
  EXPECT_EQ(constraint->firstItem(), nullptr);
  EXPECT_NE(constraint->secondItem(), nullptr);
  b.reset();
  EXPECT_EQ(constraint->secondItem(), nullptr);
  EXPECT_TRUE(constraint->hasSecondItem());
  constraint->setConstant(3);
}

TEST(NSLayoutConstraint, IsHeldOnceInTheOrderOfAddition) {
  const auto host = std::make_shared<NSView>();
  const auto make = [&] {
    return NSLayoutConstraint::constraint(
        {.firstItem = *host, .firstAttribute = NSLayoutAttribute::width});
  };
  const auto a = make(), b = make();
  host->addConstraint(nullptr);
  host->addConstraint(a);
  host->addConstraint(b);
  host->addConstraint(a);
  EXPECT_THAT(host->constraints(), ElementsAre(a, b));
  host->removeConstraint(*a);
  host->removeConstraint(*a);
  EXPECT_THAT(host->constraints(), ElementsAre(b));
  host->addConstraint(a);
  EXPECT_THAT(host->constraints(), ElementsAre(b, a));
}

TEST(NSLayoutConstraint, MovesToTheViewThatItIsAddedToLast) {
  const auto first = std::make_shared<NSView>();
  const auto second = std::make_shared<NSView>();
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *first, .firstAttribute = NSLayoutAttribute::width});
  first->addConstraint(constraint);
  second->addConstraint(constraint);
  EXPECT_THAT(first->constraints(), IsEmpty());
  EXPECT_THAT(second->constraints(), ElementsAre(constraint));
}

TEST(NSLayoutConstraint, LeavesTheSuperviewTogetherWithAViewThatItNames) {
  const auto host = std::make_shared<NSView>();
  const auto a = std::make_shared<NSView>();
  const auto b = std::make_shared<NSView>();
  host->addSubview(a);
  host->addSubview(b);
  const auto add = [&](NSView& first, NSView* second) {
    const auto constraint =
        NSLayoutConstraint::constraint({.firstItem = first,
                                        .firstAttribute = NSLayoutAttribute::left,
                                        .secondItem = second,
                                        .secondAttribute = NSLayoutAttribute::left});
    host->addConstraint(constraint);
    return constraint;
  };
  add(*a, host.get());
  add(*b, a.get());
  const auto stays = add(*b, host.get());
  a->removeFromSuperview();
  EXPECT_THAT(host->constraints(), ElementsAre(stays));
}

TEST(NSLayoutConstraint, ChangesMarkTheHostForLayout) {
  const auto host = std::make_shared<NSView>();
  const auto constraint = NSLayoutConstraint::constraint(
      {.firstItem = *host, .firstAttribute = NSLayoutAttribute::width});
  const auto marks = [&](auto&& change) {
    host->layoutSubtreeIfNeeded();
    EXPECT_FALSE(host->needsLayout());
    change();
    return host->needsLayout();
  };
  EXPECT_TRUE(marks([&] { host->addConstraint(constraint); }));
  EXPECT_TRUE(marks([&] { constraint->setConstant(1); }));
  EXPECT_FALSE(marks([&] { constraint->setConstant(1); }));
  EXPECT_TRUE(marks([&] { constraint->setPriority(1); }));
  EXPECT_FALSE(marks([&] { constraint->setPriority(0.5); }));
  EXPECT_TRUE(marks([&] { host->removeConstraint(*constraint); }));
  EXPECT_FALSE(marks([&] { constraint->setConstant(2); }));
}

}  // namespace
}  // namespace vexel
