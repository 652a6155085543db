#pragma once

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>

#include "Band.h"
#include "ColorCoding.h"

namespace explorer {

/// One quantity over time as circles that are coloured by another, with the colour bar.
class ColorFigure : public vexel::Adopter<vexel::ColorbarPlot> {
 public:
  /// `coding` has as many values as the band.
  ColorFigure(Band band, ColorCoding coding) : band_(std::move(band)), coding_(std::move(coding)) {}

  vexel::SymbolColorCode symbolColorCode() override { return coding_.quantity; }

  void setupPlot() override;
  void draw(const std::vector<double>& presented) override;
  void refresh(const std::vector<double>& presented) override;

  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange records) override;
  vexel::CPTColorList symbolColors(const vexel::CPTScatterPlot& plot,
                                   vexel::CPTRecordRange records) override;

 private:
  void addAxes();
  void addSeries();

  Band band_;
  ColorCoding coding_;
  vexel::ColorBarDefinition definition_;
};

}  // namespace explorer
