#pragma once

#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>

#include <memory>
#include <string>
#include <vector>

#include "FigureState.h"
#include "SoakPlot.h"
#include "pictures/Picture.h"

namespace vexel::soak {

/// A figure in a window, shown on a bitmap as hosts of windows do: only what has changed is drawn.
class SoakFigure {
 public:
  /// Built at the size at which the bands are stacked, then resized.
  explicit SoakFigure(const FigureState& state);

  /// What it should look like; the marks' places are those that the adopter has.
  const FigureState& state();

  // Each changes the figure and its state alike.

  /// Stacks everything anew, in another theme and with other bands.
  void rebuild(PlotTheme theme, std::vector<BandState> bands);
  void resize(CGSize size);
  void addSeries(std::size_t band, const SeriesState& series);
  void removeSeries(std::size_t band, std::size_t series);
  void setLineWidth(std::size_t band, std::size_t series, double width);
  void setHidden(std::size_t band, std::size_t series, bool hidden);
  void appendRecords(std::size_t band, std::size_t series, std::size_t count);
  void replaceRecords(std::size_t band, std::size_t series, std::uint32_t seed);
  void formatAxes(std::size_t band, RangeState x, RangeState y);
  void showRanges(std::size_t band, RangeState x, RangeState y);
  void setLogarithmic(std::size_t band, bool x, bool y);
  void setTitle(std::size_t band, std::optional<std::string> title);
  void addNote(std::size_t band, const NoteState& note);
  void removeNote(std::size_t band, std::size_t note);
  void moveVerticalMarker(const NSEvent& event);
  void moveHorizontalMarker(const NSEvent& event);
  void send(const NSEvent& event) { window_->sendEvent(event); }

  /// Draws what has changed.
  void display();
  Picture picture();
  std::string exported(const std::string& name);

 private:
  void stack();
  void buildBand(std::size_t band);
  void formatAxes(std::size_t band);
  void show(const SeriesState& series, std::size_t band);
  CPTXYPlotSpace& space(std::size_t band);
  SeriesState& seriesAt(std::size_t band, std::size_t series) {
    return state_.bands[band].series[series];
  }
  std::shared_ptr<CPTPlot> plotAt(std::size_t band, std::size_t series);

  FigureState state_;
  std::shared_ptr<NSWindow> window_;
  std::shared_ptr<NSView> host_ = std::make_shared<NSView>();
  std::unique_ptr<SoakPlot> plot_;
  std::vector<std::shared_ptr<CPTXYGraph>> graphs_;
  std::unique_ptr<CGBitmapContext> bitmap_;
};

}  // namespace vexel::soak
