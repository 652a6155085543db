#pragma once

#include <cstddef>
#include <vector>

#include "Band.h"

namespace explorer {

/// Which part of the time is shown: within limits, with a way back. Zooming and panning in small
/// steps is one step of the history as long as it is one gesture.
class TimeNavigation {
 public:
  /// The shortest span is at least so small a part of the whole.
  static constexpr double kShortest = 1e-6;
  static constexpr std::size_t kLongestHistory = 100;

  /// Shows all of it. A span that is not finite or has no length is taken as 0 to 1. Spans shorter
  /// than `shortest` are not shown, unless the whole is.
  explicit TimeNavigation(TimeSpan whole, double shortest = 0);

  const TimeSpan& whole() const { return whole_; }
  const TimeSpan& shown() const { return history_[place_]; }

  /// What follows is another step of the history.
  void beginGesture() { isNewGesture_ = true; }

  // Each returns whether another span is shown now.

  /// Shows the span as far as it is inside the whole: one that reaches beyond an end is moved, one
  /// that is too long or too short is given the nearest length about its middle. Ends may be given
  /// in either order; those that are not finite change nothing.
  bool show(TimeSpan wanted);
  /// Makes the span longer by the factor; `about` stays where it is, unless an end is reached.
  /// Factors that are not above 0 change nothing.
  bool zoom(double about, double factor);
  bool pan(double by);
  bool showAll();
  bool back();
  bool forward();

  bool canGoBack() const { return place_ > 0; }
  bool canGoForward() const { return place_ + 1 < history_.size(); }

 private:
  TimeSpan accepted(TimeSpan wanted) const;

  TimeSpan whole_;
  double shortest_;
  std::vector<TimeSpan> history_;
  std::size_t place_ = 0;
  bool isNewGesture_ = true;
};

}  // namespace explorer
