#include "AxisLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vexel {

namespace {

// Ticks closer than this cannot be told apart.
constexpr CGFloat kClosestTicks = 3;
// Clear space between two labels along the axis, and between labels and title.
constexpr CGFloat kLabelGap = 4;
constexpr CGFloat kTitleGap = 3;
// A tick that rounding puts this far outside the plot area belongs to its edge.
constexpr CGFloat kEdgeTolerance = 1e-6;

CPTSign orElse(CPTSign sign, CPTSign other) {
  return sign == CPTSign::none ? other : sign;
}

/// How far the major ticks reach to one side of the axis line.
CGFloat tickReach(const CPTAxis& axis, CPTSign side) {
  if (!axis.majorTickLineStyle()) return 0;
  if (axis.tickDirection() == CPTSign::none) return axis.majorTickLength() / 2;
  return axis.tickDirection() == side ? axis.majorTickLength() : 0;
}

/// Width and height of the upright box around a turned one.
CGSize turned(CGSize size, CGFloat angle) {
  const CGFloat c = std::abs(std::cos(angle));
  const CGFloat s = std::abs(std::sin(angle));
  return {size.width * c + size.height * s, size.width * s + size.height * c};
}

/// The part of a size that lies along (across) the axis.
CGFloat alongOf(CPTCoordinate coordinate, CGSize size) {
  return coordinate == CPTCoordinate::X ? size.width : size.height;
}
CGFloat acrossOf(CPTCoordinate coordinate, CGSize size) {
  return coordinate == CPTCoordinate::X ? size.height : size.width;
}

CGFloat linePosition(const CPTXYAxis& axis, CGFloat across) {
  if (axis.axisConstraints()) {
    const CGFloat pinned = axis.axisConstraints()->position(0, across);
    return std::isfinite(pinned) ? pinned : 0;
  }
  const auto other = axis.coordinate() == CPTCoordinate::X ? CPTCoordinate::Y : CPTCoordinate::X;
  const CGFloat position =
      axis.plotSpace()->scale(other, across).position(axis.orthogonalPosition());
  return std::isnan(position) ? 0 : std::clamp(position, 0.0, across);
}

/// The place of a value along the axis; absent outside the plot area.
std::optional<CGFloat> positionInside(double value, const AxisScale& scale) {
  const CGFloat position = scale.position(value);
  const bool isInside = position >= -kEdgeTolerance && position <= scale.extent + kEdgeTolerance;
  if (!isInside) return std::nullopt;
  return std::clamp(position, 0.0, scale.extent);
}

std::vector<CGFloat> positionsInside(const std::vector<double>& values, const AxisScale& scale) {
  std::vector<CGFloat> positions;
  for (const double value : values)
    if (const auto position = positionInside(value, scale)) positions.push_back(*position);
  return positions;
}

std::vector<double> valuesInside(const std::set<double>& values, const AxisScale& scale) {
  std::vector<double> inside;
  for (const double value : values)
    if (positionInside(value, scale)) inside.push_back(value);
  return inside;
}

/// How many ticks an axis of that length has room for.
int tickRoom(CGFloat extent) {
  return 2 + static_cast<int>(std::clamp(extent / kClosestTicks, 0.0, 1e4));
}

/// The labels of an axis in ascending order of their places: those set by hand, or those that the
/// formatter gives for the ticks.
std::vector<std::shared_ptr<CPTAxisLabel>> labelsOf(const CPTAxis& axis, const Ticks& ticks,
                                                    CGFloat extent) {
  std::vector<std::shared_ptr<CPTAxisLabel>> labels;
  if (axis.labelingPolicy() == CPTAxisLabelingPolicy::none) {
    labels = axis.axisLabels();
    std::erase_if(labels, [](const auto& label) { return std::isnan(label->tickLocation()); });
  } else if (axis.labelFormatter()) {
    const CPTTextStyle style = axis.labelTextStyle().value_or(CPTTextStyle{});
    const std::size_t step = 1 + ticks.major.size() / static_cast<std::size_t>(tickRoom(extent));
    for (std::size_t i = 0; i < ticks.major.size(); i += step) {
      const double tick = ticks.major[i];
      const std::string text = axis.labelFormatter()->string(tick);
      if (text.empty()) continue;
      labels.push_back(std::make_shared<CPTAxisLabel>(text, style));
      labels.back()->setTickLocation(tick);
      labels.back()->setOffset(axis.labelOffset());
      labels.back()->setRotation(axis.labelRotation());
    }
  }
  std::stable_sort(labels.begin(), labels.end(), [](const auto& a, const auto& b) {
    return a->tickLocation() < b->tickLocation();
  });
  return labels;
}

/// Leaves every k-th label, with the smallest k at which no two of them touch.
void thinOut(std::vector<AxisLayout::Text>& labels, CPTCoordinate coordinate) {
  const auto half = [&](const AxisLayout::Text& label) {
    return alongOf(coordinate, turned(label.content->frame().size, label.rotation)) / 2;
  };
  const auto place = [&](const AxisLayout::Text& label) {
    return coordinate == CPTCoordinate::X ? label.center.x : label.center.y;
  };
  const CGFloat gap = coordinate == CPTCoordinate::X ? kLabelGap : 0;
  const auto fits = [&](std::size_t step) {
    for (std::size_t i = step; i < labels.size(); i += step) {
      const auto& a = labels[i - step];
      const auto& b = labels[i];
      if (std::abs(place(b) - place(a)) < half(a) + half(b) + gap) return false;
    }
    return true;
  };
  std::size_t step = 1;
  while (step < labels.size() && !fits(step)) ++step;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < labels.size(); i += step) std::swap(labels[kept++], labels[i]);
  labels.resize(kept);
}

/// Places the labels; returns how far the farthest reaches from the axis line.
CGFloat placeLabels(const CPTXYAxis& axis, const AxisScale& scale, const Ticks& ticks,
                    AxisLayout& layout) {
  const CPTSign side =
      orElse(axis.tickLabelDirection(), orElse(axis.tickDirection(), CPTSign::negative));
  const CGFloat sign = static_cast<CGFloat>(side);
  CGFloat reach = tickReach(axis, side);
  const CGFloat tickEnd = reach;
  for (const auto& label : labelsOf(axis, ticks, layout.along)) {
    const auto place = positionInside(label->tickLocation(), scale);
    if (!place || !label->contentLayer()) continue;
    const CGSize box = turned(label->contentLayer()->frame().size, label->rotation());
    const CGFloat depth = acrossOf(axis.coordinate(), box);
    const CGFloat distance = tickEnd + label->offset();
    layout.labels.push_back({label->contentLayer(),
                             layout.point(*place, layout.line + sign * (distance + depth / 2)),
                             label->rotation()});
    reach = std::max(reach, distance + depth);
  }
  thinOut(layout.labels, axis.coordinate());
  return reach;
}

void placeTitle(const CPTXYAxis& axis, CGFloat labelReach, AxisLayout& layout) {
  if (!axis.title() || axis.title()->empty()) return;
  const CPTSign labelSide =
      orElse(axis.tickLabelDirection(), orElse(axis.tickDirection(), CPTSign::negative));
  const CPTSign side = orElse(axis.titleDirection(), labelSide);
  const auto content =
      std::make_shared<CPTTextLayer>(*axis.title(), axis.titleTextStyle().value_or(CPTTextStyle{}));
  const CGFloat rotation = axis.coordinate() == CPTCoordinate::X ? 0 : std::numbers::pi / 2;
  const CGFloat depth = acrossOf(axis.coordinate(), turned(content->frame().size, rotation));
  const CGFloat clear = side == labelSide && !layout.labels.empty() ? labelReach + kTitleGap : 0;
  const CGFloat distance = std::max(axis.titleOffset(), clear);
  layout.title =
      AxisLayout::Text{content,
                       layout.point(layout.along / 2, layout.line + static_cast<CGFloat>(side) *
                                                                        (distance + depth / 2)),
                       rotation};
}

/// Lines across the axis from one place across to another, one path for all.
void drawLines(CGContext& context, CGStrokeStyle style, const AxisLayout& layout,
               const std::vector<CGFloat>& places, CGFloat from, CGFloat to) {
  if (places.empty() || from == to || !std::isfinite(from) || !std::isfinite(to)) return;
  CGMutablePath path;
  for (const CGFloat place : places) {
    path.move(layout.point(place, from));
    path.addLine(layout.point(place, to));
  }
  style.alignsToPixels = true;
  context.stroke(path, style);
}

void drawTicks(CGContext& context, const std::optional<CPTLineStyle>& style, CPTSign direction,
               CGFloat length, const AxisLayout& layout, const std::vector<CGFloat>& places) {
  if (!style) return;
  CGStrokeStyle stroke = style->strokeStyle();
  if (direction == CPTSign::none)
    return drawLines(context, stroke, layout, places, layout.line - length / 2,
                     layout.line + length / 2);
  // With square caps both ends are placed as the axis line is, so that ticks on opposite sides
  // show the same length.
  if (stroke.cap == CGLineCap::butt) stroke.cap = CGLineCap::square;
  drawLines(context, stroke, layout, places, layout.line,
            layout.line + static_cast<CGFloat>(direction) * length);
}

void drawGrid(CGContext& context, const std::optional<CPTLineStyle>& style,
              const AxisLayout& layout, const std::vector<CGFloat>& places) {
  if (style) drawLines(context, style->strokeStyle(), layout, places, 0, layout.across);
}

void drawText(CGContext& context, const AxisLayout::Text& text) {
  if (!std::isfinite(text.center.x) || !std::isfinite(text.center.y)) return;
  const CGSize size = text.content->frame().size;
  const CGSavedState state(context);
  context.translate(text.center.x, text.center.y);
  if (text.rotation != 0) context.rotate(text.rotation);
  context.translate(-size.width / 2, -size.height / 2);
  text.content->display(context);
}

}  // namespace

Ticks visibleTicks(const CPTAxis& axis, CGFloat extent) {
  const CPTPlotRange& range = axis.plotSpace()->range(axis.coordinate());
  const AxisScale scale = axis.plotSpace()->scale(axis.coordinate(), extent);
  const double lower = range.minLimitDouble();
  const double upper = range.maxLimitDouble();
  const int room = tickRoom(extent);
  switch (axis.labelingPolicy()) {
    case CPTAxisLabelingPolicy::none:
    case CPTAxisLabelingPolicy::locationsProvided:
      return {valuesInside(axis.majorTickLocations(), scale),
              valuesInside(axis.minorTickLocations(), scale)};
    case CPTAxisLabelingPolicy::fixedInterval:
      if (scale.logarithmic) return logarithmicTicks(lower, upper, room);
      return fixedIntervalTicks(lower, upper, axis.majorIntervalLength(), axis.labelingOrigin(),
                                axis.minorTicksPerInterval(), room);
    case CPTAxisLabelingPolicy::automatic:
      if (scale.logarithmic) return logarithmicTicks(lower, upper, room);
      return automaticTicks(lower, upper, axis.preferredNumberOfMajorTicks(),
                            axis.minorTicksPerInterval(), room);
    case CPTAxisLabelingPolicy::equalDivisions:
      return equalDivisionTicks(lower, upper, std::min(axis.preferredNumberOfMajorTicks(), room),
                                axis.minorTicksPerInterval());
  }
  return {};
}

std::optional<AxisLayout> layoutAxis(const CPTXYAxis& axis, CGSize plotArea) {
  if (!axis.plotSpace() || !(plotArea.width > 0 && plotArea.height > 0)) return std::nullopt;
  AxisLayout layout;
  layout.coordinate = axis.coordinate();
  layout.along = alongOf(axis.coordinate(), plotArea);
  layout.across = acrossOf(axis.coordinate(), plotArea);
  layout.line = linePosition(axis, layout.across);

  const AxisScale scale = axis.plotSpace()->scale(axis.coordinate(), layout.along);
  const Ticks ticks = visibleTicks(axis, layout.along);
  layout.majorTicks = positionsInside(ticks.major, scale);
  layout.minorTicks = positionsInside(ticks.minor, scale);
  const CGFloat labelReach = placeLabels(axis, scale, ticks, layout);
  placeTitle(axis, labelReach, layout);
  return layout;
}

void drawMinorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout) {
  drawGrid(context, axis.minorGridLineStyle(), layout, layout.minorTicks);
}

void drawMajorGrid(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout) {
  drawGrid(context, axis.majorGridLineStyle(), layout, layout.majorTicks);
}

void drawLineAndTicks(CGContext& context, const CPTXYAxis& axis, const AxisLayout& layout) {
  drawTicks(context, axis.minorTickLineStyle(), axis.tickDirection(), axis.minorTickLength(),
            layout, layout.minorTicks);
  drawTicks(context, axis.majorTickLineStyle(), axis.tickDirection(), axis.majorTickLength(),
            layout, layout.majorTicks);
  if (!axis.axisLineStyle()) return;
  CGMutablePath path;
  path.move(layout.point(0, layout.line));
  path.addLine(layout.point(layout.along, layout.line));
  CGStrokeStyle stroke = axis.axisLineStyle()->strokeStyle();
  stroke.alignsToPixels = true;
  // The corner where two axes meet is filled.
  if (stroke.cap == CGLineCap::butt) stroke.cap = CGLineCap::square;
  context.stroke(path, stroke);
}

void drawLabels(CGContext& context, const AxisLayout& layout) {
  for (const auto& label : layout.labels) drawText(context, label);
}

void drawAxisTitle(CGContext& context, const AxisLayout& layout) {
  if (layout.title) drawText(context, *layout.title);
}

}  // namespace vexel
