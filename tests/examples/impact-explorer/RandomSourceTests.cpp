#include "RandomSource.h"

#include <cmath>
#include <vector>

#include <gtest/gtest.h>

namespace explorer {
namespace {

TEST(RandomSource, GivesThePublishedSequence) {
  RandomSource random(1234567);
  for (const std::uint64_t expected :
       {6457827717110365317u, 3203168211198807973u, 9817491932198370423u, 4593380528125082431u,
        16408922859458223821u})
    EXPECT_EQ(random.next(), expected);
}

TEST(RandomSource, UniformNumbersFillTheUnitInterval) {
  RandomSource random(1);
  constexpr int draws = 100'000;
  std::vector<int> bins(10);
  for (int i = 0; i < draws; ++i) {
    const double u = random.uniform();
    ASSERT_GE(u, 0);
    ASSERT_LT(u, 1);
    ++bins[static_cast<std::size_t>(10 * u)];
  }
  for (const int count : bins) EXPECT_NEAR(count, draws / 10.0, 500);  // five standard deviations
}

TEST(RandomSource, ExponentialNumbersHaveMeanOneAndFallAsTheyShould) {
  RandomSource random(2);
  constexpr int draws = 100'000;
  double sum = 0;
  int aboveThree = 0;
  for (int i = 0; i < draws; ++i) {
    const double x = random.exponential();
    ASSERT_GE(x, 0);
    sum += x;
    aboveThree += x > 3;
  }
  EXPECT_NEAR(sum / draws, 1, 0.016);
  EXPECT_NEAR(aboveThree, draws * std::exp(-3), 350);
}

TEST(RandomSource, NormalNumbersHaveTheirMoments) {
  RandomSource random(3);
  constexpr int draws = 100'000;
  double sum = 0;
  double squares = 0;
  int beyondTwo = 0;
  for (int i = 0; i < draws; ++i) {
    const double x = random.normal();
    sum += x;
    squares += x * x;
    beyondTwo += std::abs(x) > 2;
  }
  EXPECT_NEAR(sum / draws, 0, 0.016);
  EXPECT_NEAR(squares / draws, 1, 0.023);
  EXPECT_NEAR(beyondTwo, draws * 0.0455, 330);
}

}  // namespace
}  // namespace explorer
