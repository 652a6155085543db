#include "ImpactSample.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <set>

#include <gmock/gmock.h>

#include "DailyCounts.h"
#include "TimeColumn.h"

namespace explorer {
namespace {

const ImpactSample& sample() {
  static const ImpactSample sample = impactSample();
  return sample;
}

const std::vector<double>& column(const std::string& name) {
  return sample().table.columns[columnNamed(sample().table, name, "sample")].values;
}

std::vector<double> present(const std::string& name) {
  std::vector<double> values = column(name);
  std::erase_if(values, [](double v) { return std::isnan(v); });
  return values;
}

double quantile(const std::string& name, double share) {
  std::vector<double> values = present(name);
  std::ranges::sort(values);
  return values.at(static_cast<std::size_t>(share * static_cast<double>(values.size() - 1)));
}

/// Slope of the straight line through the points with both coordinates, by least squares.
double slope(const std::vector<double>& x, const std::vector<double>& y) {
  double n = 0, sx = 0, sy = 0, sxx = 0, sxy = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (std::isnan(x[i]) || std::isnan(y[i])) continue;
    n += 1;
    sx += x[i];
    sy += y[i];
    sxx += x[i] * x[i];
    sxy += x[i] * y[i];
  }
  return (n * sxy - sx * sy) / (n * sxx - sx * sx);
}

std::vector<double> logarithm(std::vector<double> values) {
  for (double& v : values) v = std::log10(v);
  return values;
}

std::uint64_t fingerprint(const Table& table) {
  std::uint64_t hash = 14695981039346656037u;
  for (const auto& c : table.columns)
    for (const double value : c.values) {
      hash ^= std::isnan(value) ? 1 : std::bit_cast<std::uint64_t>(value);
      hash *= 1099511628211u;
    }
  return hash;
}

TEST(ImpactSample, IsTheSameOnEveryMachine) {
  EXPECT_EQ(fingerprint(sample().table), 210916339046267783u);
  EXPECT_EQ(fingerprint(impactSample().table), fingerprint(sample().table));
}

TEST(ImpactSample, HoldsSomeTwentyThousandImpactsOfThreeYears) {
  EXPECT_NEAR(static_cast<double>(sample().table.rowCount()), 20'000, 500);
  for (const auto& c : sample().table.columns)
    EXPECT_EQ(c.values.size(), sample().table.rowCount()) << c.name;
  const auto& times = column("Julian date");
  EXPECT_TRUE(std::ranges::is_sorted(times));
  EXPECT_GE(times.front(), 2459000.5);
  EXPECT_LT(times.front(), 2459002);
  EXPECT_LT(times.back(), 2459000.5 + 1096);
  EXPECT_GT(times.back(), 2459000.5 + 1094);
}

TEST(ImpactSample, HasATimeColumnAndNamesThatDiffer) {
  EXPECT_EQ(timeColumn(sample().table, std::nullopt, "sample"), 0);
  std::set<std::string> names;
  for (const auto& c : sample().table.columns) names.insert(c.name);
  EXPECT_EQ(names.size(), 8);
}

TEST(ImpactSample, EveryValueIsAbsentOrPositiveAndFinite) {
  for (const auto& c : sample().table.columns)
    for (const double value : c.values)
      ASSERT_TRUE(std::isnan(value) || (std::isfinite(value) && value > 0)) << c.name;
}

TEST(ImpactSample, QuantitiesLieWhereDustDetectorsFindThem) {
  struct Case {
    const char* name;
    double lowest, medianFrom, medianTo, highest;
  };
  const Case cases[] = {
      {"Impact charge [fC]", 10, 50, 500, 2e6},
      {"Impact speed [km/s]", 1, 25, 40, 110},
      {"Grain mass [kg]", 1e-20, 1e-18, 1e-16, 1e-11},
      {"Grain size [um]", 0.02, 0.1, 0.3, 20},
      {"Rise time [us]", 2, 6, 20, 150},
      {"Radial distance [au]", 0.3374, 0.4, 0.8, 1.163},
  };
  for (const auto& c : cases) {
    EXPECT_GE(quantile(c.name, 0), c.lowest) << c.name;
    EXPECT_GE(quantile(c.name, 0.5), c.medianFrom) << c.name;
    EXPECT_LE(quantile(c.name, 0.5), c.medianTo) << c.name;
    EXPECT_LE(quantile(c.name, 1), c.highest) << c.name;
  }
}

TEST(ImpactSample, SomeCellsAreAbsentButMostAreThere) {
  const auto rows = static_cast<double>(sample().table.rowCount());
  for (const char* name : {"Julian date", "Radial distance [au]"})
    EXPECT_EQ(present(name).size(), sample().table.rowCount()) << name;
  for (const char* name : {"Impact charge [fC]", "Impact speed [km/s]", "Grain mass [kg]",
                           "Grain size [um]", "Rise time [us]", "Waveform integral [fC us]"}) {
    EXPECT_LT(present(name).size(), sample().table.rowCount()) << name;
    EXPECT_GT(static_cast<double>(present(name).size()), 0.9 * rows) << name;
  }
}

TEST(ImpactSample, SizeFollowsFromMassAndDensity) {
  const auto& mass = column("Grain mass [kg]");
  const auto& size = column("Grain size [um]");
  for (std::size_t i = 0; i < mass.size(); ++i) {
    ASSERT_EQ(std::isnan(mass[i]), std::isnan(size[i]));
    if (std::isnan(mass[i])) continue;
    const double radius = size[i] * 1e-6 / 2;
    ASSERT_NEAR(2500 * 4 / 3. * std::numbers::pi * radius * radius * radius / mass[i], 1, 1e-5);
  }
}

TEST(ImpactSample, ChargeGrowsWithMassAndSteeplyWithSpeed) {
  const auto& charge = column("Impact charge [fC]");
  const auto& speed = column("Impact speed [km/s]");
  const auto& mass = column("Grain mass [kg]");
  double sum = 0;
  double squares = 0;
  double count = 0;
  for (std::size_t i = 0; i < charge.size(); ++i) {
    const double expected = 0.7e15 * std::pow(mass[i], 1.02) * std::pow(speed[i], 3.48);
    if (std::isnan(charge[i]) || std::isnan(expected) || expected < 100) continue;
    const double decades = std::log10(charge[i] / expected);
    sum += decades;
    squares += decades * decades;
    ++count;
  }
  EXPECT_GT(count, 5000);
  EXPECT_NEAR(sum / count, 0, 0.01);
  EXPECT_NEAR(std::sqrt(squares / count), 0.13, 0.01);
}

TEST(ImpactSample, RiseTimeFallsWithSpeed) {
  EXPECT_NEAR(slope(logarithm(column("Impact speed [km/s]")), logarithm(column("Rise time [us]"))),
              -0.95, 0.02);
}

TEST(ImpactSample, TheIntegralIsChargeTimesTheLengthOfTheRecord) {
  const auto& charge = column("Impact charge [fC]");
  const auto& integral = column("Waveform integral [fC us]");
  for (std::size_t i = 0; i < charge.size(); ++i) {
    if (std::isnan(charge[i]) || std::isnan(integral[i])) continue;
    ASSERT_NEAR(integral[i] / charge[i], 390, 70) << i;
  }
}

TEST(ImpactSample, ImpactsAreMoreFrequentAndFasterNearTheSun) {
  const auto& distance = column("Radial distance [au]");
  const auto& speed = column("Impact speed [km/s]");
  double near = 0, far = 0, nearSpeed = 0, farSpeed = 0, nearCount = 0, farCount = 0;
  for (std::size_t i = 0; i < distance.size(); ++i) {
    const bool isNear = distance[i] < 0.5;
    const bool isFar = distance[i] > 1.0;
    near += isNear;
    far += isFar;
    if (std::isnan(speed[i])) continue;
    if (isNear) nearSpeed += speed[i], ++nearCount;
    if (isFar) farSpeed += speed[i], ++farCount;
  }
  // The spacecraft spends about 17 % of its time below 0.5 au and 45 % beyond 1 au.
  EXPECT_GT(near / 0.17, 4 * far / 0.45);
  EXPECT_GT(nearSpeed / nearCount, 1.15 * farSpeed / farCount);
}

TEST(ImpactSample, NothingIsSeenWhileTheInstrumentIsOff) {
  ASSERT_FALSE(sample().instrumentOff.empty());
  double end = 0;
  for (const auto& span : sample().instrumentOff) {
    EXPECT_GT(span.end - span.start, 1);
    EXPECT_GT(span.start, end);
    end = span.end;
    for (const double time : column("Julian date")) ASSERT_FALSE(span.contains(time));
  }
}

TEST(ImpactSample, CountsShowGapsQuietDaysAndStreams) {
  const auto days = countsPerDays(column("Julian date"), 1, sample().instrumentOff);
  EXPECT_EQ(days.counts.size(), 1096);
  std::vector<double> counts = days.counts;
  const auto gaps = std::erase_if(counts, [](double c) { return std::isnan(c); });
  EXPECT_GT(gaps, 40);
  EXPECT_LT(gaps, 70);
  std::ranges::sort(counts);
  EXPECT_LT(counts[counts.size() / 4], 10);
  EXPECT_GT(counts.back(), 3 * counts[counts.size() * 95 / 100 - 1] / 2);
}

}  // namespace
}  // namespace explorer
