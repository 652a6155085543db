#pragma once

#include <optional>
#include <vector>

#include "Band.h"
#include "DaySpan.h"
#include "ImpactSample.h"

namespace explorer {

/// What a figure of the sample points out.
struct Highlights {
  /// When the spacecraft first came closest to the Sun, Julian day, and how close, au.
  double perihelionDay;
  double perihelionDistance;
  /// The days around the fullest bar on which at least a quarter as many impacts were counted, and
  /// the number of that bar.
  DaySpan strongestStream;
  double mostImpacts;

  friend bool operator==(const Highlights&, const Highlights&) = default;
};

/// `counts` is the band of the sample's impacts over time. Absent when there is no impact.
std::optional<Highlights> highlightsOf(const ImpactSample& sample, const Band& counts);

}  // namespace explorer
