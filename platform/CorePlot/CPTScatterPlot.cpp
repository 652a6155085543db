#include <CorePlot/CPTScatterPlot.h>

#include <algorithm>
#include <cmath>

#include <Kernels/Polyline.h>

namespace vexel {

namespace {

// No point that a thinned line leaves out was farther from it than this, in points.
constexpr CGFloat kLineTolerance = 0.02;
// The drawing library's time for one stroke grows faster than its length.
constexpr std::size_t kPointsPerStroke = 1000;

/// The corners of a line that steps from point to point.
std::vector<CGPoint> steps(std::span<const CGPoint> points, bool halfWay) {
  std::vector<CGPoint> result;
  result.reserve(3 * points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const CGPoint b = points[i];
    if (i > 0 && std::isfinite(points[i - 1].y) && std::isfinite(b.y)) {
      const CGPoint a = points[i - 1];
      const CGFloat turn = halfWay ? a.x + (b.x - a.x) / 2 : b.x;
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

void strokeRun(CGContext& context, const std::vector<CGPoint>& run, const CGStrokeStyle& style) {
  if (run.size() == 1) {
    CGMutablePath dot;
    const CGFloat radius = style.width / 2;
    dot.addEllipse(CGRect::make(run[0].x - radius, run[0].y - radius, style.width, style.width));
    context.fill(dot, style.color);
    return;
  }
  // Parts of an opaque solid line join unseen under round caps. A translucent line would darken
  // where they overlap, and a pattern would begin anew.
  const bool divisible = style.color.alpha() >= 1 && style.dashPattern.empty();
  if (!divisible || run.size() <= kPointsPerStroke) {
    strokePart(context, run, style);
    return;
  }
  CGStrokeStyle part = style;
  part.cap = CGLineCap::round;
  for (std::size_t first = 0; first + 1 < run.size(); first += kPointsPerStroke - 1)
    strokePart(context,
               std::span(run).subspan(first, std::min(kPointsPerStroke, run.size() - first)), part);
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
  return count;
}

void CPTScatterPlot::drawSeries(CGContext& context, const CPTXYPlotSpace& space) {
  const AxisScale xScale = space.scale(CPTCoordinate::X, plotAreaSize().width);
  const AxisScale yScale = space.scale(CPTCoordinate::Y, plotAreaSize().height);
  if (!xScale.isDrawable() || !yScale.isDrawable()) return;

  std::vector<CGPoint> points(recordCount());
  for (std::size_t i = 0; i < points.size(); ++i)
    points[i] = {xScale.position(x_[i]), yScale.position(y_[i])};

  drawLine(context, points);
  drawSymbols(context, points);
  if (hasLabels()) drawLabels(context, points);
}

void CPTScatterPlot::drawLine(CGContext& context, std::span<const CGPoint> points) const {
  if (!dataLineStyle_ || !(dataLineStyle_->lineWidth > 0)) return;
  CGStrokeStyle style = dataLineStyle_->strokeStyle();
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

void CPTScatterPlot::drawSymbols(CGContext& context, std::span<const CGPoint> points) const {
  if (!plotSymbol_ && recordSymbols_.empty()) return;

  // Neighbours with the same symbol are drawn in one call.
  std::vector<CGPoint> centers;
  const std::optional<CPTPlotSymbol>* current = nullptr;
  const auto flush = [&] {
    if (current && *current) (*current)->draw(context, centers);
    centers.clear();
  };
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!std::isfinite(points[i].x) || !std::isfinite(points[i].y)) continue;
    const auto* symbol = i < recordSymbols_.size() ? &recordSymbols_[i] : &plotSymbol_;
    if (symbol != current && (!current || *symbol != *current)) {
      flush();
      current = symbol;
    }
    centers.push_back(points[i]);
  }
  flush();
}

void CPTScatterPlot::drawLabels(CGContext& context, std::span<const CGPoint> points) const {
  const CGRect area{{}, plotAreaSize()};
  for (std::size_t i = 0; i < points.size(); ++i)
    if (area.contains(points[i]))
      if (const auto text = label(i, y_[i])) drawLabel(context, *text, points[i], {0, 1});
}

}  // namespace vexel
