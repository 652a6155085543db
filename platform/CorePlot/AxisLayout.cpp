#include "AxisLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "TickLabels.h"
#include "TitleLines.h"

namespace vexel {

namespace {

// Ticks closer than this cannot be told apart.
constexpr CGFloat kClosestTicks = 3;
// Clear space between two labels along the axis, and between labels and title.
constexpr CGFloat kLabelGap = 4;
constexpr CGFloat kTitleGap = 3;
// A tick this far outside the plot area still shows, at its edge: no eye tells the places apart.
constexpr CGFloat kEdgeTolerance = 0.5;
// A tick at this part of the distance to the next one is a round number but for rounding.
constexpr double kRoundTolerance = 1e-6;

CPTSign orElse(CPTSign sign, CPTSign other) {
  return sign == CPTSign::none ? other : sign;
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

/// Where a rectangle begins and ends in one direction.
struct Stretch {
  CGFloat low;
  CGFloat high;
};
Stretch alongOf(CPTCoordinate coordinate, const CGRect& rect) {
  return coordinate == CPTCoordinate::X ? Stretch{rect.minX(), rect.maxX()}
                                        : Stretch{rect.minY(), rect.maxY()};
}
Stretch acrossOf(CPTCoordinate coordinate, const CGRect& rect) {
  return coordinate == CPTCoordinate::X ? Stretch{rect.minY(), rect.maxY()}
                                        : Stretch{rect.minX(), rect.maxX()};
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

/// The labels of an axis that say something, in ascending order of their places: those set by hand,
/// or those made for the ticks.
std::vector<std::shared_ptr<CPTAxisLabel>> labelsOf(const CPTAxis& axis, const Ticks& ticks,
                                                    const AxisScale& scale) {
  const NSFormatter* const formatter = axis.labelFormatter().get();
  std::vector<std::shared_ptr<CPTAxisLabel>> labels;
  if (axis.labelingPolicy() == CPTAxisLabelingPolicy::none) {
    labels = axis.axisLabels();
    std::erase_if(labels, [&](const auto& label) {
      return !label->contentLayer() || std::isnan(label->tickLocation()) ||
             (formatter && formatter->string(label->tickLocation()).empty());
    });
  } else if (formatter) {
    const std::size_t step =
        1 + ticks.major.size() / static_cast<std::size_t>(tickRoom(scale.extent));
    std::vector<double> labelled;
    for (std::size_t i = 0; i < ticks.major.size(); i += step) labelled.push_back(ticks.major[i]);
    const auto contents = tickLabels(
        labelled, *formatter, axis.labelTextStyle().value_or(CPTTextStyle{}), scale.logarithmic);
    for (std::size_t i = 0; i < labelled.size(); ++i) {
      if (!contents[i]) continue;
      labels.push_back(std::make_shared<CPTAxisLabel>(contents[i]));
      labels.back()->setTickLocation(labelled[i]);
      labels.back()->setOffset(axis.labelOffset());
      labels.back()->setRotation(axis.labelRotation());
    }
  }
  std::stable_sort(labels.begin(), labels.end(), [](const auto& a, const auto& b) {
    return a->tickLocation() < b->tickLocation();
  });
  return labels;
}

/// A label with its place.
struct PlacedLabel {
  double location;
  AxisLayout::Text text;
};

/// The least change that puts a stretch into the view, or into its middle when it is too long.
CGFloat changeInto(Stretch view, Stretch stretch) {
  if (stretch.high - stretch.low > view.high - view.low)
    return (view.low + view.high - stretch.low - stretch.high) / 2;
  if (stretch.low < view.low) return view.low - stretch.low;
  return std::min(view.high - stretch.high, 0.0);
}

bool isDecade(double number) {
  const double exponent = std::log10(number);
  return std::abs(exponent - std::round(exponent)) < kRoundTolerance;
}

/// Whether no two of every step-th label touch.
bool fit(const std::vector<PlacedLabel>& labels, std::size_t first, std::size_t step,
         CPTCoordinate coordinate) {
  for (std::size_t i = first + step; i < labels.size(); i += step) {
    const CGRect a = labels[i - step].text.box();
    const CGRect b = labels[i].text.box();
    const bool areApart =
        coordinate == CPTCoordinate::X
            ? std::abs(b.midX() - a.midX()) >= (a.size.width + b.size.width) / 2 + kLabelGap
            : std::abs(b.midY() - a.midY()) >= (a.size.height + b.size.height) / 2;
    if (!areApart) return false;
  }
  return true;
}

/// The first label to stay when every step-th does: such that they stand at multiples of the step
/// where the labels do, at 0, 20, 40 rather than 10, 30, 50.
std::size_t firstOf(const std::vector<PlacedLabel>& labels, std::size_t step, bool logarithmic) {
  const auto number = [&](std::size_t i) {
    return logarithmic ? std::log10(labels[i].location) : labels[i].location;
  };
  for (std::size_t i = 0; i < std::min(step, labels.size() - 1); ++i) {
    const double multiple = number(i) / ((number(1) - number(0)) * static_cast<double>(step));
    if (std::abs(multiple - std::round(multiple)) < kRoundTolerance) return i;
  }
  return 0;
}

/// Leaves every k-th label, with the smallest k at which no two of them touch. On a logarithmic
/// scale the labels between the decades go first.
void thinOut(std::vector<PlacedLabel>& labels, CPTCoordinate coordinate, bool logarithmic) {
  if (labels.empty() || fit(labels, 0, 1, coordinate)) return;
  const auto between = [](const PlacedLabel& label) { return !isDecade(label.location); };
  if (logarithmic && !std::all_of(labels.begin(), labels.end(), between))
    std::erase_if(labels, between);
  std::size_t step = 1;
  std::size_t first = 0;
  while (step < labels.size() && !fit(labels, first, step, coordinate))
    first = firstOf(labels, ++step, logarithmic);
  std::vector<PlacedLabel> kept;
  for (std::size_t i = first; i < labels.size(); i += step) kept.push_back(labels[i]);
  labels = std::move(kept);
}

/// Places the labels; returns how far the farthest reaches from the axis line.
CGFloat placeLabels(const CPTXYAxis& axis, const AxisScale& scale, const Ticks& ticks,
                    const CGRect& view, AxisLayout& layout) {
  const CPTSign side = labelSide(axis);
  const CGFloat sign = static_cast<CGFloat>(side);
  const CGFloat tickEnd = tickReach(axis, side);
  CGFloat reach = tickEnd;
  std::vector<PlacedLabel> placed;
  for (const auto& label : labelsOf(axis, ticks, scale)) {
    const auto place = positionInside(label->tickLocation(), scale);
    if (!place) continue;
    AxisLayout::Text text{label->contentLayer(), {}, label->rotation()};
    const CGSize box = text.box().size;
    const CGFloat distance = tickEnd + label->offset();
    const CGFloat depth = acrossOf(layout.coordinate, box);
    const CGFloat half = alongOf(layout.coordinate, box) / 2;
    const CGFloat moved =
        *place + changeInto(alongOf(layout.coordinate, view), {*place - half, *place + half});
    text.center = layout.point(moved, layout.line + sign * (distance + depth / 2));
    placed.push_back({label->tickLocation(), text});
    reach = std::max(reach, distance + depth);
  }
  thinOut(placed, layout.coordinate, scale.logarithmic);
  for (const auto& label : placed) layout.labels.push_back(label.text);
  return reach;
}

void placeTitle(const CPTXYAxis& axis, CGFloat labelReach, const CGRect& view, AxisLayout& layout) {
  if (!axis.title() || axis.title()->empty()) return;
  const CPTSign side = orElse(axis.titleDirection(), labelSide(axis));
  AxisLayout::Text title{
      titleLines(*axis.title(), axis.titleTextStyle().value_or(CPTTextStyle{}), layout.along),
      {},
      axis.coordinate() == CPTCoordinate::X ? 0 : std::numbers::pi / 2};
  const CGFloat depth = acrossOf(layout.coordinate, title.box().size);
  const CGFloat clear =
      side == labelSide(axis) && !layout.labels.empty() ? labelReach + kTitleGap : 0;
  const Stretch visible = acrossOf(layout.coordinate, view);
  const CGFloat room =
      side == CPTSign::positive ? visible.high - layout.line : layout.line - visible.low;
  const CGFloat distance = std::max(std::min(axis.titleOffset(), room - depth), clear);
  title.center = layout.point(layout.along / 2,
                              layout.line + static_cast<CGFloat>(side) * (distance + depth / 2));
  layout.title = std::move(title);
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

CGRect AxisLayout::Text::box() const {
  const CGSize size = turned(content->frame().size, rotation);
  return {{center.x - size.width / 2, center.y - size.height / 2}, size};
}

CPTSign labelSide(const CPTAxis& axis) {
  return orElse(axis.tickLabelDirection(), orElse(axis.tickDirection(), CPTSign::negative));
}

CGFloat tickReach(const CPTAxis& axis, CPTSign side) {
  if (!axis.majorTickLineStyle()) return 0;
  if (axis.tickDirection() == CPTSign::none) return axis.majorTickLength() / 2;
  return axis.tickDirection() == side ? axis.majorTickLength() : 0;
}

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

CGFloat pinnedLine(const CPTXYAxis& axis, CGSize plotArea) {
  const CGFloat across = acrossOf(axis.coordinate(), plotArea);
  if (axis.axisConstraints()) {
    const CGFloat pinned = axis.axisConstraints()->position(0, across);
    return std::isfinite(pinned) ? pinned : 0;
  }
  if (!axis.plotSpace()) return 0;
  const auto other = axis.coordinate() == CPTCoordinate::X ? CPTCoordinate::Y : CPTCoordinate::X;
  const CGFloat position =
      axis.plotSpace()->scale(other, across).position(axis.orthogonalPosition());
  return std::isnan(position) ? 0 : std::clamp(position, 0.0, across);
}

std::optional<AxisLayout> layoutAxis(const CPTXYAxis& axis, CGSize plotArea, const CGRect& view,
                                     CGFloat line) {
  if (!axis.plotSpace() || !(plotArea.width > 0 && plotArea.height > 0)) return std::nullopt;
  AxisLayout layout;
  layout.coordinate = axis.coordinate();
  layout.along = alongOf(axis.coordinate(), plotArea);
  layout.across = acrossOf(axis.coordinate(), plotArea);
  layout.line = line;

  const AxisScale scale = axis.plotSpace()->scale(axis.coordinate(), layout.along);
  const Ticks ticks = visibleTicks(axis, layout.along);
  layout.majorTicks = positionsInside(ticks.major, scale);
  layout.minorTicks = positionsInside(ticks.minor, scale);
  const CGFloat labelReach = placeLabels(axis, scale, ticks, view, layout);
  placeTitle(axis, labelReach, view, layout);
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
