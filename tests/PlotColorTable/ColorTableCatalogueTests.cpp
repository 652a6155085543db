#include <PlotColorTable/ColorTableCatalogue.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

const ColorTableFamily& familyOf(const std::string& key) {
  if (key == "IDL") return idlColorTables();
  if (key == "gmt") return gmtColorTables();
  if (key == "brewer") return brewerColorTables();
  return key == "qorm" ? qormColorTables() : xanColorTables();
}

const ColorTable& tableOf(const std::string& key, std::int64_t number) {
  return familyOf(key).at(number);
}

std::vector<std::int64_t> numbersOf(const std::string& key) {
  std::vector<std::int64_t> numbers;
  for (const auto& [number, table] : familyOf(key)) numbers.push_back(number);
  return numbers;
}

TEST(ColorTableCatalogue, HasTwentyThreeTablesInFiveFamilies) {
  EXPECT_THAT(numbersOf("IDL"), ElementsAre(0, 1, 2, 10, 11, 12, 13, 33, 38, 47, 48));
  EXPECT_THAT(numbersOf("gmt"), ElementsAre(7, 8, 10, 12, 13, 14, 21));
  EXPECT_THAT(numbersOf("brewer"), ElementsAre(17, 21, 30));
  EXPECT_THAT(numbersOf("qorm"), ElementsAre(11));
  EXPECT_THAT(numbersOf("xan"), ElementsAre(16));
}

TEST(ColorTableCatalogue, HasNoTableOfAnotherNumber) {
  EXPECT_FALSE(idlColorTables().contains(3));
  EXPECT_FALSE(gmtColorTables().contains(9));
  EXPECT_FALSE(qormColorTables().contains(-11));
}

TEST(ColorTableCatalogue, GivesEachFamilyAsOneObject) {
  for (const char* key : {"IDL", "gmt", "brewer", "qorm", "xan"})
    EXPECT_EQ(&familyOf(key), &familyOf(key));
}

TEST(ColorTableCatalogue, HasTablesOf256EntriesOfThreeWholeNumbersWithinAByte) {
  for (const char* key : {"IDL", "gmt", "brewer", "qorm", "xan"})
    for (const auto& [number, table] : familyOf(key)) {
      ASSERT_THAT(table, SizeIs(256)) << key << " " << number;
      for (const ColorTableEntry& entry : table) {
        ASSERT_THAT(entry, SizeIs(3)) << key << " " << number;
        for (const CGFloat component : entry) {
          ASSERT_GE(component, 0);
          ASSERT_LE(component, 255);
          ASSERT_EQ(component, std::floor(component));
        }
      }
    }
}

struct ReferenceEntry {
  const char* family;
  std::int64_t number;
  std::size_t index;
  double red, green, blue;
};

TEST(ColorTableCatalogue, HasTheReferenceEntries) {
  const ReferenceEntry kEntries[] = {
      {"IDL", 0, 0, 0, 0, 0},
      {"IDL", 0, 128, 128, 128, 128},
      {"IDL", 0, 255, 255, 255, 255},
      {"IDL", 1, 0, 0, 0, 0},
      {"IDL", 1, 128, 0, 0, 173},
      {"IDL", 1, 255, 255, 255, 255},
      {"IDL", 11, 0, 0, 0, 0},
      {"IDL", 11, 128, 0, 0, 255},
      {"IDL", 11, 255, 255, 0, 0},
      {"IDL", 13, 0, 0, 0, 0},
      {"IDL", 13, 254, 255, 8, 0},
      {"IDL", 33, 0, 0, 0, 131},
      {"IDL", 33, 128, 119, 255, 135},
      {"IDL", 33, 255, 131, 0, 0},
      {"IDL", 38, 0, 0, 0, 0},
      {"IDL", 38, 128, 150, 200, 0},
      {"IDL", 38, 255, 255, 255, 220},
      {"IDL", 47, 0, 102, 194, 165},
      {"IDL", 47, 128, 197, 179, 136},
      {"IDL", 47, 255, 179, 179, 179},
      {"IDL", 48, 0, 141, 211, 199},
      {"IDL", 48, 128, 213, 203, 102},
      {"IDL", 48, 255, 255, 237, 111},
      {"gmt", 7, 0, 10, 0, 121},
      {"gmt", 7, 128, 205, 255, 162},
      {"gmt", 8, 0, 0, 0, 0},
      {"gmt", 8, 128, 255, 85, 0},
      {"gmt", 8, 255, 255, 255, 255},
      {"gmt", 10, 0, 32, 96, 255},
      {"gmt", 10, 128, 255, 255, 84},
      {"gmt", 10, 255, 255, 0, 0},
      {"gmt", 12, 0, 4, 14, 216},
      {"gmt", 12, 128, 255, 254, 71},
      {"gmt", 12, 255, 158, 0, 0},
      {"gmt", 13, 0, 0, 0, 255},
      {"gmt", 13, 128, 255, 255, 255},
      {"gmt", 13, 255, 255, 0, 0},
      {"gmt", 14, 255, 255, 4, 0},
      {"gmt", 21, 128, 128, 255, 64},
      {"gmt", 21, 255, 255, 224, 225},
      {"brewer", 17, 0, 255, 247, 251},
      {"brewer", 17, 128, 78, 156, 199},
      {"brewer", 17, 254, 1, 70, 54},
      {"brewer", 21, 0, 103, 0, 31},
      {"brewer", 21, 128, 228, 238, 243},
      {"brewer", 21, 255, 5, 48, 97},
      {"brewer", 30, 0, 158, 1, 66},
      {"brewer", 30, 128, 242, 250, 171},
      {"brewer", 30, 255, 94, 79, 162},
      {"qorm", 11, 0, 255, 0, 0},
      {"qorm", 11, 128, 0, 0, 0},
      {"qorm", 11, 255, 179, 179, 255},
      {"xan", 16, 0, 0, 0, 0},
      {"xan", 16, 128, 43, 152, 229},
      {"xan", 16, 255, 255, 255, 255},
  };
  for (const auto& [family, number, index, red, green, blue] : kEntries)
    EXPECT_THAT(tableOf(family, number)[index], ElementsAre(red, green, blue))
        << family << " " << number << " " << index;
}

/// FNV-1a over the components of all entries.
std::uint64_t fingerprint(const ColorTable& table) {
  std::uint64_t hash = 0xcbf29ce484222325u;
  for (const ColorTableEntry& entry : table)
    for (const CGFloat component : entry)
      hash = (hash ^ static_cast<std::uint64_t>(component)) * 0x100000001b3u;
  return hash;
}

TEST(ColorTableCatalogue, HasEveryEntryAsItWasTakenFromItsSource) {
  struct Fingerprint {
    const char* family;
    std::int64_t number;
    std::uint64_t value;
  };
  const Fingerprint kFingerprints[] = {
      {"IDL", 0, 0x3ac8574c48f9b025},     {"IDL", 1, 0x41bb44ff2d3b4826},
      {"IDL", 2, 0x7265ddd399642b5a},     {"IDL", 10, 0x9de195dfebe462b0},
      {"IDL", 11, 0x60b815b4cbf8a086},    {"IDL", 12, 0x64970234cca8e999},
      {"IDL", 13, 0xc67b7c6ed3164eb5},    {"IDL", 33, 0xf91d715fe0b208e4},
      {"IDL", 38, 0xb9974b4d718fd972},    {"IDL", 47, 0x9d3fd269016f49f5},
      {"IDL", 48, 0x38604d70b50768dc},    {"gmt", 7, 0x96e6cfae4bf10fbd},
      {"gmt", 8, 0x5b9d042a94ebde65},     {"gmt", 10, 0x072d3c930121d645},
      {"gmt", 12, 0x312ba92216eb5ab5},    {"gmt", 13, 0x55e9ced78307f601},
      {"gmt", 14, 0x1a28f1a4ce2894b7},    {"gmt", 21, 0x2421b5d3643437e7},
      {"brewer", 17, 0x2b54a24237f658ae}, {"brewer", 21, 0xd0f425220866a1cb},
      {"brewer", 30, 0x3e8fab6b0f0f9a94}, {"qorm", 11, 0xbf59ae5ded72857d},
      {"xan", 16, 0xcc6f92b0c9741eae},
  };
  for (const auto& [family, number, value] : kFingerprints)
    EXPECT_EQ(fingerprint(tableOf(family, number)), value) << family << " " << number;
}

}  // namespace
}  // namespace vexel
