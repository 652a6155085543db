#pragma once

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>
#include <Vexel/PlotViewDelegate.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include "Band.h"
#include "ColorCoding.h"
#include "TimeFigure.h"

namespace explorer {

/// One quantity over time as circles that are coloured by another, with the colour bar. As the
/// delegate of its host it lays both out when the host is resized.
class ColorFigure : public vexel::Adopter<vexel::VexelWithMarkers, vexel::ColorbarPlot>,
                    public TimeFigure,
                    public vexel::PlotViewDelegate {
 public:
  /// Whether the figure stands alone, or right above others that label the same time.
  enum class Place { alone, above };

  /// `coding` has as many values as the band.
  ColorFigure(Band band, ColorCoding coding, Place place = Place::alone)
      : band_(std::move(band)), coding_(std::move(coding)), place_(place) {}

  const Band& band() const { return band_; }
  const ColorCoding& coding() const { return coding_; }
  void setFrameSize(vexel::CGSize size) override { set(size); }

  vexel::SymbolColorCode symbolColorCode() override { return coding_.quantity; }

  void setupPlot() override;
  void draw(const std::vector<double>& presented) override;
  void refresh(const std::vector<double>& presented) override;

  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange records) override;
  vexel::CPTColorList symbolColors(const vexel::CPTScatterPlot& plot,
                                   vexel::CPTRecordRange records) override;

 protected:
  std::vector<std::shared_ptr<vexel::CPTXYGraph>> timeGraphs() override { return {figureGraph()}; }
  bool isLabelled(const vexel::CPTXYGraph&) override { return place_ == Place::alone; }

 private:
  void makeRoomForBelow();
  void addSeries();

  Band band_;
  ColorCoding coding_;
  Place place_;
  vexel::ColorBarDefinition definition_;
};

}  // namespace explorer
