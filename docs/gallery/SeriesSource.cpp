#include "SeriesSource.h"

#include <PlotTheme/NSColorNames.h>

#include <algorithm>

namespace gallery {

using namespace vexel;

namespace {

const Series& seriesOf(const std::deque<Series>& all, const CPTPlot& plot) {
  return *std::ranges::find(all, plot.identifier(), &Series::name);
}

}  // namespace

std::size_t SeriesSource::numberOfRecords(const CPTPlot& plot) {
  return seriesOf(series_, plot).x.size();
}

std::optional<CPTNumericData> SeriesSource::numbers(const CPTPlot& plot, unsigned field,
                                                    CPTRecordRange) {
  const Series& series = seriesOf(series_, plot);
  return field == CPTScatterPlotFieldX ? series.x : series.y;
}

std::shared_ptr<CPTScatterPlot> SeriesSource::addLine(const std::shared_ptr<CPTXYGraph>& graph,
                                                      Series series, const NSColor& color,
                                                      float width) {
  series_.push_back(std::move(series));
  return addPlot({.to = graph,
                  .identifiedBy = series_.back().name,
                  .color = color,
                  .lineWidth = width,
                  .circle = false,
                  .circleSize = 0.0f,
                  .label = false,
                  .labelOffset = 0.0f,
                  .labelRotation = 0.0f});
}

std::shared_ptr<CPTScatterPlot> SeriesSource::addCircles(const std::shared_ptr<CPTXYGraph>& graph,
                                                         Series series, const NSColor& fill,
                                                         float size) {
  series_.push_back(std::move(series));
  return addPlot({.to = graph,
                  .identifiedBy = series_.back().name,
                  .color = theme().symbolLineColor(),
                  .lineWidth = 0.5f,
                  .circle = true,
                  .circleSize = size,
                  .circleFillColor = fill,
                  .label = false,
                  .labelOffset = 0.0f,
                  .labelRotation = 0.0f});
}

std::shared_ptr<CPTBarPlot> SeriesSource::addBars(const std::shared_ptr<CPTXYGraph>& graph,
                                                  Series series, const NSColor& fill, float width,
                                                  bool horizontal) {
  series_.push_back(std::move(series));
  const auto bars = addBarPlot({.to = graph,
                                .identifiedBy = series_.back().name,
                                .barWidth = width,
                                .barBasesVary = false,
                                .lineWidth = 1.0f,
                                .barsAreHorizontal = horizontal,
                                .labels = false,
                                .labelOffset = 0.0f,
                                .labelRotation = 0.0f});
  bars->setFill(CPTFill(vexel::getCPTColor(fill)));
  return bars;
}

}  // namespace gallery
