#include <Kernels/CPTNumericData.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <vector>

namespace vexel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> listed(const CPTNumericData& data) {
  std::vector<double> numbers;
  for (std::size_t i = 0; i < data.count(); ++i) numbers.push_back(data[i]);
  return numbers;
}

TEST(CPTNumericData, AnEmptyOneHasNoNumbers) {
  const CPTNumericData data;
  EXPECT_EQ(data.count(), 0u);
  EXPECT_THAT(data.doubles(), IsEmpty());
  EXPECT_EQ(data.part(0, 10).count(), 0u);
  EXPECT_EQ(data.part(5, 10).count(), 0u);
  EXPECT_EQ(CPTNumericData(std::vector<double>()).count(), 0u);
}

TEST(CPTNumericData, NumbersThatAreNotAlignedAreReadAsTheyAre) {
  std::vector<char> bytes(1 + 3 * sizeof(double));
  const double numbers[] = {1.5, -2.5, 1e300};
  std::memcpy(bytes.data() + 1, numbers, sizeof numbers);
  const auto data =
      CPTNumericData::strided(CPTNumericData::Type::float64, bytes.data() + 1, 3, sizeof(double));
  EXPECT_THAT(listed(data), ElementsAre(1.5, -2.5, 1e300));
  EXPECT_THAT(data.doubles(), IsEmpty());
}

TEST(CPTNumericData, EveryTypeIsReadAtItsLimits) {
  const std::vector<double> doubles{-std::numeric_limits<double>::max(), 0.1};
  const std::vector<float> floats{-std::numeric_limits<float>::max(), 0.5F};
  const std::vector<std::int16_t> shorts{-32768, 32767};
  const std::vector<std::int32_t> ints{-2147483647 - 1, 2147483647};
  const std::vector<std::int64_t> longs{std::numeric_limits<std::int64_t>::min(), 1LL << 53};
  EXPECT_THAT(listed(doubles), ElementsAre(-std::numeric_limits<double>::max(), 0.1));
  EXPECT_THAT(listed(CPTNumericData(floats)),
              ElementsAre(-static_cast<double>(std::numeric_limits<float>::max()), 0.5));
  EXPECT_THAT(listed(CPTNumericData(shorts)), ElementsAre(-32768, 32767));
  EXPECT_THAT(listed(CPTNumericData(ints)), ElementsAre(-2147483648.0, 2147483647.0));
  EXPECT_THAT(listed(CPTNumericData(longs)), ElementsAre(-0x1p63, 0x1p53));
  EXPECT_EQ(CPTNumericData(doubles).type(), CPTNumericData::Type::float64);
  EXPECT_EQ(CPTNumericData(floats).type(), CPTNumericData::Type::float32);
  EXPECT_EQ(CPTNumericData(shorts).type(), CPTNumericData::Type::int16);
  EXPECT_EQ(CPTNumericData(ints).type(), CPTNumericData::Type::int32);
  EXPECT_EQ(CPTNumericData(longs).type(), CPTNumericData::Type::int64);
}

TEST(CPTNumericData, AnyContiguousRangeIsTaken) {
  const std::array<double, 2> array{1, 2};
  const double plain[] = {3, 4};
  EXPECT_THAT(listed(array), ElementsAre(1, 2));
  EXPECT_THAT(listed(plain), ElementsAre(3, 4));
}

TEST(CPTNumericData, AColumnOfRecordsIsReadByItsStrideInBothDirections) {
  struct Record {
    std::int32_t day;
    float charge;
  };
  const std::vector<Record> records{{1, 0.5F}, {2, 1.5F}, {3, 2.5F}};
  using Type = CPTNumericData::Type;
  EXPECT_THAT(listed(CPTNumericData::strided(Type::int32, &records[0].day, 3, sizeof(Record))),
              ElementsAre(1, 2, 3));
  EXPECT_THAT(listed(CPTNumericData::strided(Type::float32, &records[2].charge, 3,
                                             -static_cast<std::ptrdiff_t>(sizeof(Record)))),
              ElementsAre(2.5, 1.5, 0.5));
  EXPECT_THAT(listed(CPTNumericData::strided(Type::int32, &records[1].day, 3, 0)),
              ElementsAre(2, 2, 2));
}

TEST(CPTNumericData, OnlyDoublesSideBySideAreLentAsASpan) {
  const std::vector<double> numbers{1, 2, 3, 4};
  const std::vector<float> floats{1};
  EXPECT_THAT(CPTNumericData(numbers).doubles(), ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(CPTNumericData(numbers).doubles().data(), numbers.data());
  EXPECT_THAT(CPTNumericData(floats).doubles(), IsEmpty());
  EXPECT_THAT(
      CPTNumericData::strided(CPTNumericData::Type::float64, numbers.data(), 2, 2 * sizeof(double))
          .doubles(),
      IsEmpty());
}

TEST(CPTNumericData, APartEndsWhereTheNumbersEnd) {
  const std::vector<std::int16_t> numbers{1, 2, 3, 4};
  const CPTNumericData data(numbers);
  EXPECT_THAT(listed(data.part(1, 2)), ElementsAre(2, 3));
  EXPECT_THAT(listed(data.part(2, 10)), ElementsAre(3, 4));
  EXPECT_THAT(listed(data.part(0, std::numeric_limits<std::size_t>::max())),
              ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(data.part(4, 1).count(), 0u);
  EXPECT_EQ(data.part(9, 1).count(), 0u);
  EXPECT_EQ(data.part(1, 2).type(), CPTNumericData::Type::int16);
}

TEST(CPTNumericData, ReadsPartsAsDoublesAndCopiesOnlyWhatIsNone) {
  const std::vector<double> doubles = {1, 2, 3, 4};
  double buffer[4] = {};
  EXPECT_EQ(CPTNumericData(doubles).read(1, 2, buffer), doubles.data() + 1);
  const std::vector<std::int16_t> shorts = {-1, 32767, -32768};
  const std::vector<std::int32_t> ints = {5, -2147483647 - 1, 7};
  const std::vector<std::int64_t> longs = {5, 1LL << 53, -9};
  const std::vector<float> floats = {0.5f, std::numeric_limits<float>::infinity(), -2.25f};
  const auto read = [&](const CPTNumericData& data) {
    EXPECT_EQ(data.read(1, 2, buffer), buffer);
    return std::pair(buffer[0], buffer[1]);
  };
  EXPECT_EQ(read(shorts), std::pair(32767.0, -32768.0));
  EXPECT_EQ(read(ints), std::pair(-2147483648.0, 7.0));
  EXPECT_EQ(read(longs), std::pair(9007199254740992.0, -9.0));
  EXPECT_EQ(read(floats), std::pair(std::numeric_limits<double>::infinity(), -2.25));
  EXPECT_EQ(read(CPTNumericData::strided(CPTNumericData::Type::float64, &doubles[3], 3, -8)),
            std::pair(3.0, 2.0));
}

}  // namespace
}  // namespace vexel
