#pragma once

#include <optional>
#include <vector>

#include <Vexel/Adopter.h>
#include <Vexel/PlotViewDelegate.h>
#include <VexelWithMarkers/VexelWithMarkers.h>
#include "Band.h"
#include "Highlights.h"
#include "TimeFigure.h"

namespace explorer {

/// Bands over a common time axis, the first one on top. Highlights are marked: the perihelion by a
/// line through all bands, the strongest stream by a box in the first. As the delegate of its host
/// it lets all plot areas grow alike when the host is resized.
class ImpactFigure : public vexel::Adopter<vexel::VexelWithMarkers>,
                     public TimeFigure,
                     public vexel::PlotViewDelegate {
 public:
  /// Between the left edge and the plot areas, in points.
  static constexpr vexel::CGFloat kLeftPadding = 78;

  /// `rightPadding` is left free on the right of the plot areas; absent: what the axes need.
  explicit ImpactFigure(std::vector<Band> bands,
                        std::optional<Highlights> highlights = std::nullopt,
                        std::optional<vexel::CGFloat> rightPadding = std::nullopt)
      : bands_(std::move(bands)), highlights_(highlights), rightPadding_(rightPadding) {}

  const std::vector<Band>& bands() const { return bands_; }
  void setFrameSize(vexel::CGSize size) override;

  void setupPlot() override;
  void draw(const std::vector<double>& presented) override;
  void refresh(const std::vector<double>& presented) override;

  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange records) override;

 protected:
  bool isLabelled(const vexel::CPTXYGraph& graph) override;

 private:
  vexel::CGFloat rightPadding() const;
  void addBand(std::size_t index);
  void addOtherUnit(const std::shared_ptr<vexel::CPTXYGraph>& graph, const Band& band);
  void addSeries(const std::shared_ptr<vexel::CPTXYGraph>& graph, std::size_t index);
  void addHighlights(const TimeSpan& span);
  void addBox();

  /// The corners of a line, an absent one (NaN) at the end.
  struct Line {
    std::vector<double> times;
    std::vector<double> values;
  };
  struct Points {
    const std::vector<double>& times;
    const std::vector<double>& values;
  };
  Points pointsOf(const vexel::CPTPlot& plot);

  std::vector<Band> bands_;
  std::optional<Highlights> highlights_;
  std::optional<vexel::CGFloat> rightPadding_;
  Line box_;
};

}  // namespace explorer
