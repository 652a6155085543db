#include <AppKit/NSView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace vexel {
namespace {

using enum NSLayoutAttribute;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr auto kAtMost = NSLayoutRelation::lessThanOrEqual;
constexpr auto kAtLeast = NSLayoutRelation::greaterThanOrEqual;

/// A host of 200 x 100 with two subviews that constraints place.
class NSViewLayout : public testing::Test {
 protected:
  NSViewLayout() {
    for (const auto& view : {a, b}) {
      view->setTranslatesAutoresizingMaskIntoConstraints(false);
      host->addSubview(view);
    }
  }

  std::shared_ptr<NSLayoutConstraint> add(const NSLayoutConstraintArguments& arguments,
                                          float priority = 1000) {
    auto constraint = NSLayoutConstraint::constraint(arguments);
    constraint->setPriority(priority);
    host->addConstraint(constraint);
    return constraint;
  }

  std::shared_ptr<NSView> host = std::make_shared<NSView>(CGRect::make(5, 6, 200, 100));
  std::shared_ptr<NSView> a = std::make_shared<NSView>(CGRect::make(1, 2, 30, 40));
  std::shared_ptr<NSView> b = std::make_shared<NSView>(CGRect::make(3, 4, 50, 60));
};

TEST_F(NSViewLayout, IgnoresConstraintsThatSayNothing) {
  const auto stranger = std::make_shared<NSView>(CGRect::make(7, 7, 7, 7));
  const auto deep = std::make_shared<NSView>();
  a->addSubview(deep);
  auto gone = std::make_shared<NSView>();
  add({.firstItem = *a, .firstAttribute = width, .constant = kNaN});
  add({.firstItem = *a, .firstAttribute = width, .constant = kInfinity});
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = host.get(),
       .secondAttribute = width,
       .multiplier = kNaN});
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = host.get(),
       .secondAttribute = width,
       .multiplier = 1e308});
  add({.firstItem = *a, .firstAttribute = notAnAttribute, .constant = 9});
  add({.firstItem = *a, .firstAttribute = width, .secondItem = host.get()});
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = stranger.get(),
       .secondAttribute = width});
  add({.firstItem = *stranger,
       .firstAttribute = width,
       .secondItem = a.get(),
       .secondAttribute = width});
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = gone.get(),
       .secondAttribute = width});
  add({.firstItem = *deep, .firstAttribute = width, .constant = 8});
  add({.firstItem = *host, .firstAttribute = width, .constant = 8});
  gone.reset();
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(host->frame(), CGRect::make(5, 6, 200, 100));
  EXPECT_EQ(a->frame(), CGRect::make(1, 2, 30, 40));
  EXPECT_EQ(b->frame(), CGRect::make(3, 4, 50, 60));
  EXPECT_EQ(stranger->frame(), CGRect::make(7, 7, 7, 7));
  EXPECT_EQ(deep->frame(), CGRect{});
}

struct AttributeCase {
  const char* what;
  NSLayoutAttribute first;
  NSLayoutAttribute second;
  double multiplier;
  double constant;
  CGRect frame;
};

// The view is 30 x 40 at (1, 2), the host 200 x 100.
TEST_F(NSViewLayout, AttributesAreMeasuredFromTheLeftAndDownFromTheTop) {
  const AttributeCase cases[] = {
      {"left", left, width, 0.25, 0, CGRect::make(50, 2, 30, 40)},
      {"left to left", left, left, 3, 7, CGRect::make(7, 2, 30, 40)},
      {"right", right, right, 1, -10, CGRect::make(160, 2, 30, 40)},
      {"center x", centerX, centerX, 1, 0, CGRect::make(85, 2, 30, 40)},
      {"width", width, width, 0.5, 1, CGRect::make(1, 2, 101, 40)},
      {"top to the host's bottom", top, bottom, 0.25, 0, CGRect::make(1, 35, 30, 40)},
      {"top to top", top, top, 1, 0, CGRect::make(1, 60, 30, 40)},
      {"top moved down", top, top, 1, 10, CGRect::make(1, 50, 30, 40)},
      {"bottom", bottom, bottom, 1, 0, CGRect::make(1, 0, 30, 40)},
      {"bottom moved up", bottom, bottom, 1, -15, CGRect::make(1, 15, 30, 40)},
      {"center y", centerY, centerY, 1, 0, CGRect::make(1, 30, 30, 40)},
      {"center y moved down", centerY, centerY, 1, 5, CGRect::make(1, 25, 30, 40)},
      {"height", height, height, 0.75, 0, CGRect::make(1, 2, 30, 75)},
      {"height as wide as the host", height, width, 1, 0, CGRect::make(1, 2, 30, 200)},
  };
  for (const auto& c : cases) {
    a->setFrame(CGRect::make(1, 2, 30, 40));
    const auto constraint = add({.firstItem = *a,
                                 .firstAttribute = c.first,
                                 .secondItem = host.get(),
                                 .secondAttribute = c.second,
                                 .multiplier = c.multiplier,
                                 .constant = c.constant});
    host->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame(), c.frame) << c.what;
    host->removeConstraint(*constraint);
  }
}

TEST_F(NSViewLayout, ScrollingTheHostLeavesTheFrames) {
  add({.firstItem = *a, .firstAttribute = left, .constant = 10});
  host->setBoundsOrigin({100, 100});
  host->setFrameSize({300, 100});
  EXPECT_EQ(a->frame().origin, (CGPoint{10, 2}));
}

TEST_F(NSViewLayout, AWidthIsNeverNegative) {
  add({.firstItem = *a, .firstAttribute = width, .constant = -10});
  add({.firstItem = *b, .firstAttribute = left, .constant = 50});
  add({.firstItem = *b, .firstAttribute = right, .constant = 20});
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size.width, 0);
  EXPECT_EQ(b->frame().origin.x, 50);
  EXPECT_EQ(b->frame().size.width, 0);
}

TEST_F(NSViewLayout, ViewsMayDependOnEachOther) {
  add({.firstItem = *a, .firstAttribute = left, .constant = 10});
  add({.firstItem = *b,
       .firstAttribute = left,
       .secondItem = a.get(),
       .secondAttribute = right,
       .constant = 8});
  add({.firstItem = *b,
       .firstAttribute = right,
       .secondItem = host.get(),
       .secondAttribute = right,
       .constant = -10});
  add({.firstItem = *a, .firstAttribute = width, .secondItem = b.get(), .secondAttribute = width});
  host->layoutSubtreeIfNeeded();
  EXPECT_DOUBLE_EQ(a->frame().size.width, 86);
  EXPECT_DOUBLE_EQ(b->frame().origin.x, 104);
  EXPECT_DOUBLE_EQ(b->frame().size.width, 86);
}

TEST_F(NSViewLayout, AViewThatConstraintsDoNotPlaceCountsWithItsFrame) {
  a->setTranslatesAutoresizingMaskIntoConstraints(true);
  add({.firstItem = *b, .firstAttribute = left, .secondItem = a.get(), .secondAttribute = right});
  add({.firstItem = *a, .firstAttribute = width, .constant = 77});
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame(), CGRect::make(1, 2, 30, 40));
  EXPECT_EQ(b->frame().origin.x, 31);
  a->setFrameOrigin({21, 2});
  EXPECT_TRUE(host->needsLayout());
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(b->frame().origin.x, 51);
}

TEST_F(NSViewLayout, AViewMovedByHandReturnsAtTheNextLayout) {
  add({.firstItem = *a, .firstAttribute = left, .constant = 10});
  host->layoutSubtreeIfNeeded();
  a->setFrameOrigin({50, 60});
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().origin, (CGPoint{10, 60}));
}

TEST_F(NSViewLayout, ConstraintsOfAViewAboutItselfCount) {
  a->addConstraint(
      NSLayoutConstraint::constraint({.firstItem = *a, .firstAttribute = height, .constant = 10}));
  a->addConstraint(NSLayoutConstraint::constraint({.firstItem = *a,
                                                   .firstAttribute = width,
                                                   .secondItem = a.get(),
                                                   .secondAttribute = height,
                                                   .multiplier = 2}));
  EXPECT_TRUE(host->needsLayout());
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size, (CGSize{20, 10}));
  a->constraints()[0]->setConstant(15);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size, (CGSize{30, 15}));
}

TEST_F(NSViewLayout, LowerPrioritiesGiveWayInAnyOrderOfAddition) {
  for (const bool weakFirst : {true, false}) {
    std::vector<std::shared_ptr<NSLayoutConstraint>> added;
    for (const bool weak : {weakFirst, !weakFirst})
      added.push_back(add({.firstItem = *a, .firstAttribute = width, .constant = weak ? 10.0 : 20},
                          weak ? 750 : 751));
    host->layoutSubtreeIfNeeded();
    EXPECT_EQ(a->frame().size.width, 20);
    for (const auto& constraint : added) host->removeConstraint(*constraint);
  }
}

TEST_F(NSViewLayout, ChangingAPriorityDecidesAnew) {
  const auto ten = add({.firstItem = *a, .firstAttribute = width, .constant = 10}, 250);
  add({.firstItem = *a, .firstAttribute = width, .constant = 20}, 500);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size.width, 20);
  ten->setPriority(750);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size.width, 10);
}

TEST_F(NSViewLayout, ContradictoryRequiredConstraintsKeepTheEarlier) {
  add({.firstItem = *a, .firstAttribute = width, .constant = 10});
  add({.firstItem = *a, .firstAttribute = width, .constant = 20});
  add({.firstItem = *a, .firstAttribute = width, .relation = kAtLeast, .constant = 30});
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size.width, 10);
}

TEST_F(NSViewLayout, InequalitiesBoundWhatAWeakerEquationWants) {
  add({.firstItem = *a, .firstAttribute = width, .relation = kAtMost, .constant = 120});
  add({.firstItem = *a, .firstAttribute = width, .relation = kAtLeast, .constant = 40});
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = host.get(),
       .secondAttribute = width,
       .multiplier = 0.5},
      500);
  const std::pair<double, double> cases[] = {{0, 40}, {60, 40}, {200, 100}, {1000, 120}, {100, 50}};
  for (const auto& [hostWidth, expected] : cases) {
    host->setFrameSize({hostWidth, 100});
    EXPECT_DOUBLE_EQ(a->frame().size.width, expected) << hostWidth;
  }
}

/// Has content of 70 x 20.
class ContentView : public NSView {
 public:
  std::optional<CGSize> intrinsicContentSize() const override { return content; }
  CGSize content{70, 20};
};

TEST_F(NSViewLayout, AViewResistsBeingSmallerThanItsContent) {
  const auto view = std::make_shared<ContentView>();
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(view);
  add({.firstItem = *view, .firstAttribute = width, .constant = 50}, 500);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{70, 20}));
  view->setContentCompressionResistancePriority(250, NSLayoutConstraintOrientation::horizontal);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{50, 20}));
  view->content = {1, 33};
  view->invalidateIntrinsicContentSize();
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->frame().size, (CGSize{50, 33}));
}

TEST_F(NSViewLayout, CompressionResistanceHasAPriorityPerDirection) {
  const auto get = [&](int orientation) {
    return a->contentCompressionResistancePriority(
        static_cast<NSLayoutConstraintOrientation>(orientation));
  };
  EXPECT_EQ(get(0), 750);
  EXPECT_EQ(get(1), 750);
  a->setContentCompressionResistancePriority(250, NSLayoutConstraintOrientation::vertical);
  EXPECT_EQ(get(0), 750);
  EXPECT_EQ(get(1), 250);
  a->setContentCompressionResistancePriority(std::nanf(""),
                                             NSLayoutConstraintOrientation::vertical);
  EXPECT_EQ(get(1), 250);
  a->setContentCompressionResistancePriority(2000, NSLayoutConstraintOrientation::horizontal);
  EXPECT_EQ(get(0), 1000);
}

TEST_F(NSViewLayout, IsDoneAtOnceWhenTheHostIsResizedAndOtherwiseBeforeDisplay) {
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = host.get(),
       .secondAttribute = width});
  EXPECT_EQ(a->frame().size.width, 30);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(a->frame().size.width, 200);
  host->setFrameSize({300, 100});
  EXPECT_EQ(a->frame().size.width, 300);
}

TEST_F(NSViewLayout, IsIdempotent) {
  add({.firstItem = *a, .firstAttribute = width, .constant = 10}, 500);
  add({.firstItem = *a, .firstAttribute = width, .constant = 90}, 500);
  add({.firstItem = *a,
       .firstAttribute = centerY,
       .secondItem = host.get(),
       .secondAttribute = centerY,
       .multiplier = 1.0 / 3});
  host->layoutSubtreeIfNeeded();
  const CGRect once = a->frame();
  for (int i = 0; i < 10; ++i) {
    host->setNeedsLayout(true);
    a->invalidateIntrinsicContentSize();
    host->layoutSubtreeIfNeeded();
  }
  EXPECT_EQ(a->frame(), once);
}

TEST_F(NSViewLayout, CallsLayoutOncePerMark) {
  struct Counting : NSView {
    void layout() override {
      NSView::layout();
      ++count;
    }
    int count = 0;
  };
  const auto view = std::make_shared<Counting>();
  host->addSubview(view);
  host->layoutSubtreeIfNeeded();
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->count, 1);
  view->setFrameSize({1, 1});
  EXPECT_EQ(view->count, 1);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->count, 2);
  view->setNeedsLayout(true);
  view->setNeedsLayout(false);
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(view->count, 2);
}

TEST_F(NSViewLayout, LeavesNothingToDoInATreeThatResizesItselfOnAllLevels) {
  const auto inner = std::make_shared<NSView>(CGRect::make(0, 0, 10, 10));
  inner->setAutoresizingMask(NSAutoresizingMask::widthSizable);
  a->addSubview(inner);
  add({.firstItem = *a,
       .firstAttribute = width,
       .secondItem = host.get(),
       .secondAttribute = width});
  host->layoutSubtreeIfNeeded();
  EXPECT_EQ(inner->frame().size.width, 180);
  EXPECT_FALSE(host->needsLayout());
  EXPECT_FALSE(a->needsLayout());
  EXPECT_FALSE(inner->needsLayout());
}

TEST_F(NSViewLayout, AHostMayBeResizedByTheViewItPlaces) {
  struct Pushing : NSView {
    void setFrameSize(CGSize size) override {
      NSView::setFrameSize(size);
      if (const auto above = superview(); above && above->frame().size.width < 400)
        above->setFrameSize({400, 100});
    }
  };
  const auto pushing = std::make_shared<Pushing>();
  pushing->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(pushing);
  const auto last = std::make_shared<NSView>();
  last->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(last);
  for (const auto& view : {std::shared_ptr<NSView>(pushing), last})
    add({.firstItem = *view,
         .firstAttribute = width,
         .secondItem = host.get(),
         .secondAttribute = width});
  host->setFrameSize({300, 100});
  EXPECT_EQ(pushing->frame().size.width, 400);
  EXPECT_EQ(last->frame().size.width, 400);
}

TEST_F(NSViewLayout, ViewsMayBeRemovedWhileTheyArePlaced) {
  struct Reacting : NSView {
    void setFrameSize(CGSize size) override {
      NSView::setFrameSize(size);
      if (react) react();
    }
    std::function<void()> react;
  };
  const auto reacting = std::make_shared<Reacting>();
  reacting->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(reacting);
  host->addSubview(a);
  for (const auto& view : {std::shared_ptr<NSView>(reacting), a})
    add({.firstItem = *view,
         .firstAttribute = width,
         .secondItem = host.get(),
         .secondAttribute = width});
  reacting->react = [this] {
    for (const auto& view : std::vector(host->subviews())) view->removeFromSuperview();
  };
  host->setFrameSize({300, 100});
  EXPECT_TRUE(host->subviews().empty());
  EXPECT_TRUE(host->constraints().empty());
  EXPECT_EQ(a->frame().size.width, 30);
}

// Bands stacked from the bottom, each a share of the host

/// What the constraints of a stack of bands are made of: shares of the host's height.
struct Stack {
  std::vector<double> topShares;
  std::vector<double> heightShares;
};

Stack stackOf(int count, double hostHeight, double paddingTop, double paddingBottom) {
  const double plain = (hostHeight - paddingTop - paddingBottom) / count;
  Stack stack;
  double sum = 0;
  for (int i = 0; i < count; ++i) {
    double height = plain;
    if (i == 0)
      height += paddingBottom;
    else if (i == count - 1)
      height += paddingTop;
    sum += height;
    stack.topShares.push_back(1 - sum / hostHeight);
    stack.heightShares.push_back(height / hostHeight);
  }
  return stack;
}

void pin(NSView& host, const std::shared_ptr<NSView>& band, double topShare, double heightShare) {
  band->setTranslatesAutoresizingMaskIntoConstraints(false);
  host.addSubview(band);
  const auto add = [&](NSLayoutAttribute first, NSLayoutAttribute second, double multiplier) {
    const auto constraint = NSLayoutConstraint::constraint({.firstItem = *band,
                                                            .firstAttribute = first,
                                                            .secondItem = &host,
                                                            .secondAttribute = second,
                                                            .multiplier = multiplier});
    constraint->setPriority(750);
    host.addConstraint(constraint);
  };
  const bool isBelowTop = topShare > 0;
  add(top, isBelowTop ? bottom : top, isBelowTop ? topShare : 1);
  add(left, left, 1);
  add(height, height, heightShare);
  add(width, width, 1);
}

RC_GTEST_PROP(NSView, ProportionalBandsFollowTheClosedFormulaThroughAnyResizing, ()) {
  const int count = *rc::gen::inRange(1, 51);
  const auto length = [] { return *rc::gen::inRange(1, 10001) + *rc::gen::inRange(0, 8) / 8.0; };
  const CGSize first{length(), length()};
  const double paddingTop = first.height * *rc::gen::inRange(0, 40) / 100;
  const double paddingBottom = first.height * *rc::gen::inRange(0, 40) / 100;
  const auto host = std::make_shared<NSView>(CGRect{{}, first});
  const auto stack = stackOf(count, first.height, paddingTop, paddingBottom);
  for (int i = 0; i < count; ++i)
    pin(*host, std::make_shared<NSView>(), stack.topShares[i], stack.heightShares[i]);
  host->layoutSubtreeIfNeeded();

  for (int resizing = 0; resizing < 5; ++resizing) {
    const CGSize size = host->bounds().size;
    double sum = 0;
    for (int i = 0; i < count; ++i) {
      const double plain = (first.height - paddingTop - paddingBottom) / count;
      const double here =
          plain + (i == 0 ? paddingBottom : 0) + (i == count - 1 && count > 1 ? paddingTop : 0);
      const double scale = size.height / first.height;
      const CGRect frame = host->subviews()[i]->frame();
      RC_ASSERT(frame.origin.x == 0);
      RC_ASSERT(frame.size.width == size.width);
      RC_ASSERT(std::abs(frame.size.height - here * scale) <= 1e-9 * here * scale);
      RC_ASSERT(std::abs(frame.origin.y - sum * scale) <= 1e-9 * size.height);
      sum += here;
    }
    host->setFrameSize({length(), length()});
  }
}

TEST(NSView, ProportionalBandsSurviveAHostOfNoSize) {
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 400));
  const auto stack = stackOf(3, 400, 20, 30);
  for (int i = 0; i < 3; ++i)
    pin(*host, std::make_shared<NSView>(), stack.topShares[i], stack.heightShares[i]);
  for (const double length : {0.0, kNaN, -5.0, 1e308, 1e-308, 400.0})
    host->setFrameSize({length, length});
  EXPECT_NEAR(host->subviews()[0]->frame().size.height, 146 + 2.0 / 3, 1e-9);
  EXPECT_NEAR(host->subviews()[1]->frame().origin.y, 146 + 2.0 / 3, 1e-9);
  EXPECT_NEAR(host->subviews()[2]->frame().maxY(), 400, 1e-9);
}

TEST(NSView, ConstraintsMadeOfAnEmptyHostLeaveTheBandsWhereTheyAre) {
  const auto host = std::make_shared<NSView>();
  const auto stack = stackOf(2, 0, 0, 0);
  for (int i = 0; i < 2; ++i)
    pin(*host, std::make_shared<NSView>(), stack.topShares[i], stack.heightShares[i]);
  host->setFrameSize({100, 50});
  EXPECT_EQ(host->subviews()[1]->frame().size, (CGSize{100, 0}));
}

RC_GTEST_PROP(NSView, BandsInAChainFillTheHostLikeProportionalOnes, ()) {
  const int count = *rc::gen::inRange(1, 51);
  const double hostHeight = *rc::gen::inRange(1, 10001);
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 10, 10));
  NSView* below = nullptr;
  const auto add = [&](NSView& first, NSLayoutAttribute firstAttribute, NSView& second,
                       NSLayoutAttribute secondAttribute) {
    host->addConstraint(NSLayoutConstraint::constraint({.firstItem = first,
                                                        .firstAttribute = firstAttribute,
                                                        .secondItem = &second,
                                                        .secondAttribute = secondAttribute}));
  };
  for (int i = 0; i < count; ++i) {
    const auto band = std::make_shared<NSView>();
    band->setTranslatesAutoresizingMaskIntoConstraints(false);
    host->addSubview(band);
    add(*band, bottom, below ? *below : *host, below ? top : bottom);
    if (below) add(*band, height, *below, height);
    below = band.get();
  }
  add(*below, top, *host, top);
  host->setFrameSize({10, hostHeight});
  host->layoutSubtreeIfNeeded();
  for (int i = 0; i < count; ++i) {
    const CGRect frame = host->subviews()[i]->frame();
    RC_ASSERT(std::abs(frame.size.height - hostHeight / count) <= 1e-9 * hostHeight);
    RC_ASSERT(std::abs(frame.origin.y - i * hostHeight / count) <= 1e-9 * hostHeight);
  }
}

}  // namespace
}  // namespace vexel
