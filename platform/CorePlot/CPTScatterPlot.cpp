#include <CorePlot/CPTScatterPlot.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include <Kernels/Polyline.h>

namespace vexel {

namespace {

// No point that a thinned line leaves out was farther from it than this, in points.
constexpr CGFloat kLineTolerance = 0.02;
// The drawing library's time for one stroke grows faster than its length.
constexpr std::size_t kPointsPerStroke = 1000;
// Wider pens cover everything anyway, in points.
constexpr CGFloat kWidestPen = 1e4;

bool isFinite(CGPoint p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

/// The corners of a line that steps from point to point.
std::vector<CGPoint> steps(std::span<const CGPoint> points, bool halfWay) {
  std::vector<CGPoint> result;
  result.reserve(3 * points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const CGPoint b = points[i];
    if (i > 0 && isFinite(points[i - 1]) && isFinite(b)) {
      const CGPoint a = points[i - 1];
      const CGFloat turn = halfWay ? a.x / 2 + b.x / 2 : b.x;
      result.push_back({turn, a.y});
      result.push_back({turn, b.y});
    }
    result.push_back(b);
  }
  return result;
}

void strokePart(CGContext& context, std::span<const CGPoint> points, const CGStrokeStyle& style) {
  CGMutablePath path;
  path.addLines(points);
  context.stroke(path, style);
}

/// The line, as many points longer at both ends as a square cap is.
std::vector<CGPoint> withSquareEnds(std::vector<CGPoint> run, CGFloat width) {
  const auto extend = [width](CGPoint& end, CGPoint next) {
    const CGFloat length = std::hypot(end.x - next.x, end.y - next.y);
    const CGFloat factor = length > 0 ? width / 2 / length : 0;
    end = {end.x + factor * (end.x - next.x), end.y + factor * (end.y - next.y)};
  };
  extend(run.front(), run[1]);
  extend(run.back(), run[run.size() - 2]);
  return run;
}

/// Strokes a long opaque line part by part. The parts between the first and the last have round
/// caps, which join them unseen; the outer ones end as the style says.
void strokeInParts(CGContext& context, std::vector<CGPoint> run, CGStrokeStyle style) {
  if (style.cap == CGLineCap::square) {
    run = withSquareEnds(std::move(run), style.width);
    style.cap = CGLineCap::butt;
  }
  const std::size_t segments = run.size() - 1;
  const std::size_t parts =
      std::max<std::size_t>(3, (segments + kPointsPerStroke - 2) / (kPointsPerStroke - 1));
  const CGLineCap outerCap = style.cap;
  for (std::size_t part = 0; part < parts; ++part) {
    const std::size_t first = part * segments / parts;
    const std::size_t last = (part + 1) * segments / parts;
    const bool isOuter = part == 0 || part + 1 == parts;
    style.cap = isOuter ? outerCap : CGLineCap::round;
    strokePart(context, std::span(run).subspan(first, last - first + 1), style);
  }
}

void strokeRun(CGContext& context, const std::vector<CGPoint>& run, const CGStrokeStyle& style) {
  if (run.size() == 1) {
    CGMutablePath dot;
    const CGFloat radius = style.width / 2;
    dot.addEllipse(CGRect::make(run[0].x - radius, run[0].y - radius, style.width, style.width));
    context.fill(dot, style.color);
    return;
  }
  // A translucent line would darken where parts overlap, and a pattern would begin anew.
  const bool divisible = style.color.alpha() >= 1 && style.dashPattern.empty();
  if (divisible && run.size() > kPointsPerStroke)
    strokeInParts(context, run, style);
  else
    strokePart(context, run, style);
}

}  // namespace

CPTScatterPlot::CPTScatterPlot(CGRect frame) : CPTPlot(frame) {}

void CPTScatterPlot::setDataLineStyle(std::optional<CPTLineStyle> style) {
  if (dataLineStyle_ == style) return;
  dataLineStyle_ = std::move(style);
  setNeedsDisplay();
}

void CPTScatterPlot::setPlotSymbol(std::optional<CPTPlotSymbol> symbol) {
  if (plotSymbol_ == symbol) return;
  plotSymbol_ = std::move(symbol);
  setNeedsDisplay();
}

void CPTScatterPlot::setInterpolation(CPTScatterPlotInterpolation interpolation) {
  if (interpolation_ == interpolation) return;
  interpolation_ = interpolation;
  setNeedsDisplay();
}

std::size_t CPTScatterPlot::readData(CPTPlotDataSource& source, std::size_t records) {
  x_ = readField(source, CPTScatterPlotFieldX, records, storedX_);
  y_ = readField(source, CPTScatterPlotFieldY, records, storedY_);
  const std::size_t count = std::min(x_.count(), y_.count());
  recordSymbols_ = source.symbols(*this, {0, count});
  recordColors_ = source.symbolColors(*this, {0, count});
  return count;
}

std::vector<CGPoint> CPTScatterPlot::viewPoints(const CPTXYPlotSpace& space) const {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (!xScale.isDrawable() || !yScale.isDrawable()) return {};
  std::vector<CGPoint> points(recordCount());
  for (std::size_t i = 0; i < points.size(); ++i)
    points[i] = {xScale.position(x_[i]), yScale.position(y_[i])};
  return points;
}

void CPTScatterPlot::drawSeries(CGContext& context, const CPTXYPlotSpace& space) {
  const std::vector<CGPoint> points = viewPoints(space);
  drawLine(context, points);
  drawSymbols(context, points);
}

void CPTScatterPlot::drawLine(CGContext& context, std::span<const CGPoint> points) const {
  if (!dataLineStyle_) return;
  CGStrokeStyle style = dataLineStyle_->strokeStyle();
  if (!(style.width > 0 && std::isfinite(style.width))) return;
  style.width = std::min(style.width, kWidestPen);
  style.join = CGLineJoin::round;

  std::vector<CGPoint> corners;
  if (interpolation_ != CPTScatterPlotInterpolation::linear) {
    corners = steps(points, interpolation_ == CPTScatterPlotInterpolation::histogram);
    points = corners;
  }
  const CGRect reach = CGRect{{}, plotAreaSize()}.insetBy(-style.width, -style.width);
  for (auto& run : clippedRuns(points, reach)) {
    thinRun(run, kLineTolerance);
    strokeRun(context, run, style);
  }
}

CGRect CPTScatterPlot::visibleCenters(const CPTPlotSymbol& symbol) const {
  const CGRect reach = symbol.reach();
  return CGRect::make(-reach.maxX(), -reach.maxY(), plotAreaSize().width + reach.size.width,
                      plotAreaSize().height + reach.size.height);
}

void CPTScatterPlot::drawSymbols(CGContext& context, std::span<const CGPoint> points) const {
  const std::size_t withSymbol = std::min(recordSymbols_.size(), points.size());
  const std::size_t withColor = std::clamp(recordColors_.size(), withSymbol, points.size());
  drawRecordSymbols(context, points.first(withSymbol));
  if (!plotSymbol_) return;
  if (withColor > withSymbol)
    drawColoredSymbols(context, *plotSymbol_,
                       recordColors_.places().subspan(withSymbol, withColor - withSymbol),
                       points.subspan(withSymbol, withColor - withSymbol));
  std::vector<CGPoint> centers;
  const CGRect visible = visibleCenters(*plotSymbol_);
  std::ranges::copy_if(points.subspan(withColor), std::back_inserter(centers),
                       [&](const CGPoint& point) { return visible.contains(point); });
  plotSymbol_->draw(context, centers);
}

void CPTScatterPlot::drawRecordSymbols(CGContext& context, std::span<const CGPoint> points) const {
  // Neighbours with the same symbol are drawn in one call; what cannot be seen is left out.
  std::vector<CGPoint> centers;
  CGRect visible;
  const std::optional<CPTPlotSymbol>* current = nullptr;
  const auto flush = [&] {
    if (current && *current) (*current)->draw(context, centers);
    centers.clear();
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto* symbol = &recordSymbols_[i];
    if (!current || *symbol != *current) {
      flush();
      current = symbol;
      visible = *symbol ? visibleCenters(**symbol) : CGRect{};
    }
    if (*symbol && visible.contains(points[i])) centers.push_back(points[i]);
  }
  flush();
}

void CPTScatterPlot::drawColoredSymbols(CGContext& context, const CPTPlotSymbol& symbol,
                                        std::span<const std::uint32_t> colorOfPoint,
                                        std::span<const CGPoint> points) const {
  std::vector<std::uint32_t> colorOfCenter;
  std::vector<CGPoint> centers;
  const CGRect visible = visibleCenters(symbol);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (colorOfPoint[i] == CPTColorList::kNoColor || !visible.contains(points[i])) continue;
    colorOfCenter.push_back(colorOfPoint[i]);
    centers.push_back(points[i]);
  }
  symbol.draw(context, recordColors_.palette(), colorOfCenter, centers);
}

std::vector<CPTPlot::LabelPlace> CPTScatterPlot::labelPlaces(const CPTXYPlotSpace& space) const {
  const CGRect area{{}, plotAreaSize()};
  const std::vector<CGPoint> points = viewPoints(space);
  std::vector<LabelPlace> places;
  for (std::size_t i = 0; i < points.size(); ++i)
    if (area.contains(points[i])) places.push_back({i, y_[i], points[i], {0, 1}});
  return places;
}

}  // namespace vexel
