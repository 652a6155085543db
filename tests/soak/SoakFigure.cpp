#include "SoakFigure.h"

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/FigureExport.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <cmath>
#include <utility>

namespace vexel::soak {

namespace {

constexpr CGFloat kPaddingTop = 6, kPaddingBottom = 10;
// Where vertical markers may stand, from the band's origin, and horizontal ones.
constexpr RangeState kMarkedX{1, 9};
const std::vector<float> kMarkedY = {0.5, 9};

CPTColorPlotArguments arguments(const SeriesState& series, std::shared_ptr<CPTXYGraph> graph) {
  const bool isCircle = series.kind == SeriesKind::circles || series.kind == SeriesKind::colored;
  CPTColorPlotArguments result{
      .to = std::move(graph),
      .identifiedBy = series.name,
      .color = CPTColor::blueColor(),
      .lineWidth = static_cast<float>(series.lineWidth),
      .circle = isCircle,
      .circleSize = 5,
      .label = false,
      .labelOffset = 0,
      .labelRotation = 0,
  };
  if (series.kind == SeriesKind::dashes) result.dashPattern = {4, 2};
  if (isCircle) result.circleFillColor = CPTColor::greenColor();
  return result;
}

BarPlotArguments bars(const SeriesState& series, std::shared_ptr<CPTXYGraph> graph) {
  return {
      .to = std::move(graph),
      .identifiedBy = series.name,
      .barWidth = 0.08,
      .barBasesVary = false,
      .color = "orange",
      .lineWidth = static_cast<float>(series.lineWidth),
      .barsAreHorizontal = false,
      .labels = false,
      .labelOffset = 0,
      .labelRotation = 0,
  };
}

CPTPlotRange plotRange(RangeState range, double origin) {
  return {origin + range.lower, range.upper - range.lower};
}

}  // namespace

SoakFigure::SoakFigure(const FigureState& state)
    : state_(state), window_(std::make_shared<NSWindow>(state.stackedAt)) {
  window_->setContentView(host_);
  plot_ = SoakPlot::make(state.adoption);
  plot_->initPlot(host_, state.theme);
  if (auto* const markers = dynamic_cast<VexelWithMarkers*>(plot_.get())) {
    const double origin = state.bands.empty() ? 0 : state.bands[0].origin;
    markers->auxiliaryValues() = {origin + kMarkedX.lower, origin + kMarkedX.upper};
  }
  stack();
  resize(state.size);
}

const FigureState& SoakFigure::state() {
  if (auto* const markers = dynamic_cast<VexelWithMarkers*>(plot_.get())) {
    state_.verticalX = markers->verticalMarkerX();
    state_.horizontalY = markers->horizontalMarkerY();
    state_.permanentVerticalX = markers->permanentVerticalMarkerX();
    state_.permanentHorizontalY = markers->permanentHorizontalMarkerY();
  }
  return state_;
}

void SoakFigure::rebuild(PlotTheme theme, std::vector<BandState> bands) {
  state();
  state_.theme = theme;
  state_.stackedAt = state_.size;
  for (const BandState& band : state_.bands)
    for (const SeriesState& series : band.series) plot_->unload(series);
  state_.bands = std::move(bands);
  plot_->theme() = theme;
  if (hasMarkers(state_.adoption))
    plot_->auxiliaryValues() = {state_.bands[0].origin + kMarkedX.lower,
                                state_.bands[0].origin + kMarkedX.upper};
  stack();
}

void SoakFigure::stack() {
  graphs_.clear();
  if (auto* const colored = dynamic_cast<ColorbarPlot*>(plot_.get())) {
    colored->setViews();
    colored->formatColorBarPlotViews();
    colored->createColorbar({{},
                             PlotCT::brewerSpectral,
                             ColorBarDefinition::AxisType::linear,
                             {0, 40},
                             nullptr,
                             "Charge"});
    graphs_ = {colored->figureGraph()};
  } else {
    plot_->setViews(static_cast<int>(state_.bands.size()), kPaddingTop, kPaddingBottom);
    for (const auto& view : plot_->hostingViews())
      graphs_.push_back(plot_->format(view, {0, 0, 0, 0}, {45, 8, 30, 25}));
    plot_->graphs() = graphs_;
  }
  for (std::size_t band = 0; band < graphs_.size(); ++band) buildBand(band);
}

void SoakFigure::buildBand(std::size_t band) {
  const BandState& state = state_.bands[band];
  formatAxes(band);
  if (state.right)
    plot_->formatYAxis(graphs_[band],
                       YAxisArguments<double>{
                           .yRange = std::vector{state.right->lower, state.right->upper},
                           .yScale = 1,
                           .gridLines = false,
                           .minorGridLines = false,
                           .noLabels = false,
                           .tickMarks = true,
                           .rightAxis = true,
                       });
  showRanges(band, state.x.shown, state.y.shown);
  setLogarithmic(band, state.x.isLogarithmic, state.y.isLogarithmic);
  graphs_[band]->setTitle(state.title);
  for (const SeriesState& series : state.series) show(series, band);
  const auto notes = std::exchange(state_.bands[band].notes, {});
  for (const NoteState& note : notes) addNote(band, note);
}

void SoakFigure::resize(CGSize size) {
  state_.size = size;
  window_->setContentSize(size);
  if (auto* const colored = dynamic_cast<ColorbarPlot*>(plot_.get())) colored->set(size);
}

CPTXYPlotSpace& SoakFigure::space(std::size_t band) {
  return dynamic_cast<CPTXYPlotSpace&>(*graphs_[band]->defaultPlotSpace());
}

std::shared_ptr<CPTPlot> SoakFigure::plotAt(std::size_t band, std::size_t series) {
  return graphs_[band]->plotWithIdentifier(seriesAt(band, series).name);
}

void SoakFigure::addSeries(std::size_t band, const SeriesState& series) {
  state_.bands[band].series.push_back(series);
  show(series, band);
}

void SoakFigure::show(const SeriesState& series, std::size_t band) {
  const auto& graph = graphs_[band];
  if (series.kind == SeriesKind::marker) {
    auto& markers = dynamic_cast<VexelWithMarkers&>(*plot_);
    if (series.name == VexelWithMarkers::kVerticalMarker)
      return markers.setVerticalMarker(state_.verticalX, graph);
    if (series.name == VexelWithMarkers::kPermanentVerticalMarker)
      return markers.setPermanentVerticalMarker(state_.permanentVerticalX, graph);
    if (series.name == VexelWithMarkers::kHorizontalMarker)
      return markers.setHorizontalMarker(state_.horizontalY, graph, kMarkedY, 1);
    return markers.setPermanentHorizontalMarker(state_.permanentHorizontalY, graph, kMarkedY, 1);
  }
  plot_->load(series, state_.bands[band].origin);
  std::shared_ptr<CPTPlot> added;
  if (series.kind == SeriesKind::bars) {
    added = plot_->addBarPlot(bars(series, graph));
  } else {
    const auto scatter = plot_->addPlot(arguments(series, graph));
    if (series.kind == SeriesKind::steps)
      scatter->setInterpolation(CPTScatterPlotInterpolation::stepped);
    added = scatter;
  }
  added->setHidden(series.isHidden);
}

void SoakFigure::removeSeries(std::size_t band, std::size_t series) {
  const SeriesState removed = seriesAt(band, series);
  auto& all = state_.bands[band].series;
  all.erase(all.begin() + static_cast<std::ptrdiff_t>(series));
  graphs_[band]->removePlotWithIdentifier(removed.name);
  plot_->unload(removed);
}

void SoakFigure::setLineWidth(std::size_t band, std::size_t series, double width) {
  const auto changed = [&](auto style) {
    if (style) style->lineWidth = width;
    return style;
  };
  const auto plot = plotAt(band, series);
  if (const auto bar = std::dynamic_pointer_cast<CPTBarPlot>(plot)) {
    bar->setLineStyle(changed(bar->lineStyle()));
  } else if (const auto scatter = std::dynamic_pointer_cast<CPTScatterPlot>(plot)) {
    if (!scatter->dataLineStyle()) return;
    scatter->setDataLineStyle(changed(scatter->dataLineStyle()));
  }
  seriesAt(band, series).lineWidth = width;
}

void SoakFigure::setHidden(std::size_t band, std::size_t series, bool hidden) {
  seriesAt(band, series).isHidden = hidden;
  plotAt(band, series)->setHidden(hidden);
}

void SoakFigure::appendRecords(std::size_t band, std::size_t series, std::size_t count) {
  SeriesState& state = seriesAt(band, series);
  const std::size_t before = state.records;
  state.records += count;
  plot_->load(state, state_.bands[band].origin);
  plotAt(band, series)->insertData(before, count);
}

void SoakFigure::replaceRecords(std::size_t band, std::size_t series, std::uint32_t seed) {
  SeriesState& state = seriesAt(band, series);
  state.seed = seed;
  plot_->load(state, state_.bands[band].origin);
  plotAt(band, series)->setDataNeedsReloading();
}

void SoakFigure::formatAxes(std::size_t band, RangeState x, RangeState y) {
  BandState& state = state_.bands[band];
  state.x.formatted = state.x.shown = x;
  state.y.formatted = state.y.shown = y;
  formatAxes(band);
}

void SoakFigure::formatAxes(std::size_t band) {
  const BandState& state = state_.bands[band];
  plot_->formatXAxis(graphs_[band],
                     {
                         .title = "Time",
                         .titleOffset = 12,
                         .xRange = std::vector{state.origin + state.x.formatted.lower,
                                               state.origin + state.x.formatted.upper},
                         .gridLines = true,
                         .noLabels = false,
                         .tickMarks = true,
                         .timeAxis = state.isTimeAxis(),
                         .upperAxis = false,
                         .onNewPlotSpace = false,
                         .separateLayers = false,
                     });
  plot_->formatYAxis(graphs_[band],
                     YAxisArguments<double>{
                         .title = "Charge",
                         .titleOffset = 30,
                         .yRange = std::vector{state.y.formatted.lower, state.y.formatted.upper},
                         .yScale = 1,
                         .gridLines = true,
                         .minorGridLines = false,
                         .noLabels = false,
                         .tickMarks = true,
                         .rightAxis = false,
                     });
}

void SoakFigure::showRanges(std::size_t band, RangeState x, RangeState y) {
  BandState& state = state_.bands[band];
  state.x.shown = x;
  state.y.shown = y;
  space(band).setXRange(plotRange(x, state.origin));
  space(band).setYRange(plotRange(y, 0));
}

void SoakFigure::setLogarithmic(std::size_t band, bool x, bool y) {
  state_.bands[band].x.isLogarithmic = x;
  state_.bands[band].y.isLogarithmic = y;
  space(band).setXScaleType(x ? CPTScaleTypeLog : CPTScaleTypeLinear);
  space(band).setYScaleType(y ? CPTScaleTypeLog : CPTScaleTypeLinear);
}

void SoakFigure::setTitle(std::size_t band, std::optional<std::string> title) {
  state_.bands[band].title = title;
  graphs_[band]->setTitle(std::move(title));
}

void SoakFigure::addNote(std::size_t band, const NoteState& note) {
  state_.bands[band].notes.push_back(note);
  plot_->addAnnotation(note.text,
                       {.graph = graphs_[band], .anchorPlotPoint = note.anchor, .fontSize = 10});
}

void SoakFigure::removeNote(std::size_t band, std::size_t note) {
  auto& notes = state_.bands[band].notes;
  notes.erase(notes.begin() + static_cast<std::ptrdiff_t>(note));
  auto& area = *graphs_[band]->plotAreaFrame()->plotArea();
  area.removeAnnotation(*area.annotations()[note]);
}

void SoakFigure::moveVerticalMarker(const NSEvent& event) {
  dynamic_cast<VexelWithMarkers&>(*plot_).updateVerticalMarker(event, graphs_[0]);
}

void SoakFigure::moveHorizontalMarker(const NSEvent& event) {
  dynamic_cast<VexelWithMarkers&>(*plot_).updateHorizontalMarker(event, graphs_[0], kMarkedY, 1);
}

void SoakFigure::display() {
  auto dirty = window_->dirtyRects();
  if (!bitmap_ || bitmap_->pixelWidth() != state_.size.width ||
      bitmap_->pixelHeight() != state_.size.height) {
    bitmap_ = CGBitmapContext::create(state_.size, 1);
    dirty = {CGRect{{}, state_.size}};
  }
  for (const CGRect& rect : dirty) {
    const CGRect part = CGRect::make(std::floor(rect.minX()), std::floor(rect.minY()),
                                     std::ceil(rect.maxX()) - std::floor(rect.minX()),
                                     std::ceil(rect.maxY()) - std::floor(rect.minY()));
    const CGSavedState saved(*bitmap_);
    bitmap_->clip(part);
    bitmap_->fillAligned(part, CGColor::genericGray(1));
    window_->displayRect(part, *bitmap_);
  }
}

Picture SoakFigure::picture() {
  display();
  return Picture::of(*bitmap_);
}

std::string SoakFigure::exported(const std::string& name) {
  return figureData(*host_, name, 1);
}

}  // namespace vexel::soak
