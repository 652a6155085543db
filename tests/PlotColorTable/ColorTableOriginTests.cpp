// The tables against what is published about them: classes, nodes and ramps, spread over 256
// entries by the rules that docs/colour-tables.md names. All arithmetic is in whole numbers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <functional>
#include <vector>

#include <PlotColorTable/ColorTableCatalogue.h>

namespace vexel {
namespace {

using Rgb = std::array<int, 3>;
using Rule = std::function<Rgb(int index)>;

constexpr int kEntries = 256;

int roundedDown(int numerator, int denominator) {
  const int quotient = numerator / denominator;
  return numerator % denominator < 0 ? quotient - 1 : quotient;
}

/// from + (to - from) * numerator / denominator, rounded down.
Rgb between(const Rgb& from, const Rgb& to, int numerator, int denominator) {
  Rgb result;
  for (std::size_t i = 0; i < 3; ++i)
    result[i] = roundedDown(from[i] * denominator + (to[i] - from[i]) * numerator, denominator);
  return result;
}

/// Equal classes of one colour each.
Rule classes(const std::vector<Rgb>& colors) {
  return [colors](int index) {
    return colors[static_cast<std::size_t>(index) * colors.size() / kEntries];
  };
}

struct Node {
  int entry;
  Rgb color;
};

/// Straight from node to node.
Rule nodes(const std::vector<Node>& list) {
  return [list](int index) {
    std::size_t k = 0;
    while (k + 2 < list.size() && index >= list[k + 1].entry) ++k;
    const Node &a = list[k], &b = list[k + 1];
    return between(a.color, b.color, index - a.entry, b.entry - a.entry);
  };
}

/// Straight from class to class; the last class also fills what is left.
Rule joinedClasses(const std::vector<Rgb>& colors) {
  return [colors](int index) {
    const int position = index * static_cast<int>(colors.size());
    const auto k = static_cast<std::size_t>(position / kEntries);
    if (k + 1 >= colors.size()) return colors.back();
    return between(colors[k], colors[k + 1], position % kEntries, kEntries);
  };
}

void expectEveryEntry(const ColorTable& table, const Rule& rule) {
  ASSERT_EQ(table.size(), static_cast<std::size_t>(kEntries));
  for (int i = 0; i < kEntries; ++i) {
    const Rgb expected = rule(i);
    EXPECT_THAT(table[static_cast<std::size_t>(i)],
                testing::ElementsAre(expected[0], expected[1], expected[2]))
        << "entry " << i;
  }
}

// Tables published entry by entry follow a plain rule only roughly.

/// Every component within `tolerance` of straight lines between the nodes.
void expectNear(const ColorTable& table, const std::vector<Node>& list, int tolerance) {
  const Rule rule = nodes(list);
  for (int i = 0; i < kEntries; ++i)
    for (std::size_t component = 0; component < 3; ++component)
      EXPECT_NEAR(table[static_cast<std::size_t>(i)][component], rule(i)[component], tolerance)
          << "entry " << i << " component " << component;
}

TEST(ColorTableOrigin, OfIdl0IsItsIndex) {
  expectEveryEntry(idlColorTables().at(0), [](int index) { return Rgb{index, index, index}; });
}

TEST(ColorTableOrigin, OfIdl1IsBlackThroughBlueToWhite) {
  const ColorTable& table = idlColorTables().at(1);
  expectNear(table,
             {{0, {0, 0, 0}}, {188, {0, 0, 255}}, {192, {0, 0, 255}}, {255, {255, 255, 255}}}, 1);
  for (const ColorTableEntry& entry : table) EXPECT_EQ(entry[0], entry[1]);
}

TEST(ColorTableOrigin, OfIdl11IsBlackGreenCyanBlueMagentaRed) {
  expectNear(idlColorTables().at(11),
             {{0, {0, 0, 0}},
              {4, {0, 4, 4}},
              {63, {0, 255, 255}},
              {64, {0, 255, 255}},
              {127, {0, 0, 255}},
              {128, {0, 0, 255}},
              {191, {255, 0, 255}},
              {192, {255, 0, 255}},
              {254, {255, 0, 0}},
              {255, {255, 0, 0}}},
             1);
}

TEST(ColorTableOrigin, OfIdl12IsSixteenLevels) {
  const ColorTable& table = idlColorTables().at(12);
  EXPECT_THAT(table[0], testing::ElementsAre(0, 0, 0));
  for (std::size_t i = 1; i < table.size(); ++i) {
    const ColorTableEntry& first = table[i / 16 * 16 + (i < 16 ? 1 : 0)];
    // One level of the published table drifts by three units of red.
    EXPECT_NEAR(table[i][0], first[0], i / 16 == 13 ? 3 : 0) << i;
    EXPECT_EQ(table[i][1], first[1]) << i;
    EXPECT_EQ(table[i][2], first[2]) << i;
  }
}

TEST(ColorTableOrigin, OfIdl33IsDarkBlueBlueCyanYellowRedDarkRed) {
  expectNear(idlColorTables().at(33),
             {{0, {0, 0, 131}},
              {32, {0, 0, 255}},
              {97, {0, 255, 255}},
              {162, {255, 255, 0}},
              {226, {255, 0, 0}},
              {254, {131, 0, 0}},
              {255, {131, 0, 0}}},
             5);
}

/// The table passes near the classes at equal distances.
void expectClassesOnTheWay(const ColorTable& table, const std::vector<Rgb>& colors,
                           double tolerance) {
  const double step = 255.0 / static_cast<double>(colors.size() - 1);
  for (std::size_t k = 0; k < colors.size(); ++k) {
    const auto index = static_cast<std::size_t>(std::lround(static_cast<double>(k) * step));
    for (std::size_t component = 0; component < 3; ++component)
      EXPECT_NEAR(table[index][component], colors[k][component], tolerance) << "class " << k;
  }
}

TEST(ColorTableOrigin, OfIdl47IsTheEightClassesOfSet2) {
  expectClassesOnTheWay(idlColorTables().at(47),
                        {{102, 194, 165},
                         {252, 141, 98},
                         {141, 160, 203},
                         {231, 138, 195},
                         {166, 216, 84},
                         {255, 217, 47},
                         {229, 196, 148},
                         {179, 179, 179}},
                        3);
}

TEST(ColorTableOrigin, OfIdl48IsTheTwelveClassesOfSet3) {
  expectClassesOnTheWay(idlColorTables().at(48),
                        {{141, 211, 199},
                         {255, 255, 179},
                         {190, 186, 218},
                         {251, 128, 114},
                         {128, 177, 211},
                         {253, 180, 98},
                         {179, 222, 105},
                         {252, 205, 229},
                         {217, 217, 217},
                         {188, 128, 189},
                         {204, 235, 197},
                         {255, 237, 111}},
                        5);
}

TEST(ColorTableOrigin, OfGmt7IsThePaletteHaxby) {
  expectEveryEntry(
      gmtColorTables().at(7),
      classes({{10, 0, 121},    {40, 0, 150},    {20, 5, 175},    {0, 10, 200},    {0, 25, 212},
               {0, 40, 224},    {26, 102, 240},  {13, 129, 248},  {25, 175, 255},  {50, 190, 255},
               {68, 202, 255},  {97, 225, 240},  {106, 235, 225}, {124, 235, 200}, {138, 236, 174},
               {172, 245, 168}, {205, 255, 162}, {223, 245, 141}, {240, 236, 121}, {247, 215, 104},
               {255, 189, 87},  {255, 160, 69},  {244, 117, 75},  {238, 80, 78},   {255, 90, 90},
               {255, 124, 124}, {255, 158, 158}, {245, 179, 174}, {255, 196, 196}, {255, 215, 215},
               {255, 235, 235}, {255, 255, 255}}));
}

TEST(ColorTableOrigin, OfGmt8IsThePaletteHot) {
  expectEveryEntry(
      gmtColorTables().at(8),
      nodes({{0, {0, 0, 0}}, {96, {255, 0, 0}}, {192, {255, 255, 0}}, {255, {255, 255, 255}}}));
}

TEST(ColorTableOrigin, OfGmt10IsThePaletteNoGreen) {
  expectEveryEntry(gmtColorTables().at(10), classes({{32, 96, 255},
                                                     {32, 159, 255},
                                                     {32, 191, 255},
                                                     {0, 207, 255},
                                                     {42, 255, 255},
                                                     {85, 255, 255},
                                                     {127, 255, 255},
                                                     {170, 255, 255},
                                                     {255, 255, 84},
                                                     {255, 240, 0},
                                                     {255, 191, 0},
                                                     {255, 168, 0},
                                                     {255, 138, 0},
                                                     {255, 112, 0},
                                                     {255, 77, 0},
                                                     {255, 0, 0}}));
}

TEST(ColorTableOrigin, OfGmt12IsThePalettePanoply) {
  expectEveryEntry(gmtColorTables().at(12), classes({{4, 14, 216},
                                                     {32, 80, 255},
                                                     {65, 150, 255},
                                                     {109, 193, 255},
                                                     {134, 217, 255},
                                                     {156, 238, 255},
                                                     {175, 245, 255},
                                                     {206, 255, 255},
                                                     {255, 254, 71},
                                                     {255, 235, 0},
                                                     {255, 196, 0},
                                                     {255, 144, 0},
                                                     {255, 72, 0},
                                                     {255, 0, 0},
                                                     {213, 0, 0},
                                                     {158, 0, 0}}));
}

TEST(ColorTableOrigin, OfGmt13IsThePalettePolar) {
  expectEveryEntry(gmtColorTables().at(13),
                   nodes({{0, {0, 0, 255}}, {128, {255, 255, 255}}, {255, {255, 0, 0}}}));
}

TEST(ColorTableOrigin, OfGmt14IsThePaletteRainbowOfHues) {
  expectEveryEntry(gmtColorTables().at(14), [](int index) {
    // The hue in sixths of the circle falls from 5 to 0, which is not reached.
    const int hue = 5 * (kEntries - index);
    const int rising = 255 * (hue % kEntries) / kEntries;
    const int falling = 255 * (kEntries - hue % kEntries) / kEntries;
    const Rgb sectors[] = {{255, rising, 0},  {falling, 255, 0}, {0, 255, rising},
                           {0, falling, 255}, {rising, 0, 255},  {255, 0, falling}};
    return sectors[hue / kEntries];
  });
}

TEST(ColorTableOrigin, OfGmt21IsThePaletteWysiwyg) {
  const Rule whole =
      classes({{64, 0, 64},    {64, 0, 192},   {0, 64, 255},   {0, 128, 255},   {0, 160, 255},
               {64, 192, 255}, {64, 224, 255}, {64, 255, 255}, {64, 255, 192},  {64, 255, 64},
               {128, 255, 64}, {192, 255, 64}, {255, 255, 64}, {255, 224, 64},  {255, 160, 64},
               {255, 96, 64},  {255, 32, 64},  {255, 96, 192}, {255, 160, 255}, {255, 224, 255}});
  // Its last class alone has another colour at its upper end.
  const int last = 244;
  expectEveryEntry(gmtColorTables().at(21), [&](int index) {
    if (index < last) return whole(index);
    return between({255, 224, 255}, {255, 224, 225}, index - last, 255 - last);
  });
}

TEST(ColorTableOrigin, OfBrewer17IsTheSchemePuBuGn) {
  expectEveryEntry(brewerColorTables().at(17), joinedClasses({{255, 247, 251},
                                                              {236, 226, 240},
                                                              {208, 209, 230},
                                                              {166, 189, 219},
                                                              {103, 169, 207},
                                                              {54, 144, 192},
                                                              {2, 129, 138},
                                                              {1, 108, 89},
                                                              {1, 70, 54}}));
}

TEST(ColorTableOrigin, OfBrewer21IsTheSchemeRdBu) {
  expectEveryEntry(brewerColorTables().at(21), joinedClasses({{103, 0, 31},
                                                              {178, 24, 43},
                                                              {214, 96, 77},
                                                              {244, 165, 130},
                                                              {253, 219, 199},
                                                              {247, 247, 247},
                                                              {209, 229, 240},
                                                              {146, 197, 222},
                                                              {67, 147, 195},
                                                              {33, 102, 172},
                                                              {5, 48, 97}}));
}

TEST(ColorTableOrigin, OfBrewer30IsTheSchemeSpectral) {
  expectEveryEntry(brewerColorTables().at(30), joinedClasses({{158, 1, 66},
                                                              {213, 62, 79},
                                                              {244, 109, 67},
                                                              {253, 174, 97},
                                                              {254, 224, 139},
                                                              {255, 255, 191},
                                                              {230, 245, 152},
                                                              {171, 221, 164},
                                                              {102, 194, 165},
                                                              {50, 136, 189},
                                                              {94, 79, 162}}));
}

/// Straight between the colours at the ends and at entry 128, to the nearest whole number.
Rule throughTheMiddle(const Rgb& low, const Rgb& middle, const Rgb& high) {
  return [=](int index) {
    const Rgb& from = index < 128 ? low : middle;
    const Rgb& to = index < 128 ? middle : high;
    const int length = index < 128 ? 128 : 127;
    Rgb result;
    for (std::size_t i = 0; i < 3; ++i)
      result[i] = roundedDown(
          2 * (from[i] * length + (to[i] - from[i]) * (index < 128 ? index : index - 128)) + length,
          2 * length);
    return result;
  };
}

TEST(ColorTableOrigin, OfQorm11IsRedThroughBlackToPaleBlue) {
  expectEveryEntry(qormColorTables().at(11),
                   throughTheMiddle({255, 0, 0}, {0, 0, 0}, {179, 179, 255}));
}

TEST(ColorTableOrigin, OfXan16IsBlackThroughBlueToWhite) {
  expectEveryEntry(xanColorTables().at(16),
                   throughTheMiddle({0, 0, 0}, {43, 152, 229}, {255, 255, 255}));
}

}  // namespace
}  // namespace vexel
