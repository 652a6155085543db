#include <AppKit/NSView.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Notes the sizes it is asked to take.
class SizeProbe : public NSView {
 public:
  using NSView::NSView;
  void setFrameSize(CGSize size) override {
    NSView::setFrameSize(size);
    sizes.push_back(size);
  }
  std::vector<CGSize> sizes;
};

struct FrameCase {
  CGRect asked;
  CGRect got;
};

TEST(NSView, FramesThatAreNoneAreBroughtToOneThatIs) {
  const FrameCase cases[] = {
      {CGRect::make(kNaN, 1, 2, 3), CGRect::make(0, 1, 2, 3)},
      {CGRect::make(1, -kInfinity, 2, 3), CGRect::make(1, 0, 2, 3)},
      {CGRect::make(1, 2, kNaN, 3), CGRect::make(1, 2, 0, 3)},
      {CGRect::make(1, 2, 3, kInfinity), CGRect::make(1, 2, 3, 0)},
      {CGRect::make(1, 2, -3, -4), CGRect::make(1, 2, 0, 0)},
      {CGRect::make(-1e308, 1e308, 1e308, 1e-308), CGRect::make(-1e308, 1e308, 1e308, 1e-308)},
      {CGRect::make(1, 2, 3, 4), CGRect::make(1, 2, 3, 4)},
  };
  for (const auto& [asked, got] : cases) {
    EXPECT_EQ(std::make_shared<NSView>(asked)->frame(), got);
    const auto view = std::make_shared<NSView>(CGRect::make(9, 9, 9, 9));
    view->setFrame(asked);
    EXPECT_EQ(view->frame(), got);
  }
}

TEST(NSView, MovingAViewKeepsItsBoundsOrigin) {
  const auto view = std::make_shared<NSView>(CGRect::make(1, 2, 30, 40));
  view->setFrameOrigin({5, 6});
  EXPECT_EQ(view->frame(), CGRect::make(5, 6, 30, 40));
  EXPECT_EQ(view->bounds(), CGRect::make(0, 0, 30, 40));
  view->setBoundsOrigin({7, 8});
  view->setFrame(CGRect::make(0, 0, 50, 60));
  EXPECT_EQ(view->bounds(), CGRect::make(7, 8, 50, 60));
  view->setBoundsOrigin({kNaN, 1});
  EXPECT_EQ(view->bounds().origin, (CGPoint{0, 1}));
}

TEST(NSView, EveryChangeOfSizePassesThroughSetFrameSize) {
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto byMask = std::make_shared<SizeProbe>(CGRect::make(0, 0, 100, 50));
  const auto byConstraint = std::make_shared<SizeProbe>();
  byMask->setAutoresizingMask(NSAutoresizingMask::widthSizable);
  byConstraint->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(byMask);
  host->addSubview(byConstraint);
  host->addConstraint(NSLayoutConstraint::constraint({.firstItem = *byConstraint,
                                                      .firstAttribute = NSLayoutAttribute::width,
                                                      .secondItem = host.get(),
                                                      .secondAttribute = NSLayoutAttribute::width,
                                                      .multiplier = 0.5}));
  host->setFrame(CGRect::make(0, 0, 200, 100));
  EXPECT_THAT(byMask->sizes, testing::ElementsAre(CGSize{200, 50}));
  EXPECT_THAT(byConstraint->sizes, testing::ElementsAre(CGSize{100, 0}));
  byMask->setFrame(CGRect::make(0, 0, 1, 2));
  EXPECT_EQ(byMask->sizes.back(), (CGSize{1, 2}));
}

TEST(NSView, MayBeRemovedByItsOwnerWhileItIsResized) {
  struct Vanishing : NSView {
    using NSView::NSView;
    void setFrameSize(CGSize size) override {
      removeFromSuperview();
      NSView::setFrameSize(size);
    }
  };
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  for (int i = 0; i < 2; ++i) {
    host->addSubview(std::make_shared<Vanishing>(CGRect::make(0, 0, 10, 10)));
    host->subviews()[i]->setAutoresizingMask(NSAutoresizingMask::widthSizable);
  }
  host->setFrameSize({200, 100});
  EXPECT_TRUE(host->subviews().empty());
}

// Autoresizing

struct AutoresizingCase {
  const char* what;
  NSAutoresizingMask mask;
  double origin, size;  // in a superview of length 100
  double now;           // its new length
  double newOrigin, newSize;
};

TEST(NSView, FlexiblePartsShareAChangeOfTheSuperview) {
  using enum NSAutoresizingMask;
  const AutoresizingCase cases[] = {
      {"no room left", widthSizable, 10, 20, 0, 10, 0},
      {"all flexible parts 0", minXMargin | widthSizable, 0, 0, 200, 50, 50},
      {"a margin below 0 counts as 0", minXMargin | widthSizable, -10, 20, 200, -10, 120},
      {"both margins below 0", minXMargin | maxXMargin, -10, 120, 200, 40, 120},
      {"huge", widthSizable, 10, 20, 1e308, 10, 1e308},
      {"no flag", none, 10, 20, 200, 10, 20},
      {"lower margin", minXMargin, 10, 20, 200, 110, 20},
      {"size", widthSizable, 10, 20, 200, 10, 120},
      {"upper margin", maxXMargin, 10, 20, 200, 10, 20},
      {"lower margin and size", minXMargin | widthSizable, 10, 40, 200, 30, 120},
      {"size and upper margin", widthSizable | maxXMargin, 10, 20, 190, 10, 40},
      {"both margins", minXMargin | maxXMargin, 10, 60, 200, 35, 60},
      {"everything", minXMargin | widthSizable | maxXMargin, 10, 20, 200, 20, 40},
      {"shrinking", widthSizable, 10, 60, 80, 10, 40},
  };
  for (const auto& c : cases) {
    const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
    const auto wide = std::make_shared<NSView>(CGRect::make(c.origin, 3, c.size, 4));
    const auto tall = std::make_shared<NSView>(CGRect::make(3, c.origin, 4, c.size));
    wide->setAutoresizingMask(c.mask);
    tall->setAutoresizingMask(static_cast<NSAutoresizingMask>(static_cast<unsigned>(c.mask) * 8));
    host->addSubview(wide);
    host->addSubview(tall);
    host->setFrameSize({c.now, c.now});
    EXPECT_EQ(wide->frame(), CGRect::make(c.newOrigin, 3, c.newSize, 4)) << c.what;
    EXPECT_EQ(tall->frame(), CGRect::make(3, c.newOrigin, 4, c.newSize)) << c.what;
  }
}

RC_GTEST_PROP(NSView, FlexiblePartsKeepTheirProportions, ()) {
  const auto part = [] { return *rc::gen::inRange(1, 1000) / 8.0; };
  const double lower = part(), size = part(), upper = part(), now = part() * 10;
  const bool flexible[] = {*rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>(),
                           *rc::gen::arbitrary<bool>()};
  RC_PRE(flexible[0] || flexible[1] || flexible[2]);
  auto mask = NSAutoresizingMask::none;
  if (flexible[0]) mask = mask | NSAutoresizingMask::minXMargin;
  if (flexible[1]) mask = mask | NSAutoresizingMask::widthSizable;
  if (flexible[2]) mask = mask | NSAutoresizingMask::maxXMargin;

  const double before = lower + size + upper;
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, before, 10));
  const auto view = std::make_shared<NSView>(CGRect::make(lower, 0, size, 10));
  view->setAutoresizingMask(mask);
  host->addSubview(view);
  host->setFrameSize({now, 10});

  const double old[] = {lower, size, upper};
  double room = now;
  double flexibleLength = 0;
  for (int i = 0; i < 3; ++i)
    (flexible[i] ? flexibleLength : room) += flexible[i] ? old[i] : -old[i];
  RC_PRE(room >= 0);
  double expected[3];
  for (int i = 0; i < 3; ++i) expected[i] = flexible[i] ? old[i] * room / flexibleLength : old[i];
  RC_ASSERT(std::abs(view->frame().origin.x - expected[0]) < 1e-9);
  RC_ASSERT(std::abs(view->frame().size.width - expected[1]) < 1e-9);
}

TEST(NSView, LeavesSubviewsAloneWhenItDoesNotAutoresizeThem) {
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto view = std::make_shared<NSView>(CGRect::make(0, 0, 50, 50));
  view->setAutoresizingMask(NSAutoresizingMask::widthSizable);
  host->addSubview(view);
  host->setAutoresizesSubviews(false);
  host->setFrameSize({200, 200});
  EXPECT_EQ(view->frame(), CGRect::make(0, 0, 50, 50));
}

TEST(NSView, AMaskHasNoEffectOnAViewPlacedByConstraints) {
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto view = std::make_shared<NSView>(CGRect::make(0, 0, 50, 50));
  view->setAutoresizingMask(NSAutoresizingMask::widthSizable);
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  host->addSubview(view);
  host->setFrameSize({200, 200});
  EXPECT_EQ(view->frame(), CGRect::make(0, 0, 50, 50));
}

TEST(NSView, AutoresizingReachesAllLevels) {
  const auto sizable = NSAutoresizingMask::widthSizable | NSAutoresizingMask::heightSizable;
  const auto host = std::make_shared<NSView>(CGRect::make(0, 0, 100, 100));
  const auto middle = std::make_shared<NSView>(CGRect::make(10, 10, 80, 80));
  const auto inner = std::make_shared<NSView>(CGRect::make(5, 5, 70, 70));
  middle->setAutoresizingMask(sizable);
  inner->setAutoresizingMask(sizable);
  host->addSubview(middle);
  middle->addSubview(inner);
  host->setFrameSize({110, 130});
  EXPECT_EQ(inner->frame(), CGRect::make(5, 5, 80, 100));
}

// Conversion of points

TEST(NSView, ConvertsPointsThroughFramesAndBounds) {
  const auto root = std::make_shared<NSView>(CGRect::make(1, 2, 1000, 1000));
  const auto view = std::make_shared<NSView>(CGRect::make(10, 20, 100, 100));
  root->addSubview(view);
  view->setBoundsOrigin({3, 4});
  EXPECT_EQ(view->convertPointFromView({15, 25}, root.get()), (CGPoint{8, 9}));
  EXPECT_EQ(view->convertPointToView({8, 9}, root.get()), (CGPoint{15, 25}));
  EXPECT_EQ(root->convertPointFromView({8, 9}, view.get()), (CGPoint{15, 25}));
  EXPECT_EQ(view->convertPointFromView({16, 27}, nullptr), (CGPoint{8, 9}));
  EXPECT_EQ(view->convertPointToView({8, 9}, nullptr), (CGPoint{16, 27}));
  EXPECT_EQ(view->convertPointFromView({8, 9}, view.get()), (CGPoint{8, 9}));
}

TEST(NSView, TakesTheRootsOfDifferentTreesToStandInTheSamePlace) {
  const auto a = std::make_shared<NSView>(CGRect::make(1, 2, 10, 10));
  const auto b = std::make_shared<NSView>(CGRect::make(10, 20, 10, 10));
  EXPECT_EQ(b->convertPointFromView({100, 100}, a.get()), (CGPoint{91, 82}));
}

TEST(NSView, ConvertsThroughTheNearestCommonAncestorWithoutLossToFarOrigins) {
  const auto root = std::make_shared<NSView>(CGRect::make(1e17, 1e17, 10, 10));
  const auto a = std::make_shared<NSView>(CGRect::make(1, 2, 10, 10));
  const auto b = std::make_shared<NSView>(CGRect::make(3, 5, 10, 10));
  root->addSubview(a);
  root->addSubview(b);
  EXPECT_EQ(b->convertPointFromView({0.5, 0.5}, a.get()), (CGPoint{-1.5, -2.5}));
}

/// A tree of views with random frames and bounds; all but the first have a superview.
std::vector<std::shared_ptr<NSView>> randomTree() {
  const auto number = [] { return *rc::gen::inRange(-4000, 4000) / 16.0; };
  std::vector<std::shared_ptr<NSView>> views;
  const auto count = *rc::gen::inRange<std::size_t>(1, 12);
  for (std::size_t i = 0; i < count; ++i) {
    auto view = std::make_shared<NSView>(
        CGRect::make(number(), number(), std::abs(number()), std::abs(number())));
    view->setBoundsOrigin({number(), number()});
    if (i > 0) views[*rc::gen::inRange<std::size_t>(0, i)]->addSubview(view);
    views.push_back(std::move(view));
  }
  return views;
}

// All numbers are sixteenths, so that every sum is exact.
RC_GTEST_PROP(NSView, ConvertingAPointThereAndBackGivesThePoint, ()) {
  const auto views = randomTree();
  const auto any = [&] { return views[*rc::gen::inRange<std::size_t>(0, views.size())]; };
  const auto a = any(), b = any(), c = any();
  const CGPoint point{*rc::gen::inRange(-4000, 4000) / 16.0, *rc::gen::inRange(-4000, 4000) / 16.0};
  RC_ASSERT(a->convertPointToView(a->convertPointFromView(point, b.get()), b.get()) == point);
  RC_ASSERT(b->convertPointFromView(a->convertPointFromView(point, b.get()), a.get()) == point);
  RC_ASSERT(a->convertPointToView(a->convertPointFromView(point, nullptr), nullptr) == point);
  RC_ASSERT(c->convertPointFromView(a->convertPointFromView(point, b.get()), a.get()) ==
            c->convertPointFromView(point, b.get()));
}

}  // namespace
}  // namespace vexel
