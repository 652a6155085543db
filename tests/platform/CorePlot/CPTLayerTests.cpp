#include <CorePlot/CPTLayer.h>

#include <CoreGraphics/CGRecordingContext.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class CountingLayer : public CPTLayer {
 public:
  using CPTLayer::CPTLayer;
  int layouts = 0;
  int changes = 0;
  int draws = 0;

 protected:
  void draw(CGContext&) override { ++draws; }
  void layoutSublayers() override { ++layouts; }
  void contentDidChange() override {
    ++changes;
    CPTLayer::contentDidChange();
  }
};

class Delegate : public CALayerDelegate {
 public:
  std::function<void(CPTLayer&)> onDraw = [](CPTLayer&) {};
  int calls = 0;
  void layerWillDraw(CPTLayer& layer) override {
    ++calls;
    onDraw(layer);
  }
};

TEST(CPTLayer, AFrameThatIsNoRectangleIsBroughtToOne) {
  const struct {
    CGRect given, kept;
  } rows[] = {
      {CGRect::make(kNaN, kNaN, kNaN, kNaN), CGRect::make(0, 0, 0, 0)},
      {CGRect::make(kInfinity, -kInfinity, kInfinity, 5), CGRect::make(0, 0, 0, 5)},
      {CGRect::make(1, 2, -3, -4), CGRect::make(1, 2, 0, 0)},
      {CGRect::make(1, 2, 1e308, 4), CGRect::make(1, 2, 1e308, 4)},
  };
  for (const auto& row : rows) {
    CPTLayer layer;
    layer.setFrame(row.given);
    EXPECT_EQ(layer.frame(), row.kept);
    EXPECT_EQ(CPTLayer(row.given).frame(), row.kept);
  }
}

TEST(CPTLayer, APaddingThatIsNotFiniteIsTakenAsNone) {
  CPTLayer layer(CGRect::make(0, 0, 10, 10));
  for (const double padding : {kNaN, kInfinity, -kInfinity}) {
    layer.setPaddingLeft(padding);
    layer.setPadding(padding);
    EXPECT_EQ(layer.paddedBounds(), CGRect::make(0, 0, 10, 10)) << padding;
  }
}

TEST(CPTLayer, PaddingsThatLeaveNoRoomLeaveNoSize) {
  CPTLayer layer(CGRect::make(0, 0, 10, 10));
  layer.setPadding(6);
  EXPECT_EQ(layer.paddedBounds().size, CGSize{});
}

TEST(CPTLayerDeathTest, ALayerInsideItselfIsFatal) {
  const auto outer = std::make_shared<CPTLayer>();
  const auto inner = std::make_shared<CPTLayer>();
  outer->addSublayer(inner);
  EXPECT_DEATH(inner->addSublayer(outer), "Fatal error: a layer cannot be added to itself");
  EXPECT_DEATH(inner->addSublayer(inner), "Fatal error: a layer cannot be added to itself");
}

TEST(CPTLayer, ANewLayerStandsAloneWithoutPaddingsAndNeedsDisplay) {
  const CPTLayer layer(CGRect::make(1, 2, 3, 4));
  EXPECT_EQ(layer.frame(), CGRect::make(1, 2, 3, 4));
  EXPECT_EQ(layer.bounds(), CGRect::make(0, 0, 3, 4));
  EXPECT_EQ(layer.paddedBounds(), layer.bounds());
  EXPECT_EQ(layer.superlayer(), nullptr);
  EXPECT_EQ(layer.delegate(), nullptr);
  EXPECT_THAT(layer.sublayers(), IsEmpty());
  EXPECT_FALSE(layer.isHidden());
  EXPECT_TRUE(layer.needsDisplay());
  EXPECT_EQ(layer.displayCount(), 0u);
}

TEST(CPTLayer, EachPaddingIsKeptFromItsOwnSide) {
  CPTLayer layer(CGRect::make(5, 5, 100, 200));
  layer.setPaddingLeft(1);
  layer.setPaddingRight(2);
  layer.setPaddingTop(3);
  layer.setPaddingBottom(4);
  EXPECT_EQ(layer.paddedBounds(), CGRect::make(1, 4, 97, 193));
  layer.setPadding(10);
  EXPECT_EQ(layer.paddedBounds(), CGRect::make(10, 10, 80, 180));
}

TEST(CPTLayer, SublayersAreLaidOutWhenSizeOrPaddingChangeButNotWhenTheLayerMoves) {
  CountingLayer layer(CGRect::make(0, 0, 10, 10));
  layer.setFrame(CGRect::make(5, 5, 10, 10));
  EXPECT_EQ(layer.layouts, 0);
  layer.setFrame(CGRect::make(5, 5, 20, 10));
  EXPECT_EQ(layer.layouts, 1);
  layer.setPaddingTop(2);
  EXPECT_EQ(layer.layouts, 2);
  layer.setPaddingTop(2);
  EXPECT_EQ(layer.layouts, 2);
}

TEST(CPTLayer, ASuperlayerOwnsItsSublayersAndIsKnownWeakly) {
  const auto inner = std::make_shared<CPTLayer>();
  {
    const auto outer = std::make_shared<CPTLayer>();
    outer->addSublayer(inner);
    EXPECT_EQ(inner->superlayer(), outer.get());
    EXPECT_EQ(inner.use_count(), 2);
  }
  EXPECT_EQ(inner->superlayer(), nullptr);
  EXPECT_EQ(inner.use_count(), 1);
}

TEST(CPTLayer, ALayerThatOnlyItsSuperlayerHoldsCanRemoveItself) {
  const auto outer = std::make_shared<CountingLayer>();
  outer->addSublayer(std::make_shared<CPTLayer>());
  CPTLayer* const inner = outer->sublayers()[0].get();
  const int before = outer->changes;
  inner->removeFromSuperlayer();
  EXPECT_THAT(outer->sublayers(), IsEmpty());
  EXPECT_EQ(outer->changes, before + 1);
}

TEST(CPTLayer, AddingALayerElsewhereTakesItFromWhereItWas) {
  const auto first = std::make_shared<CPTLayer>();
  const auto second = std::make_shared<CPTLayer>();
  const auto inner = std::make_shared<CPTLayer>();
  first->addSublayer(inner);
  second->addSublayer(inner);
  EXPECT_THAT(first->sublayers(), IsEmpty());
  EXPECT_THAT(second->sublayers(), ElementsAre(inner));
  second->addSublayer(inner);
  second->addSublayer(nullptr);
  EXPECT_THAT(second->sublayers(), ElementsAre(inner));
}

TEST(CPTLayer, AChangeIsToldToEverySuperlayer) {
  const auto outer = std::make_shared<CountingLayer>();
  const auto middle = std::make_shared<CountingLayer>();
  const auto inner = std::make_shared<CPTLayer>();
  outer->addSublayer(middle);
  middle->addSublayer(inner);
  const int before = outer->changes;
  inner->setNeedsDisplay();
  EXPECT_EQ(outer->changes, before + 1);
}

TEST(CPTLayer, DisplayDrawsOnceTellsTheDelegateAndClearsTheNeed) {
  CountingLayer layer;
  Delegate delegate;
  layer.setDelegate(&delegate);
  CGRecordingContext context;
  layer.display(context);
  EXPECT_EQ(layer.draws, 1);
  EXPECT_EQ(delegate.calls, 1);
  EXPECT_EQ(layer.displayCount(), 1u);
  EXPECT_FALSE(layer.needsDisplay());
}

TEST(CPTLayer, AHiddenLayerDrawsNothing) {
  CountingLayer layer;
  CGRecordingContext context;
  layer.display(context);
  layer.setHidden(true);
  EXPECT_TRUE(layer.needsDisplay());
  layer.display(context);
  EXPECT_EQ(layer.draws, 1);
  EXPECT_EQ(layer.displayCount(), 1u);
  layer.setHidden(false);
  EXPECT_TRUE(layer.needsDisplay());
}

TEST(CPTLayer, ADelegateThatIsGoneReadsAsAbsent) {
  CountingLayer layer;
  {
    Delegate delegate;
    layer.setDelegate(&delegate);
    EXPECT_EQ(layer.delegate(), &delegate);
  }
  EXPECT_EQ(layer.delegate(), nullptr);
  CGRecordingContext context;
  layer.display(context);
  EXPECT_EQ(layer.draws, 1);
}

TEST(CPTLayer, AChangeMadeByTheDelegateWhileDrawingAsksForAnotherDisplay) {
  CountingLayer layer;
  Delegate delegate;
  delegate.onDraw = [](CPTLayer& drawn) { drawn.setNeedsDisplay(); };
  layer.setDelegate(&delegate);
  CGRecordingContext context;
  layer.display(context);
  EXPECT_TRUE(layer.needsDisplay());
}

TEST(CPTLayer, PointsAreMovedThroughAllSuperlayers) {
  const auto outer = std::make_shared<CPTLayer>(CGRect::make(1, 2, 100, 100));
  const auto middle = std::make_shared<CPTLayer>(CGRect::make(10, 20, 50, 50));
  const auto inner = std::make_shared<CPTLayer>(CGRect::make(100, 200, 5, 5));
  outer->addSublayer(middle);
  middle->addSublayer(inner);
  EXPECT_EQ(inner->convertPointToRoot({0.5, 0.25}), (CGPoint{111.5, 222.25}));
}

}  // namespace
}  // namespace vexel
