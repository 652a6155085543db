#pragma once

#include <optional>
#include <vector>

#include <AppKit/NSEvent.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include "Band.h"

namespace explorer {

/// A figure whose graphs share a time axis. The time that they show can be changed, and vertical
/// markers stand in all of them: one that follows the pointer, and any number of pinned ones.
class TimeFigure : public virtual vexel::VexelWithMarkers {
 public:
  /// Sets and labels the time axes.
  void showTime(const TimeSpan& span);

  /// Puts the marker that follows the pointer to the time of the event, within the time shown.
  void moveMarker(const vexel::NSEvent& event);
  void hideMarker();
  /// Where it is; absent when it is hidden.
  std::optional<double> markerTime();

  void setPins(std::vector<double> times);

  /// The time at an event's place, whatever its height; absent when the figure has no graph.
  std::optional<double> timeAt(const vexel::NSEvent& event);
  /// How many days a point of the time axis covers.
  double daysPerPoint();

  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  double number(const vexel::CPTPlot& plot, unsigned field, std::size_t record) override;

 protected:
  virtual std::vector<std::shared_ptr<vexel::CPTXYGraph>> timeGraphs() { return graphs(); }
  /// Whether the time axis of the graph has labels and a title; otherwise it has neither.
  virtual bool isLabelled(const vexel::CPTXYGraph& graph) = 0;

  /// The axis of a band's values.
  void addValueAxis(const std::shared_ptr<vexel::CPTXYGraph>& graph, const Band& band);
  static bool isMarker(const vexel::CPTPlot& plot);

 private:
  void addTimeAxis(const std::shared_ptr<vexel::CPTXYGraph>& graph, const TimeSpan& span);

  std::vector<double> pins_;
  bool hasMarker_ = false;
};

}  // namespace explorer
