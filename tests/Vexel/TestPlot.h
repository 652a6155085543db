#pragma once

#include <Vexel/Adopter.h>

#include <string>
#include <vector>

namespace vexel {

/// An adopter with a few records that notes what it is asked.
class TestPlot : public Adopter<Vexel> {
 public:
  std::size_t numberOfRecords(const CPTPlot&) override { return points.size(); }
  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    return field == CPTScatterPlotFieldX ? points[record].x : points[record].y;
  }

  void setupPlot() override { calls.push_back("setupPlot"); }
  void draw(const std::vector<double>& presented) override {
    calls.push_back("draw");
    lastPresented = presented;
  }
  void refresh(const std::vector<double>& presented) override {
    calls.push_back("refresh");
    lastPresented = presented;
  }

  std::vector<CGPoint> points = {{0.25, 0.25}, {0.5, 0.75}, {0.75, 0.5}};
  std::vector<std::string> calls;
  std::vector<double> lastPresented = {-1};
};

}  // namespace vexel
