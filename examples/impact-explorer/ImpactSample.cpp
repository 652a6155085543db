#include "ImpactSample.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>
#include <string>

#include "Orbit.h"
#include "RandomSource.h"

namespace explorer {
namespace {

constexpr std::uint64_t seed = 20200530;

constexpr double firstDay = 2459000.5;
constexpr double days = 1096;

constexpr double semiMajorAxis = 0.75;
constexpr double eccentricity = 0.55;
constexpr double perihelionDay = firstDay + 96.3;

constexpr double grainDensity = 2500;     // kg/m^3
constexpr double heaviest = 1e-11;        // kg
constexpr double threshold = 10;          // fC
constexpr double saturation = 2e6;        // fC
constexpr double chargeScatter = 0.13;    // decades
constexpr double riseTimeScatter = 0.06;  // decades
constexpr double recordLength = 400;      // us
/// Of impacts at the threshold; falls with the charge.
constexpr double shareOfUnclear = 0.25;

/// Impacts per day at 1 au of grains on circular orbits and of grains driven outwards.
constexpr double boundRate = 5.2;
constexpr double outwardRate = 3.1;

constexpr DaySpan afterStart(double start, double end) {
  return {firstDay + start, firstDay + end};
}

constexpr std::array instrumentOff = {
    afterStart(60.8, 66.9),   afterStart(148.0, 149.6), afterStart(233.4, 247.1),
    afterStart(377.3, 380.9), afterStart(512.0, 518.4), afterStart(689.1, 691.2),
    afterStart(760.5, 783.3), afterStart(901.0, 903.9), afterStart(1010.4, 1014.2),
};

constexpr std::array withoutWaveforms = {afterStart(421.0, 439.5), afterStart(842.2, 851.0)};

/// A cloud of grains along the path of a comet, which the spacecraft crosses at one point of its
/// orbit.
struct Stream {
  double trueAnomaly;               // where the spacecraft crosses it, rad
  double width;                     // rad
  double speed;                     // of its grains against the spacecraft, km/s
  double peakRate;                  // impacts per day
  std::array<double, 6> strengths;  // per revolution, from the one under way at the start
};

constexpr std::array streams = {
    Stream{2.45, 0.035, 41, 110, {1.0, 0.5, 1.3, 0.4, 0.9, 0.7}},
    Stream{3.55, 0.020, 28, 60, {0.3, 1.4, 0.5, 1.1, 0.2, 0.6}},
    Stream{5.05, 0.060, 55, 80, {0.6, 0.8, 0.3, 2.1, 0.7, 0.5}},
};

bool anyContains(const auto& spans, double day) {
  return std::ranges::any_of(spans, [day](const DaySpan& span) { return span.contains(day); });
}

/// To 20 significant bits.
double rounded(double value) {
  int exponent = 0;
  const double mantissa = std::frexp(value, &exponent);
  return std::ldexp(std::nearbyint(std::ldexp(mantissa, 20)), exponent - 20);
}

double decades(double exponent) {
  return std::pow(10.0, exponent);
}

/// Charge in fC that a grain of `mass` kg frees at `speed` km/s.
double impactCharge(double mass, double speed) {
  return 0.7e15 * std::pow(mass, 1.02) * std::pow(speed, 3.48);
}

/// The lightest grain that `impactCharge` puts at the threshold.
double lightestSeen(double speed) {
  return std::pow(threshold / (0.7e15 * std::pow(speed, 3.48)), 1 / 1.02);
}

/// Diameter in um of a sphere of `mass` kg.
double grainSize(double mass) {
  return 1e6 * std::cbrt(6 * mass / (std::numbers::pi * grainDensity));
}

/// us; fast impacts rise fast.
double riseTime(double speed) {
  return 320 * std::pow(speed, -0.95);
}

struct Grain {
  double mass;   // kg
  double speed;  // against the spacecraft, km/s
};

/// The grains around the spacecraft at one moment.
class Surroundings {
 public:
  explicit Surroundings(double day) : state_(orbit().at(day)) {
    const double r = state_.distance;
    // Density times typical speed of approach, each relative to that at 1 au.
    bound_ = boundRate * std::pow(r, -1.3) * (1 + std::abs(state_.radialSpeed) / 20);
    outward_ = outwardRate * std::pow(r, -2.0) * (1 - state_.radialSpeed / outwardSpeed);
    const auto revolution =
        static_cast<std::size_t>(std::floor((day - perihelionDay) / orbit().period()) + 1);
    for (std::size_t i = 0; i < streams.size(); ++i) {
      const double offset = (state_.trueAnomaly - streams[i].trueAnomaly) / streams[i].width;
      streams_[i] = streams[i].peakRate * streams[i].strengths.at(revolution) *
                    std::exp(-offset * offset / 2);
    }
  }

  double distance() const { return state_.distance; }

  /// Impacts per day of all populations.
  double rate() const {
    double sum = bound_ + outward_;
    for (const double stream : streams_) sum += stream;
    return sum;
  }

  /// The next grain that hits: of each population in proportion to its rate.
  Grain draw(RandomSource& random) const {
    double choice = random.uniform() * rate();
    if ((choice -= bound_) < 0) return drawBound(random);
    if ((choice -= outward_) < 0) return drawOutward(random);
    for (std::size_t i = 0; i + 1 < streams.size(); ++i)
      if ((choice -= streams_[i]) < 0) return drawFromStream(streams[i], random);
    return drawFromStream(streams.back(), random);
  }

 private:
  static constexpr double outwardSpeed = 55;  // km/s

  static const Orbit& orbit() {
    static const Orbit orbit(semiMajorAxis, eccentricity, perihelionDay);
    return orbit;
  }

  double speedAgainst(double radial, double transverse, double normal) const {
    return std::hypot(radial - state_.radialSpeed, transverse - state_.transverseSpeed, normal);
  }

  Grain drawBound(RandomSource& random) const {
    const double radial = 5 * random.normal();
    const double transverse = circularSpeed(state_.distance) + 3 * random.normal();
    const double normal = 7 * random.normal();
    const double speed = std::max(1.0, speedAgainst(radial, transverse, normal));
    return {massAboveThreshold(speed, 0.62, random), speed};
  }

  Grain drawOutward(RandomSource& random) const {
    const double radial = outwardSpeed + 6 * random.normal();
    const double transverse = 8 / state_.distance + 2 * random.normal();
    const double speed = std::max(1.0, speedAgainst(radial, transverse, 4 * random.normal()));
    return {decades(-16.9 + 0.45 * random.normal()), speed};
  }

  Grain drawFromStream(const Stream& stream, RandomSource& random) const {
    const double speed = stream.speed + 1.2 * random.normal();
    return {massAboveThreshold(speed, 0.45, random), speed};
  }

  /// The number of grains above a mass falls with that mass to the power -`slope`.
  static double massAboveThreshold(double speed, double slope, RandomSource& random) {
    const double lightest = lightestSeen(speed) * decades(-2 * chargeScatter);
    const double shareAbove = std::pow(heaviest / lightest, -slope);
    return lightest * std::pow(1 - random.uniform() * (1 - shareAbove), -1 / slope);
  }

  Orbit::State state_;
  double bound_;
  double outward_;
  std::array<double, streams.size()> streams_;
};

struct Impact {
  double day;
  double charge;
  double speed;
  double mass;
  double size;
  double riseTime;
  double integral;
  double distance;
};

/// What the instrument reports of a grain; absent when it stays below the threshold.
std::optional<Impact> measured(double day, double distance, const Grain& grain,
                               RandomSource& random) {
  constexpr double absent = std::numeric_limits<double>::quiet_NaN();
  const double charge =
      impactCharge(grain.mass, grain.speed) * decades(chargeScatter * random.normal());
  const double rise = riseTime(grain.speed) * decades(riseTimeScatter * random.normal());
  const double decay = recordLength - rise / 2;
  const double baseline = 30 * random.normal();
  const bool isUnclear = random.uniform() < shareOfUnclear * threshold / charge;
  if (charge < threshold) return std::nullopt;

  Impact impact{.day = day,
                .charge = rounded(charge),
                .speed = rounded(grain.speed),
                .mass = rounded(grain.mass),
                .size = rounded(grainSize(grain.mass)),
                .riseTime = rounded(rise),
                .integral = rounded(charge * decay + baseline),
                .distance = rounded(distance)};
  if (charge > saturation) impact.charge = impact.integral = absent;
  if (anyContains(withoutWaveforms, day)) impact.riseTime = impact.integral = absent;
  if (isUnclear) impact.speed = impact.mass = impact.size = impact.riseTime = absent;
  return impact;
}

}  // namespace

ImpactSample impactSample() {
  constexpr double step = 0.125;  // days, during which the rate stays the same
  constexpr int steps = static_cast<int>(days / step);
  std::vector<Impact> impacts;
  RandomSource random(seed);
  for (int i = 0; i < steps; ++i) {
    const double start = firstDay + i * step;
    const double rate = Surroundings(start + step / 2).rate();
    for (double day = start; (day += random.exponential() / rate) < start + step;) {
      const Surroundings surroundings(day);
      const Grain grain = surroundings.draw(random);
      const double recordedDay = std::nearbyint(std::ldexp(day, 17)) * 0x1p-17;
      const auto impact = measured(recordedDay, surroundings.distance(), grain, random);
      if (impact && !anyContains(instrumentOff, recordedDay)) impacts.push_back(*impact);
    }
  }

  ImpactSample sample{.table = {}, .instrumentOff = {instrumentOff.begin(), instrumentOff.end()}};
  const auto addColumn = [&](const char* name, double Impact::*field) {
    Column column{.name = name, .values = {}};
    for (const auto& impact : impacts) column.values.push_back(impact.*field);
    sample.table.columns.push_back(std::move(column));
  };
  addColumn("Julian date", &Impact::day);
  addColumn("Impact charge [fC]", &Impact::charge);
  addColumn("Impact speed [km/s]", &Impact::speed);
  addColumn("Grain mass [kg]", &Impact::mass);
  addColumn("Grain size [um]", &Impact::size);
  addColumn("Rise time [us]", &Impact::riseTime);
  addColumn("Waveform integral [fC us]", &Impact::integral);
  addColumn("Radial distance [au]", &Impact::distance);
  return sample;
}

}  // namespace explorer
