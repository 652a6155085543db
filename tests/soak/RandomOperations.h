#pragma once

#include <random>

#include "SoakFigure.h"

namespace vexel::soak {

/// Does one random thing after another to figures; the same ones for the same seed.
class RandomOperations {
 public:
  explicit RandomOperations(std::uint32_t seed) : random_(seed) {}

  /// Of any kind, with a few series.
  FigureState newFigure();
  /// Changes a figure, sends it an event, draws or exports it.
  void step(SoakFigure& figure);
  /// True once in `times` times.
  bool oneIn(unsigned times) { return pick(times) == 0; }

 private:
  unsigned pick(unsigned count) { return static_cast<unsigned>(random_() % count); }
  double between(double lower, double upper);
  BandState newBand(double origin);
  SeriesState newSeries();
  CGSize newSize();
  RangeState newRange(double lower, double upper);
  NSEvent newEvent(const FigureState& state);
  void addOrRemoveMarker(SoakFigure& figure);

  std::mt19937 random_;
  unsigned names_ = 0;
};

}  // namespace vexel::soak
