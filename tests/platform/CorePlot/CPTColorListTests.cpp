#include <CorePlot/CPTColorList.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const CPTColor kRed = CPTColor::redColor();
const CPTColor kBlue = CPTColor::blueColor();
constexpr std::uint32_t kNone = CPTColorList::kNoColor;

TEST(CPTColorList, IsEmptyByDefault) {
  const CPTColorList list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_THAT(list.elements(), IsEmpty());
  EXPECT_EQ(list, (CPTColorList{}));
}

TEST(CPTColorList, HasTheColoursInTheirOrder) {
  const CPTColorList list{kRed, std::nullopt, kBlue, kRed};
  EXPECT_EQ(list.size(), 4u);
  EXPECT_THAT(list.elements(), ElementsAre(kRed, std::nullopt, kBlue, kRed));
  EXPECT_EQ(list[0], kRed);
  EXPECT_EQ(list[1], std::nullopt);
}

TEST(CPTColorList, HoldsEachColourOnce) {
  const CPTColorList list{kRed, std::nullopt, kBlue, kRed};
  EXPECT_THAT(list.palette(), ElementsAre(kRed, kBlue));
  EXPECT_THAT(list.places(), ElementsAre(0u, kNone, 1u, 0u));
}

TEST(CPTColorList, IsMadeFromPaletteAndPlaces) {
  const CPTColorList list({kRed, kBlue}, {1, kNone, 0, 1});
  EXPECT_THAT(list.elements(), ElementsAre(kBlue, std::nullopt, kRed, kBlue));
}

TEST(CPTColorList, IsEqualByItsElements) {
  const CPTColorList list{kRed, std::nullopt, kBlue};
  EXPECT_EQ(list, CPTColorList({kBlue, kRed}, {1, kNone, 0}));
  EXPECT_NE(list, (CPTColorList{kRed, std::nullopt, kRed}));
  EXPECT_NE(list, (CPTColorList{kRed, kBlue, kBlue}));
  EXPECT_NE(list, (CPTColorList{kRed, std::nullopt}));
}

TEST(CPTColorList, TakesAnotherColourForAnElement) {
  CPTColorList list{kRed, kRed, kRed};
  list.set(0, kBlue);
  list.set(1, std::nullopt);
  EXPECT_THAT(list.elements(), ElementsAre(kBlue, std::nullopt, kRed));
  list.set(1, kBlue);
  EXPECT_THAT(list.elements(), ElementsAre(kBlue, kBlue, kRed));
  EXPECT_THAT(list.palette(), ElementsAre(kRed, kBlue));
}

TEST(CPTColorListDeathTest, RefusesPlacesOutsideThePalette) {
  EXPECT_DEATH(CPTColorList({kRed}, {0, 1}), "Fatal error: .*outside the palette");
  EXPECT_DEATH(CPTColorList(std::vector<CPTColor>(), {0}), "Fatal error: .*outside the palette");
}

TEST(CPTColorList, GrowsAtItsEnd) {
  CPTColorList list;
  list.append({});
  EXPECT_TRUE(list.empty());
  list.append({CPTColor::redColor(), std::nullopt});
  list.append({CPTColor::blueColor(), CPTColor::redColor(), std::nullopt});
  EXPECT_EQ(list, (CPTColorList{CPTColor::redColor(), std::nullopt, CPTColor::blueColor(),
                                CPTColor::redColor(), std::nullopt}));
  for (int i = 0; i < 100; ++i) list.append({CPTColor::blueColor(), CPTColor::redColor()});
  EXPECT_EQ(list.size(), 205u);
  EXPECT_LE(list.palette().size(), 2u);
}

}  // namespace
}  // namespace vexel
