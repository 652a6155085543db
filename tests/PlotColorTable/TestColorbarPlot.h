#pragma once

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>

#include <string>
#include <vector>

namespace vexel {

/// An adopter without records.
class TestColorbarPlot : public Adopter<ColorbarPlot> {
 public:
  SymbolColorCode symbolColorCode() override { return code; }
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

  SymbolColorCode code = SymbolColorCode::grainMass;
};

/// A bar of masses from 1e-15 to 1e-11 kg, or of dust charges from 0 to 40.
inline ColorBarDefinition logarithmicBar() {
  return {{},      PlotCT::brewerSpectral, ColorBarDefinition::AxisType::log, {1e-15, 1e-11},
          nullptr, "Grain Mass (kg)"};
}
inline ColorBarDefinition linearBar() {
  return {{},      PlotCT::gmtWysiwyg, ColorBarDefinition::AxisType::linear, {0, 40},
          nullptr, "Dust Charge"};
}

}  // namespace vexel
