#pragma once

#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Data.h"

namespace scenes {

/// The pixels of all scenes, at one pixel per point.
constexpr vexel::CGSize kSize{1600, 1000};

/// Graphs on top of each other, each with a grid, ticks, labels and axis titles, over series that
/// are lent.
class Figure : public vexel::Adopter<vexel::Vexel> {
 public:
  void addLine(std::size_t graph, const std::string& name, const Points& points);
  void addCircles(std::size_t graph, const std::string& name, const Points& points);
  void addColoredCircles(std::size_t graph, const std::string& name, const ColoredPoints& points);
  void addBars(std::size_t graph, const std::string& name, const Points& points);

  /// Both ranges of a graph, with axes formatted for them.
  void setRanges(std::size_t graph, const vexel::CPTPlotRange& x, const vexel::CPTPlotRange& y);
  void setXRange(std::size_t graph, double from, double to);
  /// Both ranges as its series have them.
  void fitRanges(std::size_t graph);

  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange records) override;
  vexel::CPTColorList symbolColors(const vexel::CPTScatterPlot& plot,
                                   vexel::CPTRecordRange records) override;

 private:
  std::map<std::string, const Points*> series_;
  std::map<std::string, const ColoredPoints*> colored_;
};

/// A figure in a view of kSize, of as many graphs as there are titles; an empty title is none.
struct Scene {
  Scene(const std::vector<std::string>& titles, const std::string& xTitle,
        const std::string& yTitle);

  std::shared_ptr<vexel::PlotView> view;
  std::unique_ptr<Figure> figure;
};

}  // namespace scenes
