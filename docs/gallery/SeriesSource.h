#pragma once

#include <Vexel/Vexel.h>

#include <deque>
#include <string>
#include <vector>

namespace gallery {

/// Numbers of a series, known by its name.
struct Series {
  std::string name;
  std::vector<double> x, y;
};

/// Answers for the series of a figure, none of which ever changes.
class SeriesSource : public virtual vexel::Vexel {
 public:
  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange) override;
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

 protected:
  /// Adds the series to the graph as a line, or as circles.
  std::shared_ptr<vexel::CPTScatterPlot> addLine(const std::shared_ptr<vexel::CPTXYGraph>& graph,
                                                 Series series, const vexel::NSColor& color,
                                                 float width = 1.5f);
  std::shared_ptr<vexel::CPTScatterPlot> addCircles(const std::shared_ptr<vexel::CPTXYGraph>& graph,
                                                    Series series, const vexel::NSColor& fill,
                                                    float size);
  std::shared_ptr<vexel::CPTBarPlot> addBars(const std::shared_ptr<vexel::CPTXYGraph>& graph,
                                             Series series, const vexel::NSColor& fill, float width,
                                             bool horizontal = false);

 private:
  // Plots borrow the numbers, which stay where they are when more are added.
  std::deque<Series> series_;
};

}  // namespace gallery
