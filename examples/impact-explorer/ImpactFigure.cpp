#include "ImpactFigure.h"

#include <Foundation/NSNumberFormatter.h>
#include <VexelWithMarkers/PlotMarker.h>
#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace explorer {

using namespace vexel;

namespace {

// Room of a band above and below its plot area, and what the lowest band takes in addition for the
// labels and the title of the time axis, in points.
constexpr CGFloat kBandPadding = 9;
constexpr CGFloat kRightPadding = 22;
// On the right when a band has a right axis; the plot areas stay below each other.
constexpr CGFloat kRightAxisPadding = 64;
constexpr CGFloat kTopPadding = 10;
constexpr CGFloat kTimeAxisPadding = 44;
constexpr float kRightTitleOffset = 38;

constexpr float kLineWidth = 1.5;
constexpr float kSymbolSize = 3;
constexpr double kSymbolOpacity = 0.55;

constexpr const char* kBox = "Strongest stream";
constexpr float kBoxLineWidth = 1;
// Above the fullest bar, of the height of the band, and on both sides, of the width of a bar.
constexpr double kRoomAbove = 0.03;
constexpr double kRoomBeside = 0.75;
constexpr float kNoteSize = 12;
// Where the note on the perihelion stands in its band, from the bottom.
constexpr double kPerihelionNoteHeight = 0.8;

/// Writes numbers in another unit.
class UnitFormatter : public NSNumberFormatter {
 public:
  explicit UnitFormatter(double unit) : unit_(unit) {
    setMinimumIntegerDigits(1);
    setMaximumFractionDigits(3);
  }
  std::string string(double value) const override {
    return NSNumberFormatter::string(value / unit_);
  }

 private:
  double unit_;
};

std::vector<double> doubles(const PlotMarker::Numbers& numbers) {
  constexpr double kAbsent = std::numeric_limits<double>::quiet_NaN();
  std::vector<double> result;
  for (const auto& number : numbers) result.push_back(number ? number->doubleValue() : kAbsent);
  return result;
}

NSColor bandColor(std::size_t index, double alpha) {
  static constexpr double kColors[][3] = {
      {0.12, 0.47, 0.71}, {0.89, 0.47, 0.10}, {0.20, 0.60, 0.26}, {0.80, 0.20, 0.24},
      {0.52, 0.39, 0.74}, {0.09, 0.63, 0.70}, {0.84, 0.42, 0.68}, {0.60, 0.55, 0.16},
  };
  const auto& c = kColors[index % std::size(kColors)];
  return NSColor::colorWithRed(c[0], c[1], c[2], alpha);
}

}  // namespace

void ImpactFigure::setupPlot() {
  setViews(static_cast<int>(bands_.size()), kTopPadding, kTimeAxisPadding);
  for (std::size_t i = 0; i < bands_.size(); ++i) addBand(i);
  const TimeSpan span = timeSpan(bands_);
  showTime(span);
  if (highlights_ && !bands_.empty()) addHighlights(span);
}

void ImpactFigure::setFrameSize(CGSize size) {
  // The layout keeps the proportions of the bands. What is added to the lowest and the highest one
  // stays as it is, though, so that their plot areas grow alike.
  const std::size_t count = hostingViews().size();
  const CGFloat shared = size.height - kTopPadding - kTimeAxisPadding;
  if (count == 0 || shared <= 0) return;
  const CGFloat height = shared / static_cast<CGFloat>(count);
  CGFloat stack = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const CGFloat added = i == 0 ? kTimeAxisPadding : i == count - 1 ? kTopPadding : 0;
    stack += height + added;
    const auto set = [&](const std::string& constraint, CGFloat points) {
      NSLayoutConstraint& kept =
          *viewConstraints().at("hostingView" + std::to_string(i) + constraint);
      const bool isAtTop = kept.secondAttribute() == NSLayoutAttribute::top;
      kept.setConstant(points - (isAtTop ? 0 : kept.multiplier() * size.height));
    };
    set("HeightConstraint", height + added);
    set("TopMarginConstraint", size.height - stack);
  }
}

void ImpactFigure::draw(const std::vector<double>&) {
  if (plotView()) plotView()->setNeedsDisplay(true);
}

void ImpactFigure::refresh(const std::vector<double>& presented) {
  for (const auto& graph : graphs()) graph->reloadData();
  draw(presented);
}

void ImpactFigure::addBand(std::size_t index) {
  const std::size_t fromBottom = bands_.size() - 1 - index;
  std::vector<CGFloat> padding = {kLeftPadding, kBandPadding, rightPadding(), kBandPadding};
  if (index == 0 && bands_.size() > 1) padding[1] += kTopPadding;
  if (fromBottom == 0) padding[3] += kTimeAxisPadding;
  const auto graph = format(hostingViews()[fromBottom], {0, 0, 0, 0}, padding);
  graphs().push_back(graph);
  addValueAxis(graph, bands_[index]);
  if (bands_[index].otherUnit) addOtherUnit(graph, bands_[index]);
  addSeries(graph, index);
}

void ImpactFigure::addOtherUnit(const std::shared_ptr<CPTXYGraph>& graph, const Band& band) {
  formatYAxis(graph, {
                         .title = band.otherUnit->title,
                         .titleOffset = kRightTitleOffset,
                         .yRange = std::vector{band.lower, band.upper},
                         .yScale = 1.0,
                         .formatter = std::make_shared<UnitFormatter>(band.otherUnit->size),
                         .gridLines = false,
                         .minorGridLines = false,
                         .noLabels = false,
                         .tickMarks = true,
                         .rightAxis = true,
                     });
}

CGFloat ImpactFigure::rightPadding() const {
  if (rightPadding_) return *rightPadding_;
  const bool hasRightAxis =
      std::any_of(bands_.begin(), bands_.end(), [](const Band& b) { return b.otherUnit; });
  return hasRightAxis ? kRightAxisPadding : kRightPadding;
}

bool ImpactFigure::isLabelled(const CPTXYGraph& graph) {
  // Only the lowest band says what time it is.
  return &graph == graphs().back().get();
}

void ImpactFigure::addSeries(const std::shared_ptr<CPTXYGraph>& graph, std::size_t index) {
  const Band& band = bands_[index];
  const std::string identifier = std::to_string(index);
  if (band.style == BandStyle::bars) {
    const auto bars = addBarPlot({
        .to = graph,
        .identifiedBy = identifier,
        .barWidth = static_cast<float>(band.barWidth),
        .barBasesVary = false,
        .lineWidth = 0.0f,
        .barsAreHorizontal = false,
        .labels = false,
        .labelOffset = 0.0f,
        .labelRotation = 0.0f,
    });
    bars->setLineStyle(std::nullopt);
    bars->setFill(CPTFill(CPTColor(bandColor(index, 1).cgColor())));
    return;
  }
  const bool isLine = band.style == BandStyle::line;
  addPlot({
      .to = graph,
      .identifiedBy = identifier,
      .color = bandColor(index, isLine ? 1 : kSymbolOpacity),
      .lineWidth = kLineWidth,
      .circle = !isLine,
      .circleSize = kSymbolSize,
      .circleFillColor = bandColor(index, kSymbolOpacity),
      .label = false,
      .labelOffset = 0.0f,
      .labelRotation = 0.0f,
  });
}

void ImpactFigure::addHighlights(const TimeSpan& span) {
  setPins({highlights_->perihelionDay});
  addBox();

  const NSColor color = theme().plotColor();
  NSAttributedString note(" perihelion, ", {.fontSize = kNoteSize, .color = color});
  note.append("r", {.fontSize = kNoteSize, .color = color, .italic = true});
  note.append("min", {.fontSize = kNoteSize, .color = color, .superscript = -1});
  note.append(fmt::format(" = {:.2f} au", highlights_->perihelionDistance),
              {.fontSize = kNoteSize, .color = color});
  const double fraction = (highlights_->perihelionDay - span.start) / (span.end - span.start);
  addAnnotation(note, {.graph = graphs().front(),
                       .anchorPointNormal = std::vector{fraction, kPerihelionNoteHeight}});
}

void ImpactFigure::addBox() {
  const Band& counts = bands_.front();
  const double top = highlights_->mostImpacts + kRoomAbove * (counts.upper - counts.lower);
  const double beside = kRoomBeside * counts.barWidth;
  const DaySpan& days = highlights_->strongestStream;
  const auto box = PlotMarker::makePlotBox({
      .xRange = std::vector{days.start - beside, days.end + beside},
      .yRange = std::vector{counts.lower, top},
      .label = kBox,
      .rotate = false,
  });
  box_ = {doubles(box.boxX()), doubles(box.boxY())};
  addPlot(PlotArguments{
      .to = graphs().front(),
      .identifiedBy = kBox,
      .lineWidth = kBoxLineWidth,
      .circle = false,
      .circleSize = kSymbolSize,
      .label = false,
      .labelOffset = 0.0f,
      .labelRotation = 0.0f,
  });
  // Higher than the neighbouring bars.
  const auto height = (box_.values[0] + 3 * box_.values[2]) / 4;
  addAnnotation(" strongest stream",
                {.graph = graphs().front(),
                 .anchorPlotPoint =
                     std::vector{static_cast<float>(box_.times[1]), static_cast<float>(height)},
                 .fontSize = kNoteSize});
}

ImpactFigure::Points ImpactFigure::pointsOf(const CPTPlot& plot) {
  const auto points = [](const auto& series) { return Points{series.times, series.values}; };
  return plot.identifier() == kBox ? points(box_) : points(bands_[std::stoul(plot.identifier())]);
}

std::size_t ImpactFigure::numberOfRecords(const CPTPlot& plot) {
  return isMarker(plot) ? TimeFigure::numberOfRecords(plot) : pointsOf(plot).times.size();
}

std::optional<CPTNumericData> ImpactFigure::numbers(const CPTPlot& plot, unsigned field,
                                                    CPTRecordRange) {
  if (isMarker(plot)) return std::nullopt;
  const Points points = pointsOf(plot);
  return field == CPTScatterPlotFieldX ? points.times : points.values;
}

}  // namespace explorer
