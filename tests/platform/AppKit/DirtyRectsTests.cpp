#include "DirtyRects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<CGRect> collected(std::initializer_list<CGRect> rects) {
  std::vector<CGRect> result;
  for (const CGRect& rect : rects) addDirtyRect(result, rect);
  return result;
}

TEST(DirtyRects, LeaveOutWhatIsEmpty) {
  EXPECT_THAT(collected({{}, CGRect::make(0, 0, 0, 5), CGRect::make(kNaN, 0, 5, 5)}),
              ElementsAre());
}

TEST(DirtyRects, FarApartStayApart) {
  const CGRect a = CGRect::make(0, 0, 2, 100), b = CGRect::make(50, 0, 2, 100);
  EXPECT_THAT(collected({a, b}), ElementsAre(a, b));
}

TEST(DirtyRects, BecomeOneWhereThatCoversNoMore) {
  const CGRect a = CGRect::make(0, 0, 4, 100);
  EXPECT_THAT(collected({a, CGRect::make(3, 0, 4, 100)}), ElementsAre(CGRect::make(0, 0, 7, 100)));
  EXPECT_THAT(collected({a, CGRect::make(4, 0, 4, 100)}), ElementsAre(CGRect::make(0, 0, 8, 100)));
  EXPECT_THAT(collected({a, CGRect::make(1, 1, 1, 1)}), ElementsAre(a));
  EXPECT_THAT(collected({CGRect::make(1, 1, 1, 1), a}), ElementsAre(a));
}

TEST(DirtyRects, OneThatClosesAGapJoinsBothSides) {
  EXPECT_THAT(
      collected({CGRect::make(0, 0, 4, 9), CGRect::make(8, 0, 4, 9), CGRect::make(4, 0, 4, 9)}),
      ElementsAre(CGRect::make(0, 0, 12, 9)));
}

TEST(DirtyRects, ThatCrossAreNotMadeOne) {
  const CGRect upright = CGRect::make(50, 0, 2, 100), flat = CGRect::make(0, 50, 100, 2);
  EXPECT_THAT(collected({upright, flat}), ElementsAre(upright, flat));
}

TEST(DirtyRects, WithoutEndsBecomeOne) {
  constexpr double kHuge = std::numeric_limits<double>::max();
  const auto rects =
      collected({CGRect::make(-kHuge, 0, kHuge, kHuge), CGRect::make(0, 0, kHuge, kHuge)});
  EXPECT_EQ(rects.size(), 1u);
}

RC_GTEST_PROP(DirtyRects, StayFewAndCoverAllThatWasAdded, ()) {
  const auto number = [] { return *rc::gen::inRange(0, 100); };
  std::vector<CGRect> added, rects;
  const int count = *rc::gen::inRange(0, 40);
  for (int i = 0; i < count; ++i) {
    added.push_back(CGRect::make(number(), number(), number(), number()));
    addDirtyRect(rects, added.back());
  }
  RC_ASSERT(rects.size() <= 8u);
  for (const CGRect& one : added) {
    if (one.isEmpty()) continue;
    RC_ASSERT(std::any_of(rects.begin(), rects.end(),
                          [&](const CGRect& rect) { return rect.unionWith(one) == rect; }));
  }
}

TEST(DirtyRects, LeaveWhatIsAboveAndBelowWhatWasDrawn) {
  std::vector<CGRect> rects{CGRect::make(0, 0, 4, 100), CGRect::make(4, 0, 4, 40)};
  removeDrawnRect(rects, CGRect::make(0, 40, 8, 20));
  // The first and the last, though side by side, do not become one that neither of those before
  // covers.
  EXPECT_THAT(rects, ElementsAre(CGRect::make(0, 0, 4, 40), CGRect::make(0, 60, 4, 40),
                                 CGRect::make(4, 0, 4, 40)));
}

TEST(DirtyRects, AreNotCutInTwoWhenThereAreManyAlready) {
  std::vector<CGRect> rects;
  for (int i = 0; i < 7; ++i) rects.push_back(CGRect::make(10.0 * i, 0, 4, 90));
  removeDrawnRect(rects, CGRect::make(0, 40, 100, 10));
  ASSERT_EQ(rects.size(), 8u);
  EXPECT_EQ(rects[0], CGRect::make(0, 0, 4, 40));
  EXPECT_EQ(rects[1], CGRect::make(0, 50, 4, 40));
  for (int i = 2; i < 8; ++i) EXPECT_EQ(rects[i], CGRect::make(10.0 * i - 10, 0, 4, 90));
  removeDrawnRect(rects, CGRect::make(0, 0, 100, 40));
  EXPECT_EQ(rects.size(), 7u);
  EXPECT_EQ(rects.back(), CGRect::make(60, 40, 4, 50));
}

RC_GTEST_PROP(DirtyRects, KeepAllThatWasNotDrawnAndNoneWhenEachWas, ()) {
  constexpr int kSize = 16;
  const auto number = [] { return *rc::gen::inRange(0, kSize); };
  const auto anyRect = [&] { return CGRect::make(number(), number(), number(), number()); };
  const auto holds = [](const std::vector<CGRect>& rects, const CGRect& part) {
    return std::any_of(rects.begin(), rects.end(),
                       [&](const CGRect& rect) { return rect.unionWith(part) == rect; });
  };
  std::vector<CGRect> rects, drawn;
  const int count = *rc::gen::inRange(0, 20);
  for (int i = 0; i < count; ++i) addDirtyRect(rects, anyRect());
  const std::vector<CGRect> marked = rects;
  const auto draw = [&](const CGRect& rect) {
    drawn.push_back(rect);
    removeDrawnRect(rects, rect);
    RC_ASSERT(rects.size() <= 8u);
    for (const CGRect& left : rects) RC_ASSERT(holds(marked, left));
    for (int x = 0; x < 2 * kSize; ++x) {
      for (int y = 0; y < 2 * kSize; ++y) {
        const CGRect cell = CGRect::make(x, y, 1, 1);
        if (holds(marked, cell) && !holds(drawn, cell)) RC_ASSERT(holds(rects, cell));
      }
    }
  };
  const int parts = *rc::gen::inRange(0, 4);
  for (int i = 0; i < parts; ++i) draw(CGRect::make(0, number(), 2 * kSize, number()));
  for (const CGRect& rect : marked) draw(rect);
  RC_ASSERT(rects.empty());
}

TEST(DirtyRects, TheRectangleAroundNoneIsEmpty) {
  EXPECT_EQ(boundingRect({}), CGRect{});
  EXPECT_EQ(boundingRect({CGRect::make(1, 2, 3, 4), CGRect::make(11, 0, 1, 1)}),
            CGRect::make(1, 0, 11, 6));
}

}  // namespace
}  // namespace vexel
