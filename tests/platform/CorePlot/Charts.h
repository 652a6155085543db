#pragma once

#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGRecordingContext.h>
#include <CorePlot/CPTBarPlot.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYGraph.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vexel {

/// A graph without paddings, so that its plot area has the graph's size, and without axes.
inline std::shared_ptr<CPTXYGraph> bareGraph(CGFloat width = 100, CGFloat height = 100) {
  auto graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, width, height));
  graph->setPadding(0);
  graph->setAxisSet(nullptr);
  return graph;
}

inline std::shared_ptr<CPTXYPlotSpace> spaceOf(const CPTGraph& graph) {
  return std::dynamic_pointer_cast<CPTXYPlotSpace>(graph.defaultPlotSpace());
}

inline std::shared_ptr<CPTXYAxisSet> axesOf(const CPTGraph& graph) {
  return std::dynamic_pointer_cast<CPTXYAxisSet>(graph.axisSet());
}

/// Sets the ranges so that the numbers of the data are points.
inline void measureInPoints(CPTGraph& graph) {
  const CGRect area = graph.plotAreaFrame()->plotArea()->bounds();
  spaceOf(graph)->setXRange({0, area.size.width});
  spaceOf(graph)->setYRange({0, area.size.height});
}

inline std::shared_ptr<CPTScatterPlot> addScatter(CPTGraph& graph, CPTPlotDataSource& source,
                                                  const std::string& identifier = {}) {
  auto plot = std::make_shared<CPTScatterPlot>();
  plot->setIdentifier(identifier);
  plot->setDataSource(&source);
  graph.addPlot(plot);
  return plot;
}

inline std::shared_ptr<CPTBarPlot> addBars(CPTGraph& graph, CPTPlotDataSource& source) {
  auto plot = std::make_shared<CPTBarPlot>();
  plot->setDataSource(&source);
  graph.addPlot(plot);
  return plot;
}

/// The calls that drawing the graph makes.
inline std::string recorded(CPTGraph& graph) {
  CGRecordingContext context;
  graph.displayChart(context);
  return context.text();
}

/// The recorded calls that start with one of the words, without indentation.
inline std::vector<std::string> calls(const std::string& text,
                                      const std::vector<std::string>& words) {
  std::vector<std::string> found;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find('\n', at);
    const std::string line = text.substr(at, end - at);
    at = end + 1;
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string::npos) continue;
    for (const std::string& word : words)
      if (line.compare(start, word.size() + 1, word + " ") == 0) {
        found.push_back(line.substr(start));
        break;
      }
  }
  return found;
}

inline std::vector<std::uint32_t> pixelsOf(CGBitmapContext& context) {
  const auto pixels = context.pixels();
  return {pixels.begin(), pixels.end()};
}

/// The graph drawn onto a new bitmap.
inline std::vector<std::uint32_t> drawn(CPTGraph& graph, CGFloat scale = 1) {
  const auto context = CGBitmapContext::create(graph.bounds().size, scale);
  graph.displayChart(*context);
  return pixelsOf(*context);
}

}  // namespace vexel
