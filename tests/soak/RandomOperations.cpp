#include "RandomOperations.h"

#include <VexelWithMarkers/VexelWithMarkers.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace vexel::soak {

namespace {

constexpr unsigned kMostSeries = 5;
constexpr unsigned kMostNotes = 4;
constexpr unsigned kMostRecords = 400;
// Of the year 2000.
constexpr double kJulianDay = 2451545;
constexpr PlotTheme kThemes[] = {PlotTheme::black, PlotTheme::white, PlotTheme::print};
constexpr const char* kMarkers[] = {
    VexelWithMarkers::kVerticalMarker,
    VexelWithMarkers::kHorizontalMarker,
    VexelWithMarkers::kPermanentVerticalMarker,
    VexelWithMarkers::kPermanentHorizontalMarker,
};

}  // namespace

double RandomOperations::between(double lower, double upper) {
  return lower + (upper - lower) * pick(1001) / 1000;
}

RangeState RandomOperations::newRange(double lower, double upper) {
  const double start = between(lower, upper);
  return {start, start + between(0.5, upper - lower)};
}

CGSize RandomOperations::newSize() {
  // Windows are mostly left as large as they are.
  return {static_cast<CGFloat>(200 + pick(80)), static_cast<CGFloat>(140 + pick(60))};
}

SeriesState RandomOperations::newSeries() {
  static constexpr std::pair<SeriesKind, const char*> kKinds[] = {
      {SeriesKind::line, "line "},       {SeriesKind::dashes, "dashes "},
      {SeriesKind::steps, "steps "},     {SeriesKind::circles, "circles "},
      {SeriesKind::colored, "colored "}, {SeriesKind::bars, "bars "},
  };
  const auto& [kind, name] = kKinds[pick(std::size(kKinds))];
  return {kind, name + std::to_string(++names_), pick(1000), pick(100), between(0.5, 3)};
}

BandState RandomOperations::newBand(double origin) {
  const RangeState x{0, between(5, 12)}, y{0.1, between(9, 12)};
  BandState band{.origin = origin, .x = {x, x}, .y = {y, y}};
  if (oneIn(3)) band.right = y;
  if (oneIn(2)) band.title = "Title";
  for (unsigned i = pick(3); i > 0; --i) band.series.push_back(newSeries());
  return band;
}

FigureState RandomOperations::newFigure() {
  FigureState state{
      .adoption = static_cast<Adoption>(pick(kAdoptions)),
      .theme = kThemes[pick(std::size(kThemes))],
      .stackedAt = newSize(),
      .size = {},
      .bands = {},
  };
  state.size = state.stackedAt;
  const double origin = oneIn(3) ? kJulianDay : 0;
  const unsigned bands = hasColorbar(state.adoption) ? 1 : 1 + pick(3);
  for (unsigned i = 0; i < bands; ++i) state.bands.push_back(newBand(origin));
  return state;
}

NSEvent RandomOperations::newEvent(const FigureState& state) {
  static constexpr double kHostile[] = {-1e308, 1e9, std::numeric_limits<double>::quiet_NaN(),
                                        std::numeric_limits<double>::infinity()};
  static constexpr NSEventType kTypes[] = {
      NSEventType::mouseMoved,        NSEventType::leftMouseDown, NSEventType::leftMouseDragged,
      NSEventType::leftMouseUp,       NSEventType::scrollWheel,   NSEventType::rightMouseDown,
      NSEventType::rightMouseDragged, NSEventType::rightMouseUp,  NSEventType::mouseEntered,
      NSEventType::mouseExited,       NSEventType::keyDown,       NSEventType::keyUp,
  };
  const auto coordinate = [&](CGFloat extent) {
    return oneIn(50) ? kHostile[pick(std::size(kHostile))] : between(0, extent);
  };
  const CGFloat x = coordinate(state.size.width);
  const CGFloat y = coordinate(state.size.height);
  return {.type = kTypes[pick(std::size(kTypes))], .locationInWindow = {x, y}};
}

void RandomOperations::addOrRemoveMarker(SoakFigure& figure) {
  const std::string name = kMarkers[pick(std::size(kMarkers))];
  const auto& series = figure.state().bands[0].series;
  const auto shown = std::find_if(series.begin(), series.end(),
                                  [&](const SeriesState& s) { return s.name == name; });
  if (shown == series.end())
    figure.addSeries(0, {.kind = SeriesKind::marker, .name = name, .seed = 0, .records = 0});
  else
    figure.removeSeries(0, static_cast<std::size_t>(shown - series.begin()));
}

void RandomOperations::step(SoakFigure& figure) {
  const FigureState& state = figure.state();
  const std::size_t band = pick(static_cast<unsigned>(state.bands.size()));
  const BandState& here = state.bands[band];
  const auto isOwn = [&](std::size_t i) { return here.series[i].kind != SeriesKind::marker; };
  const std::size_t series =
      here.series.empty() ? 0 : pick(static_cast<unsigned>(here.series.size()));
  const bool hasOwnSeries = !here.series.empty() && isOwn(series);

  // Out of 100: cheap and common things come often.
  const unsigned what = pick(100);
  if (what < 25) return figure.display();
  if (what < 45) {
    const NSEvent event = newEvent(state);
    if (hasMarkers(state.adoption) && oneIn(2)) {
      oneIn(2) ? figure.moveVerticalMarker(event) : figure.moveHorizontalMarker(event);
    }
    return figure.send(event);
  }
  if (what < 52) return figure.showRanges(band, newRange(-2, 8), newRange(-1, 6));
  if (what < 54) return figure.formatAxes(band, newRange(0, 8), newRange(0.1, 6));
  if (what < 56) return figure.setLogarithmic(band, false, oneIn(2));
  if (what < 62 && hasMarkers(state.adoption)) return addOrRemoveMarker(figure);
  if (what < 68) {
    if (here.series.size() < kMostSeries) figure.addSeries(band, newSeries());
    return;
  }
  if (what < 73) {
    if (!here.series.empty()) figure.removeSeries(band, series);
    return;
  }
  if (what < 77) {
    if (hasOwnSeries) figure.setLineWidth(band, series, between(0.5, 3));
    return;
  }
  if (what < 80) {
    if (hasOwnSeries) figure.setHidden(band, series, !here.series[series].isHidden);
    return;
  }
  if (what < 84) {
    if (hasOwnSeries && here.series[series].records < kMostRecords)
      figure.appendRecords(band, series, 1 + pick(10));
    return;
  }
  if (what < 87) {
    if (hasOwnSeries) figure.replaceRecords(band, series, pick(1000));
    return;
  }
  if (what < 89) {
    return figure.setTitle(band, oneIn(2) ? std::optional<std::string>("Title") : std::nullopt);
  }
  if (what < 92) {
    if (here.notes.size() < kMostNotes)
      figure.addNote(band, {"note",
                            {static_cast<float>(here.origin + between(0, 10)),
                             static_cast<float>(between(0, 10))}});
    return;
  }
  if (what < 94) {
    if (!here.notes.empty())
      figure.removeNote(band, pick(static_cast<unsigned>(here.notes.size())));
    return;
  }
  if (what < 96) return figure.resize(newSize());
  if (what < 97) {
    static constexpr const char* kFiles[] = {"figure.png", "figure.pdf", "figure.svg"};
    if (figure.exported(kFiles[pick(std::size(kFiles))]).empty())
      throw std::runtime_error("an export gave nothing");
    return;
  }
  if (what < 98) {
    // With the same bands or others, most often in another theme.
    auto bands = newFigure().bands;
    if (hasColorbar(state.adoption)) bands.resize(1);
    return figure.rebuild(kThemes[pick(std::size(kThemes))], oneIn(2) ? state.bands : bands);
  }
}

}  // namespace vexel::soak
