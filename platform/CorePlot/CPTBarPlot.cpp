#include <CorePlot/CPTBarPlot.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include <Kernels/BarRaster.h>

namespace vexel {

namespace {

// Narrower bars are drawn together as one antialiased shape without outline: rounding them to
// pixels would make their widths uneven, and outlines would hide them.
constexpr CGFloat kNarrowBar = 3;
// So far outside the plot area an outline cannot be seen, whatever its width, in points.
constexpr CGFloat kFarthestEdge = 1e4;
// Bars in files that share so little of the plot area are replaced by the longest of them, in
// points.
constexpr CGFloat kNarrowPart = 1.0 / 16;

/// False, and nothing is drawn, where the bars need a path.
template <class ForBars>
bool fillOnPixels(CGContext& context, const CPTFill& fill, bool areHorizontal,
                  const ForBars& forBars) {
  if (!fill.color()) return false;
  bool isDrawn = false;
  context.drawOnPixels([&](const CGPixels& pixels) {
    const CGAffineTransform& t = pixels.toPixels;
    if (t.b != 0 || t.c != 0) return;
    BarRaster raster(pixels.buffer, pixels.clip,
                     areHorizontal ? BarRaster::Direction::lying : BarRaster::Direction::upright);
    forBars([&](const CGRect& bar) {
      const CGPoint a = t.apply(bar.origin);
      const CGPoint b = t.apply({bar.maxX(), bar.maxY()});
      raster.add(CGRect::make(std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x),
                              std::abs(b.y - a.y)));
    });
    raster.draw(premultipliedPixel(fill.color()->cgColor()));
    isDrawn = true;
  });
  return isDrawn;
}

/// Whether two bars that follow each other can stand for one that is too narrow to tell.
bool areAlike(const CGRect& a, const CGRect& b, bool areHorizontal) {
  const CGRect both = a.unionWith(b);
  const CGFloat width = areHorizontal ? both.size.height : both.size.width;
  const bool meet = areHorizontal ? a.minX() <= b.maxX() && b.minX() <= a.maxX()
                                  : a.minY() <= b.maxY() && b.minY() <= a.maxY();
  return width <= kNarrowPart && meet;
}

template <class ForBars>
void fillPath(CGContext& context, const CPTFill& fill, bool areHorizontal, const ForBars& forBars) {
  CGMutablePath path;
  std::optional<CGRect> last;
  forBars([&](const CGRect& bar) {
    if (last && areAlike(*last, bar, areHorizontal)) {
      last = last->unionWith(bar);
      return;
    }
    if (last) path.addRect(*last);
    last = bar;
  });
  path.addRect(*last);
  fill.fill(context, path);
}

}  // namespace

/// Where bars stand on the plot area.
class CPTBarPlot::Geometry {
 public:
  Geometry(const CPTBarPlot& plot, const CPTXYPlotSpace& space)
      : plot_(plot),
        horizontal_(plot.barsAreHorizontal()),
        along_(space.scale(horizontal_ ? CPTCoordinate::Y : CPTCoordinate::X,
                           horizontal_ ? plot.plotAreaSize().height : plot.plotAreaSize().width)),
        across_(space.scale(horizontal_ ? CPTCoordinate::X : CPTCoordinate::Y,
                            horizontal_ ? plot.plotAreaSize().width : plot.plotAreaSize().height)) {
  }

  bool isDrawable() const { return along_.isDrawable() && across_.isDrawable(); }

  /// Location, base and tip in points; absent when the record has no bar.
  struct Bar {
    CGFloat from;
    CGFloat to;
    CGFloat base;
    CGFloat tip;
  };
  std::optional<Bar> bar(std::size_t record) const {
    const double location = plot_.locations_[record];
    const CGFloat tip = across_.position(plot_.tips_[record]);
    const double start = plot_.barBasesVary_ ? plot_.bases_[record] : plot_.baseValue_;
    CGFloat base = across_.position(start);
    if (std::isnan(base) && !std::isnan(start)) base = across_.length < 0 ? across_.extent : 0;

    CGFloat from, to;
    if (plot_.barWidthsAreInViewCoordinates_) {
      const CGFloat center = along_.position(location) + plot_.barOffset_;
      from = center - plot_.barWidth_ / 2;
      to = center + plot_.barWidth_ / 2;
    } else {
      const double center = location + plot_.barOffset_;
      from = along_.position(center - plot_.barWidth_ / 2);
      to = along_.position(center + plot_.barWidth_ / 2);
    }
    if (std::isnan(tip) || std::isnan(base) || std::isnan(from) || std::isnan(to))
      return std::nullopt;
    return Bar{std::min(from, to), std::max(from, to), base, tip};
  }

  CGPoint point(CGFloat along, CGFloat across) const {
    return horizontal_ ? CGPoint{across, along} : CGPoint{along, across};
  }

  /// The part of the bar that can be seen, with what reaches in of its outline.
  CGRect visibleRect(const Bar& bar, CGFloat margin) const {
    const auto clamped = [margin](CGFloat position, CGFloat extent) {
      return std::clamp(position, -margin, extent + margin);
    };
    const CGFloat from = clamped(bar.from, along_.extent);
    const CGFloat to = clamped(bar.to, along_.extent);
    const CGFloat low = clamped(std::min(bar.base, bar.tip), across_.extent);
    const CGFloat high = clamped(std::max(bar.base, bar.tip), across_.extent);
    return {point(from, low),
            horizontal_ ? CGSize{high - low, to - from} : CGSize{to - from, high - low}};
  }

 private:
  const CPTBarPlot& plot_;
  bool horizontal_;
  AxisScale along_;
  AxisScale across_;
};

CPTBarPlot::CPTBarPlot() : CPTPlot({}) {
  setLabelOffset(kDefaultLabelOffset);
}

void CPTBarPlot::setBarBasesVary(bool vary) {
  if (barBasesVary_ == vary) return;
  barBasesVary_ = vary;
  setDataNeedsReloading();
}

std::size_t CPTBarPlot::readData(CPTPlotDataSource& source, CPTRecordRange records) {
  locations_ = readField(source, CPTBarPlotFieldBarLocation, records, storedLocations_);
  tips_ = readField(source, CPTBarPlotFieldBarTip, records, storedTips_);
  std::size_t count = std::min(locations_.count(), tips_.count());
  if (!barBasesVary_) return count;
  bases_ = readField(source, CPTBarPlotFieldBarBase, records, storedBases_);
  return std::min(count, bases_.count());
}

RangeIndex::Extremes CPTBarPlot::extremes(CPTCoordinate coordinate, double floor) const {
  RangeIndex::Extremes found;
  const bool isAlong = (coordinate == CPTCoordinate::Y) == barsAreHorizontal_;
  for (std::size_t i = 0; i < recordCount(); ++i) {
    if (isAlong) {
      found.add(locations_[i], floor);
    } else {
      found.add(tips_[i], floor);
      found.add(barBasesVary_ ? bases_[i] : baseValue_, floor);
    }
  }
  return found;
}

void CPTBarPlot::drawSeries(CGContext& context, const CPTXYPlotSpace& space) {
  const Geometry geometry(*this, space);
  if (!geometry.isDrawable()) return;

  std::optional<CGStrokeStyle> outline;
  if (lineStyle_ && lineStyle_->lineWidth > 0 && std::isfinite(lineStyle_->lineWidth))
    outline = lineStyle_->strokeStyle();
  const bool isRound = barCornerRadius_ > 0;
  if (outline) outline->alignsToPixels = !isRound;
  const CGFloat margin = outline ? std::min(2 * outline->width, kFarthestEdge) : 1;

  bool someAreNarrow = false;
  forVisibleBars(geometry, margin, [&](const CGRect& rect, CGFloat width) {
    if (width < kNarrowBar && !isRound) {
      someAreNarrow = true;
      return;
    }
    CGMutablePath path;
    path.addRoundedRect(rect, isRound ? barCornerRadius_ : 0);
    if (fill_) isRound ? fill_->fill(context, path) : fill_->fill(context, rect);
    if (outline) context.stroke(path, *outline);
  });
  if (!someAreNarrow || (!fill_ && !outline)) return;
  const CPTFill fill = fill_ ? *fill_ : CPTFill(CPTColor(outline->color));
  const auto forNarrowBars = [&](const auto& visit) {
    forVisibleBars(geometry, margin, [&](const CGRect& rect, CGFloat width) {
      if (width < kNarrowBar) visit(rect);
    });
  };
  if (!fillOnPixels(context, fill, barsAreHorizontal_, forNarrowBars))
    fillPath(context, fill, barsAreHorizontal_, forNarrowBars);
}

/// Calls with what can be seen of each bar, and with its width.
template <class Visit>
void CPTBarPlot::forVisibleBars(const Geometry& geometry, CGFloat margin,
                                const Visit& visit) const {
  const CGRect area = CGRect{{}, plotAreaSize()}.insetBy(-margin, -margin);
  for (std::size_t record = 0; record < recordCount(); ++record) {
    const auto bar = geometry.bar(record);
    if (!bar) continue;
    const CGRect rect = geometry.visibleRect(*bar, margin);
    const bool isOutside = rect.minX() >= area.maxX() || rect.minY() >= area.maxY() ||
                           rect.maxX() <= area.minX() || rect.maxY() <= area.minY();
    if (!isOutside) visit(rect, bar->to - bar->from);
  }
}

std::vector<CPTPlot::LabelPlace> CPTBarPlot::labelPlaces(const CPTXYPlotSpace& space) const {
  std::vector<LabelPlace> places;
  const Geometry geometry(*this, space);
  if (!geometry.isDrawable()) return places;
  const CGRect area{{}, plotAreaSize()};
  for (std::size_t record = 0; record < recordCount(); ++record) {
    const auto bar = geometry.bar(record);
    if (!bar) continue;
    const CGPoint tip = geometry.point((bar->from + bar->to) / 2, bar->tip);
    if (!area.contains(tip)) continue;
    const CGFloat away = bar->tip < bar->base ? -1 : 1;
    places.push_back({record, tips_[record], tip, geometry.point(0, away)});
  }
  return places;
}

}  // namespace vexel
