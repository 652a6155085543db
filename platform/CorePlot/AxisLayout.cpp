#include "AxisLayout.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numbers>

#include "AxisGeometry.h"
#include "LabelChoice.h"
#include "TextReach.h"
#include "TickLabels.h"
#include "TitleLines.h"
#include "TurnedSize.h"

namespace vexel {

namespace {

// Ticks closer than this cannot be told apart.
constexpr CGFloat kClosestTicks = 3;
// More labels than this cannot be read on the longest axis, and take long to make.
constexpr int kMostLabels = 1000;
// Clear space between two labels along the axis, and between labels and title.
constexpr CGFloat kLabelGap = 4;
constexpr CGFloat kTitleGap = 3;
// Text that was made to fit may still be this much wider.
constexpr CGFloat kRoundingOfWidths = 1;
// A title that the view would cut is set in smaller type, as long as it can be read.
constexpr CGFloat kTitleSizes[] = {1, 0.85, 0.7};
// A tick this far outside the plot area still shows, at its edge: no eye tells the places apart.
constexpr CGFloat kEdgeTolerance = 0.5;

CPTSign orElse(CPTSign sign, CPTSign other) {
  return sign == CPTSign::none ? other : sign;
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

/// How much room labels have from the axis line outwards: beside the title, which can go without
/// it rather than have numbers cut, and without it.
struct LabelRoom {
  CGFloat besideTitle = std::numeric_limits<CGFloat>::infinity();
  CGFloat whole = std::numeric_limits<CGFloat>::infinity();
};

/// Made for the ticks.
std::vector<std::shared_ptr<CPTAxisLabel>> madeLabels(const CPTAxis& axis, const Ticks& ticks,
                                                      const AxisScale& scale, LabelRoom room) {
  const int most = std::min(tickRoom(scale.extent), kMostLabels);
  const std::size_t step = 1 + ticks.major.size() / static_cast<std::size_t>(most);
  std::vector<double> labelled;
  for (std::size_t i = 0; i < ticks.major.size(); i += step) labelled.push_back(ticks.major[i]);
  const auto contentsIn = [&](CGFloat width) {
    return tickLabels(labelled, *axis.labelFormatter(),
                      axis.labelTextStyle().value_or(CPTTextStyle{}), scale.logarithmic, width);
  };
  auto contents = contentsIn(room.besideTitle);
  const bool fit = std::all_of(contents.begin(), contents.end(), [&](const auto& content) {
    return !content || content->frame().size.width <= room.besideTitle + kRoundingOfWidths;
  });
  if (!fit) contents = contentsIn(room.whole);
  std::vector<std::shared_ptr<CPTAxisLabel>> labels;
  for (std::size_t i = 0; i < labelled.size(); ++i) {
    if (!contents[i]) continue;
    labels.push_back(std::make_shared<CPTAxisLabel>(contents[i]));
    labels.back()->setTickLocation(labelled[i]);
    labels.back()->setOffset(axis.labelOffset());
    labels.back()->setRotation(axis.labelRotation());
  }
  return labels;
}

/// Set by hand; those that the formatter leaves.
std::vector<std::shared_ptr<CPTAxisLabel>> labelsByHand(const CPTAxis& axis) {
  auto labels = axis.axisLabels();
  const auto& formatter = axis.labelFormatter();
  std::erase_if(labels, [&](const auto& label) {
    return !label->contentLayer() || std::isnan(label->tickLocation()) ||
           (formatter && formatter->string(label->tickLocation()).empty());
  });
  std::stable_sort(labels.begin(), labels.end(), [](const auto& a, const auto& b) {
    return a->tickLocation() < b->tickLocation();
  });
  return labels;
}

/// The number that a text is, of a time of day its hours; NaN for anything else.
double numberIn(const std::string& text) {
  const char* const end = text.data() + text.size();
  const char* const start = std::find_if(text.data(), end, [](char c) { return c != ' '; });
  double number = 0;
  double minutes = 0;
  auto [rest, error] = std::from_chars(start, end, number);
  if (error == std::errc{} && rest != end && *rest == ':')
    rest = std::from_chars(rest + 1, end, minutes).ptr;
  if (error != std::errc{} || rest != end) return std::numeric_limits<double>::quiet_NaN();
  return number + minutes / 60;
}

bool isTimeOfDay(const AxisLayout::Text& label) {
  return label.content->text().find(':') != std::string::npos;
}

LabelNumbers kindOf(const std::vector<AxisLayout::Text>& labels, const AxisScale& scale) {
  if (scale.logarithmic) return LabelNumbers::exponentsOfTen;
  return std::all_of(labels.begin(), labels.end(), isTimeOfDay) ? LabelNumbers::hoursOfDay
                                                                : LabelNumbers::plain;
}

/// The least change that puts a stretch into the view, or into its middle when it is too long.
CGFloat changeInto(Stretch view, Stretch stretch) {
  if (stretch.length() > view.length())
    return (view.low + view.high - stretch.low - stretch.high) / 2;
  if (stretch.low < view.low) return view.low - stretch.low;
  return std::min(view.high - stretch.high, 0.0);
}

/// From the line to the end of the view.
CGFloat roomBeside(const AxisLayout& layout, CPTSign side, const CGRect& view) {
  const Stretch visible = acrossOf(layout.coordinate, view);
  return side == CPTSign::positive ? visible.high - layout.line : layout.line - visible.low;
}

CPTSign titleSide(const CPTAxis& axis) {
  return orElse(axis.titleDirection(), labelSide(axis));
}

CGFloat titleDepth(const AxisLayout& layout) {
  return acrossOf(layout.coordinate, layout.title->box().size);
}

struct PlacedLabels {
  /// Where ticks have labels.
  std::vector<CGFloat> places;
  /// How far the farthest reaches from the axis line.
  CGFloat reach = 0;
};

/// Places the labels, beside the title that the layout has already.
PlacedLabels placeLabels(const CPTXYAxis& axis, const AxisScale& scale, const Ticks& ticks,
                         const CGRect& view, AxisLayout& layout) {
  const CPTSign side = labelSide(axis);
  const CGFloat tickEnd = tickReach(axis, side);
  const bool byHand = axis.labelingPolicy() == CPTAxisLabelingPolicy::none;
  const bool isUpright = axis.labelRotation() == 0 && layout.coordinate == CPTCoordinate::Y;
  LabelRoom room;
  if (isUpright) {
    room.whole = roomBeside(layout, side, view) - tickEnd - axis.labelOffset();
    room.besideTitle = room.whole;
    if (layout.title && titleSide(axis) == side) room.besideTitle -= kTitleGap + titleDepth(layout);
  }

  std::vector<AxisLayout::Text> texts;
  std::vector<CGFloat> places;
  std::vector<LabelStretch> stretches;
  std::vector<CGFloat> reaches;
  for (const auto& label : byHand                  ? labelsByHand(axis)
                           : axis.labelFormatter() ? madeLabels(axis, ticks, scale, room)
                                                   : decltype(labelsByHand(axis)){}) {
    const auto place = positionInside(label->tickLocation(), scale);
    if (!place) continue;
    AxisLayout::Text text{label->contentLayer(), {}, label->rotation()};
    const CGSize box = text.box().size;
    const CGFloat distance = tickEnd + label->offset();
    const CGFloat depth = acrossOf(layout.coordinate, box);
    const CGFloat half = alongOf(layout.coordinate, box) / 2;
    const CGFloat moved =
        *place + changeInto(alongOf(layout.coordinate, view), {*place - half, *place + half});
    text.center =
        layout.point(moved, layout.line + static_cast<CGFloat>(side) * (distance + depth / 2));
    const double number = byHand ? numberIn(label->contentLayer()->text()) : label->tickLocation();
    texts.push_back(std::move(text));
    places.push_back(*place);
    stretches.push_back(
        {scale.logarithmic ? std::log10(number) : number, moved - half, moved + half});
    reaches.push_back(distance + depth);
  }

  PlacedLabels placed{.places = {}, .reach = tickEnd};
  const CGFloat gap = layout.coordinate == CPTCoordinate::X ? kLabelGap : 0;
  for (const std::size_t i : chooseLabels(stretches, gap, kindOf(texts, scale))) {
    layout.labels.push_back(texts[i]);
    placed.places.push_back(places[i]);
    placed.reach = std::max(placed.reach, reaches[i]);
  }
  return placed;
}

/// Makes the title in a part of its size, still without a place.
void makeTitle(const CPTXYAxis& axis, CGFloat part, AxisLayout& layout) {
  if (!axis.title() || axis.title()->empty()) return;
  CPTTextStyle style = axis.titleTextStyle().value_or(CPTTextStyle{});
  style.fontSize *= part;
  layout.title = AxisLayout::Text{titleLines(*axis.title(), style, layout.along),
                                  {},
                                  axis.coordinate() == CPTCoordinate::X ? 0 : std::numbers::pi / 2};
}

/// Whether the title lies inside the view, as seen across.
bool placeTitle(const CPTXYAxis& axis, CGFloat labelReach, const CGRect& view, AxisLayout& layout) {
  if (!layout.title) return true;
  const CPTSign side = titleSide(axis);
  const CGFloat depth = titleDepth(layout);
  const CGFloat clear =
      side == labelSide(axis) && !layout.labels.empty() ? labelReach + kTitleGap : 0;
  const CGFloat distance =
      std::max(std::min(axis.titleOffset(), roomBeside(layout, side, view) - depth), clear);
  layout.title->center = layout.point(
      layout.along / 2, layout.line + static_cast<CGFloat>(side) * (distance + depth / 2));
  return distance + depth <= roomBeside(layout, side, view) + kRoundingOfWidths;
}

/// Places of ticks that the eye can tell apart: those with labels when all would be too many, or
/// some of them when there are no labels.
std::vector<CGFloat> apart(std::vector<CGFloat> places, const std::vector<CGFloat>& labelled,
                           CGFloat extent) {
  const auto most = static_cast<std::size_t>(tickRoom(extent));
  if (places.size() <= most) return places;
  if (!labelled.empty()) return labelled;
  const std::size_t step = 1 + places.size() / most;
  std::vector<CGFloat> some;
  for (std::size_t i = 0; i < places.size(); i += step) some.push_back(places[i]);
  return some;
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

bool touches(const AxisLayout::Text& text, const std::optional<CGRect>& rect) {
  return !rect || !textReach(text.box()).intersection(*rect).isEmpty();
}

void drawText(CGContext& context, const AxisLayout::Text& text, const std::optional<CGRect>& rect) {
  if (!std::isfinite(text.center.x) || !std::isfinite(text.center.y)) return;
  if (!touches(text, rect)) return;
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
  PlacedLabels labels;
  for (const CGFloat part : kTitleSizes) {
    makeTitle(axis, part, layout);
    layout.labels.clear();
    labels = placeLabels(axis, scale, ticks, view, layout);
    if (placeTitle(axis, labels.reach, view, layout)) break;
  }
  layout.majorTicks = apart(positionsInside(ticks.major, scale), labels.places, layout.along);
  layout.minorTicks = apart(positionsInside(ticks.minor, scale), {}, layout.along);
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

bool textTouches(const AxisLayout& layout, const std::optional<CGRect>& rect) {
  return !rect || (layout.title && touches(*layout.title, rect)) ||
         std::any_of(layout.labels.begin(), layout.labels.end(),
                     [&](const AxisLayout::Text& label) { return touches(label, rect); });
}

void drawLabels(CGContext& context, const AxisLayout& layout, const std::optional<CGRect>& rect) {
  for (const auto& label : layout.labels) drawText(context, label, rect);
}

void drawAxisTitle(CGContext& context, const AxisLayout& layout,
                   const std::optional<CGRect>& rect) {
  if (layout.title) drawText(context, *layout.title, rect);
}

}  // namespace vexel
