#pragma once

#include <vector>

#include "DaySpan.h"
#include "Table.h"

namespace explorer {

/// Some 20,000 dust impacts on a spacecraft, simulated over three years.
///
/// The spacecraft moves on an eccentric orbit between 0.34 and 1.16 au. It meets grains on nearly
/// circular orbits around the Sun, denser near the Sun; small grains that sunlight drives outwards;
/// and streams of large fast grains wherever it crosses the old path of a comet, stronger in some
/// revolutions than in others. An impact frees a charge that grows with mass and steeply with
/// speed; it is seen when the charge exceeds the threshold of the instrument.
///
/// The simulation always gives the same table. Its values carry 20 significant bits, so that
/// differences in the last place between mathematical libraries do not show.
struct ImpactSample {
  /// One row per impact, in order of time. Absent are the charge of impacts that saturate the
  /// amplifier, speed, mass, size and rise time of some faint ones, and everything read from the
  /// waveform in a few weeks in which waveforms were not transmitted.
  Table table;
  /// When the instrument was off, in order of time.
  std::vector<DaySpan> instrumentOff;
};

ImpactSample impactSample();

}  // namespace explorer
