#include <PlotColorTable/SymbolColorCode.h>

namespace vexel {

PlotCT& SymbolColorCode::impactChargeCT() {
  static PlotCT table = PlotCT::gmtWysiwyg;
  return table;
}

PlotCT& SymbolColorCode::wfIntegralCT() {
  static PlotCT table = PlotCT::idl16Level;
  return table;
}

PlotCT& SymbolColorCode::riseTimeCT() {
  static PlotCT table = PlotCT::idl16Level;
  return table;
}

PlotCT& SymbolColorCode::impactSpeedCT() {
  static PlotCT table = PlotCT::gmtPanoply;
  return table;
}

PlotCT& SymbolColorCode::grainSizeCT() {
  static PlotCT table = PlotCT::brewerSpectral;
  return table;
}

PlotCT& SymbolColorCode::compositionTypeCT() {
  static PlotCT table = PlotCT::idl16Level;
  return table;
}

PlotCT& SymbolColorCode::calibrationQualityCT() {
  static PlotCT table = PlotCT::gmtWysiwyg;
  return table;
}

PlotCT& SymbolColorCode::stretchParamterCT() {
  static PlotCT table = PlotCT::idl16Level;
  return table;
}

PlotCT& SymbolColorCode::shiftParameterCT() {
  static PlotCT table = PlotCT::idl16Level;
  return table;
}

PlotCT& SymbolColorCode::eventTimeCT() {
  static PlotCT table = PlotCT::gmtWysiwyg;
  return table;
}

PlotCT& SymbolColorCode::grainMassCT() {
  static PlotCT table = PlotCT::brewerSpectral;
  return table;
}

PlotCT& SymbolColorCode::impactImpactEnergyCT() {
  static PlotCT table = PlotCT::brewerSpectral;
  return table;
}

PlotCT& SymbolColorCode::impactImpactEnergyDensityCT() {
  static PlotCT table = PlotCT::brewerSpectral;
  return table;
}

PlotCT& SymbolColorCode::dustChargeCT() {
  static PlotCT table = PlotCT::brewerSpectral;
  return table;
}

}  // namespace vexel
