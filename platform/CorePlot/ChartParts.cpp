#include "ChartParts.h"

#include <algorithm>

#include <CorePlot/CPTXYAxis.h>

#include "TextReach.h"

namespace vexel {

namespace {

constexpr std::size_t kPartsThatAreNoPlots = 4;

CGRect moved(const CGRect& rect, CGPoint by) {
  return {rect.origin + by, rect.size};
}

bool touches(const std::vector<ChartParts::Place>& places, const std::optional<CGRect>& rect) {
  return !rect || std::any_of(places.begin(), places.end(), [&](const ChartParts::Place& place) {
    return !place.rect.intersection(*rect).isEmpty();
  });
}

}  // namespace

ChartParts::ChartParts(CPTGraph& graph,
                       const std::function<std::shared_ptr<const AxisArrangement>()>& arrangement)
    : graph_(graph), frame_(graph.plotAreaFrame()), area_(frame_ ? frame_->plotArea() : nullptr) {
  parts_.reserve(kPartsThatAreNoPlots + graph.allPlots().size());
  parts_.push_back({.kind = Part::Kind::background,
                    .owner = &graph_,
                    .needsDisplay = graph.backgroundNeedsDisplay(),
                    .isMark = false,
                    .places = {},
                    .plot = nullptr});
  if (!area_ || area_->isHidden() || frame_->isHidden()) return;
  plotRect_ = {frame_->frame().origin + area_->frame().origin, area_->frame().size};
  arrangement_ = arrangement();
  axisSet_ = graph.axisSet();
  parts_.push_back({.kind = Part::Kind::grid,
                    .owner = axisSet_.get(),
                    .needsDisplay = graph.axesNeedDisplay(),
                    .isMark = false,
                    .places = {},
                    .plot = nullptr});
  addPlots();
  parts_.push_back({.kind = Part::Kind::text,
                    .owner = arrangement_.get(),
                    .needsDisplay = false,
                    .isMark = true,
                    .places = {},
                    .plot = nullptr});
  parts_.push_back({.kind = Part::Kind::annotations,
                    .owner = area_.get(),
                    .needsDisplay = area_->annotationsNeedDisplay(),
                    .isMark = true,
                    .places = {},
                    .plot = nullptr});
  for (const auto& annotation : area_->annotations())
    parts_.back().places.push_back(
        {moved(annotation->reach(), plotRect_.origin), annotation->needsDisplay()});
}

void ChartParts::addPlots() {
  // Reading data may change the list.
  const auto plots = graph_.allPlots();
  for (const auto& plot : plots) {
    const auto places = plot->placesOfMark(plotRect_.size);
    const bool needsDisplay = plot->needsDisplay();
    parts_.push_back({.kind = Part::Kind::plot,
                      .owner = plot.get(),
                      .needsDisplay = needsDisplay,
                      .isMark = places.has_value(),
                      .places = {},
                      .plot = plot});
    if (!places) continue;
    for (const CGRect& place : *places)
      parts_.back().places.push_back({moved(place, plotRect_.origin), needsDisplay});
  }
}

void ChartParts::draw(const Part& part, CGContext& context,
                      const std::optional<CGRect>& rect) const {
  switch (part.kind) {
    case Part::Kind::background:
      return drawBackground(context);
    case Part::Kind::grid:
      return drawGrid(context);
    case Part::Kind::plot:
      if (part.isMark && !touches(part.places, rect)) return;
      return inPlotArea(context, [&] {
        part.plot->setPlotAreaSize(plotRect_.size);
        part.plot->display(context);
      });
    case Part::Kind::text:
      return drawText(context, rect);
    case Part::Kind::annotations:
      if (!touches(part.places, rect)) return;
      return inPlotArea(context, [&] { area_->drawAnnotations(context, inPlotRect(rect)); });
  }
}

/// Draws in the plot area's coordinates.
template <class Draw>
void ChartParts::inPlotArea(CGContext& context, const Draw& draw) const {
  const CGSavedState state(context);
  const CGPoint origin = frame_->frame().origin;
  context.translate(origin.x, origin.y);
  frame_->clipToBorder(context);
  const CGPoint inFrame = plotRect_.origin - origin;
  context.translate(inFrame.x, inFrame.y);
  draw();
}

std::optional<CGRect> ChartParts::inPlotRect(const std::optional<CGRect>& rect) const {
  if (!rect) return std::nullopt;
  return moved(*rect, CGPoint{} - plotRect_.origin);
}

void ChartParts::drawBackground(CGContext& context) const {
  graph_.display(context);
  if (!frame_) return;
  const CGSavedState state(context);
  const CGPoint origin = frame_->frame().origin;
  context.translate(origin.x, origin.y);
  frame_->display(context);
}

void ChartParts::drawGrid(CGContext& context) const {
  inPlotArea(context, [&] {
    for (const auto& [axis, layout] : arrangement_->axes) drawMinorGrid(context, *axis, layout);
    for (const auto& [axis, layout] : arrangement_->axes) drawMajorGrid(context, *axis, layout);
  });
  {
    const CGSavedState state(context);
    const CGPoint origin = frame_->frame().origin;
    context.translate(origin.x, origin.y);
    frame_->drawBorder(context);
  }
  inPlotArea(context, [&] {
    if (axisSet_) {
      axisSet_->display(context);
      const auto all = axisSet_->axes();
      for (const auto& axis : all) axis->display(context);
    }
    for (const auto& [axis, layout] : arrangement_->axes) drawLineAndTicks(context, *axis, layout);
  });
}

void ChartParts::drawText(CGContext& context, const std::optional<CGRect>& rect) const {
  const auto reaches = [&](const AxisArrangement::Member& axis) {
    return textTouches(axis.layout, inPlotRect(rect));
  };
  if (std::any_of(arrangement_->axes.begin(), arrangement_->axes.end(), reaches))
    drawAxisText(context, rect);
  drawTitle(context, rect);
}

void ChartParts::drawAxisText(CGContext& context, const std::optional<CGRect>& rect) const {
  inPlotArea(context, [&] {
    for (const auto& placed : arrangement_->axes)
      drawLabels(context, placed.layout, inPlotRect(rect));
    for (const auto& placed : arrangement_->axes)
      drawAxisTitle(context, placed.layout, inPlotRect(rect));
  });
}

void ChartParts::drawTitle(CGContext& context, const std::optional<CGRect>& rect) const {
  if (!arrangement_->showsGraphTitle) return;
  const CGRect frame = graph_.titleFrame();
  if (rect && textReach(frame).intersection(*rect).isEmpty()) return;
  const CGSavedState state(context);
  context.translate(frame.minX(), frame.minY());
  CPTTextLayer(graph_.title().value(), graph_.titleTextStyle()).display(context);
}

}  // namespace vexel
