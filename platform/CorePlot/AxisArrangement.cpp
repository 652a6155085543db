#include "AxisArrangement.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "AxisGeometry.h"

namespace vexel {

namespace {

using Member = AxisArrangement::Member;
using Label = AxisLayout::Text;

// Between what one axis shows and the next axis outside it.
constexpr CGFloat kAxisGap = 6;
// Between the labels of two axes, and between a label and the line of another axis.
constexpr CGFloat kCornerGap = 1;
// Boxes of texts may share this much, because the texts have a padding.
constexpr CGFloat kSharedPadding = CPTTextLayer::kDefaultPadding;
// Axes that are less than this apart stand at the same place.
constexpr CGFloat kSamePlace = 0.5;

CPTSign opposite(CPTSign side) {
  return side == CPTSign::positive ? CPTSign::negative : CPTSign::positive;
}

/// How far an axis shows something outside its line, on the side of its labels; 0 when nothing.
CGFloat outerReach(const Member& member) {
  const AxisLayout& layout = member.layout;
  const CPTSign side = labelSide(*member.axis);
  CGFloat reach = layout.majorTicks.empty() ? 0 : tickReach(*member.axis, side);
  const auto include = [&](const Label& text) {
    const Stretch across = acrossOf(layout.coordinate, text.box());
    reach = std::max(
        reach, side == CPTSign::positive ? across.high - layout.line : layout.line - across.low);
  };
  for (const auto& label : layout.labels) include(label);
  if (layout.title) include(*layout.title);
  return std::isfinite(reach) ? reach : 0;
}

class Arranger {
 public:
  Arranger(std::vector<Member>& axes, const AxisArrangement::Surroundings& surroundings)
      : axes_(axes),
        plotArea_(surroundings.plotArea),
        view_(surroundings.view),
        graphTitle_(surroundings.graphTitle) {}

  /// Places a further axis, outside those that are at its place already.
  void add(const std::shared_ptr<CPTXYAxis>& axis, CGFloat line) {
    const CGRect view = viewBeside(*axis);
    auto layout = layoutAxis(*axis, plotArea_, view, line);
    if (!layout) return;
    Member member{axis, std::move(*layout)};
    if (const auto outside = placeOutside(member, line))
      member.layout = layoutAxis(*axis, plotArea_, view, *outside).value_or(member.layout);
    axes_.push_back(std::move(member));
    homes_.push_back(line);
  }

  void keepLabelsApart() {
    for (auto& member : axes_)
      for (const auto& other : axes_) {
        if (other.axis->axisLineStyle()) keepOffLine(member.layout, other.layout);
        clearTitle(member.layout, other.layout);
      }
    for (std::size_t i = 0; i < axes_.size(); ++i)
      for (std::size_t j = i + 1; j < axes_.size(); ++j)
        keepApart(axes_[i].layout, axes_[j].layout);
  }

  bool leaveRoomForGraphTitle() const {
    if (graphTitle_.isEmpty()) return false;
    return std::none_of(axes_.begin(), axes_.end(), [&](const Member& member) {
      const auto& labels = member.layout.labels;
      return std::any_of(labels.begin(), labels.end(),
                         [&](const Label& label) { return liesOnGraphTitle(label); });
    });
  }

  void clearGraphTitle() {
    for (auto& member : axes_)
      if (member.layout.title && liesOnGraphTitle(*member.layout.title))
        member.layout.title.reset();
  }

 private:
  bool liesOnGraphTitle(const Label& text) const {
    const CGSize common = text.box().intersection(graphTitle_).size;
    return std::min(common.width, common.height) > kSharedPadding;
  }

  /// What an axis can be seen in: a horizontal one below the title of the graph.
  CGRect viewBeside(const CPTXYAxis& axis) const {
    CGRect view = view_;
    if (axis.coordinate() == CPTCoordinate::X && !graphTitle_.isEmpty())
      view.size.height = std::max(0.0, graphTitle_.minY() - view.minY());
    return view;
  }

  /// The line for an axis that would cover others at its place; absent when there are none.
  std::optional<CGFloat> placeOutside(const Member& member, CGFloat home) const {
    if (!(outerReach(member) > 0)) return std::nullopt;
    const CPTSign side = labelSide(*member.axis);
    const CGFloat sign = static_cast<CGFloat>(side);
    CGFloat reach = 0;
    for (std::size_t i = 0; i < axes_.size(); ++i) {
      const auto& other = axes_[i];
      if (other.layout.coordinate != member.layout.coordinate || labelSide(*other.axis) != side ||
          std::abs(homes_[i] - home) > kSamePlace)
        continue;
      if (const CGFloat outer = outerReach(other); outer > 0)
        reach = std::max(reach, sign * (other.layout.line - home) + outer);
    }
    if (!(reach > 0)) return std::nullopt;
    return home + sign * (reach + kAxisGap + tickReach(*member.axis, opposite(side)));
  }

  void keepOffLine(AxisLayout& layout, const AxisLayout& other) {
    if (layout.coordinate == other.coordinate) return;
    for (std::size_t i = 0; i < layout.labels.size();) {
      const CGRect box = layout.labels[i].box();
      const Stretch along = alongOf(layout.coordinate, box);
      const Stretch across = acrossOf(layout.coordinate, box);
      const bool isCut = along.low < other.line && along.high > other.line &&
                         across.low < other.along && across.high > 0;
      const CGFloat up = other.line + kCornerGap - along.low;
      const CGFloat down = other.line - kCornerGap - along.high;
      if (isCut && !move(layout, i, up <= -down ? up : down) &&
          !move(layout, i, up <= -down ? down : up))
        layout.labels.erase(layout.labels.begin() + static_cast<std::ptrdiff_t>(i));
      else
        ++i;
    }
  }

  /// Where axes cross in the middle, the title of one may lie on labels of the other.
  static void clearTitle(AxisLayout& layout, const AxisLayout& other) {
    if (layout.coordinate == other.coordinate || !other.title) return;
    const CGRect title = other.title->box();
    std::erase_if(layout.labels,
                  [&](const Label& label) { return !label.box().intersection(title).isEmpty(); });
  }

  void keepApart(AxisLayout& a, AxisLayout& b) {
    if (a.coordinate == b.coordinate) return;
    AxisLayout& horizontal = a.coordinate == CPTCoordinate::X ? a : b;
    AxisLayout& vertical = a.coordinate == CPTCoordinate::X ? b : a;
    for (std::size_t i = 0; i < horizontal.labels.size(); ++i)
      for (std::size_t j = 0; j < vertical.labels.size(); ++j) {
        const CGRect h = horizontal.labels[i].box();
        const CGRect v = vertical.labels[j].box();
        if (h.intersection(v).isEmpty()) continue;
        const CGFloat right = h.midX() < v.midX() ? v.minX() - kCornerGap - h.maxX()
                                                  : v.maxX() + kCornerGap - h.minX();
        const CGFloat up = v.midY() < h.midY() ? h.minY() - kCornerGap - v.maxY()
                                               : h.maxY() + kCornerGap - v.minY();
        const bool moved = std::abs(right) <= std::abs(up)
                               ? move(horizontal, i, right) || move(vertical, j, up)
                               : move(vertical, j, up) || move(horizontal, i, right);
        if (moved) continue;
        vertical.labels.erase(vertical.labels.begin() + static_cast<std::ptrdiff_t>(j));
        --j;
      }
  }

  /// Moves a label along its axis, unless that takes it out of the view or onto a neighbour.
  bool move(AxisLayout& layout, std::size_t i, CGFloat distance) const {
    Label moved = layout.labels[i];
    (layout.coordinate == CPTCoordinate::X ? moved.center.x : moved.center.y) += distance;
    const CGRect box = moved.box();
    const Stretch along = alongOf(layout.coordinate, box);
    const Stretch visible = alongOf(layout.coordinate, view_);
    const bool isVisible = along.low >= visible.low && along.high <= visible.high;
    const auto touches = [&](std::size_t j) {
      return j < layout.labels.size() && !box.intersection(layout.labels[j].box()).isEmpty();
    };
    if (!isVisible || touches(i - 1) || touches(i + 1)) return false;
    layout.labels[i] = std::move(moved);
    return true;
  }

  std::vector<Member>& axes_;
  std::vector<CGFloat> homes_;
  CGSize plotArea_;
  CGRect view_;
  CGRect graphTitle_;
};

}  // namespace

AxisArrangement::Surroundings AxisArrangement::Surroundings::of(const CPTGraph& graph) {
  const auto& frame = graph.plotAreaFrame();
  if (!frame || !frame->plotArea()) return {};
  const CGRect area = frame->plotArea()->frame();
  const CGPoint origin = CGPoint{} - frame->frame().origin - area.origin;
  const CGRect title = graph.titleFrame();
  return {.plotArea = area.size,
          .view = {origin, graph.bounds().size},
          .graphTitle = {origin + title.origin, title.size}};
}

AxisArrangement::AxisArrangement(const CPTGraph& graph) : surroundings(Surroundings::of(graph)) {
  showsGraphTitle = !surroundings.graphTitle.isEmpty();
  const auto& set = graph.axisSet();
  if (!set || set->isHidden()) return;

  const CGSize plotArea = surroundings.plotArea;
  Arranger arranger(axes, surroundings);
  bool hasFirst[2] = {false, false};
  for (const auto& member : set->axes()) {
    const auto axis = std::dynamic_pointer_cast<CPTXYAxis>(member);
    if (!axis) continue;
    const bool isFurther =
        std::exchange(hasFirst[axis->coordinate() == CPTCoordinate::X ? 0 : 1], true);
    if (axis->isHidden()) continue;
    const bool standsAtFarEdge =
        isFurther && !axis->isPinned() && labelSide(*axis) == CPTSign::positive;
    const CGFloat farEdge =
        axis->coordinate() == CPTCoordinate::X ? plotArea.height : plotArea.width;
    arranger.add(axis, standsAtFarEdge ? farEdge : pinnedLine(*axis, plotArea));
  }
  arranger.keepLabelsApart();
  showsGraphTitle = arranger.leaveRoomForGraphTitle();
  if (showsGraphTitle) arranger.clearGraphTitle();
}

}  // namespace vexel
