#pragma once

#include <Vexel/Adopter.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

namespace vexel {

/// An adopter that serves lines through its markers and, for every other identifier, a series of
/// three points. It counts what it is asked for.
class MarkerPlot : public Adopter<VexelWithMarkers> {
 public:
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

  std::size_t numberOfRecords(const CPTPlot& plot) override {
    ++asked[plot.identifier()];
    return 3;
  }

  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    const bool isX = field == CPTScatterPlotFieldX;
    const std::string& name = plot.identifier();
    if (name == kVerticalMarker) return isX ? verticalMarkerX() : kAlong[record];
    if (name == kPermanentVerticalMarker) return isX ? permanentVerticalMarkerX() : kAlong[record];
    if (name == kHorizontalMarker) return isX ? kAlong[record] : horizontalMarkerY();
    if (name == kPermanentHorizontalMarker)
      return isX ? kAlong[record] : permanentHorizontalMarkerY();
    return kSeries[record];
  }

  std::map<std::string, int> asked;

 private:
  static constexpr double kAlong[] = {-100, 100, std::numeric_limits<double>::quiet_NaN()};
  static constexpr double kSeries[] = {0, 5, 10};
};

}  // namespace vexel
