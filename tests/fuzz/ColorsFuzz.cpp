// Symbols coloured by any values of every quantity, with the colour bar.

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>

#include <any>
#include <cmath>
#include <cstdint>

#include "Drawing.h"
#include "FuzzStyles.h"

namespace {

using namespace vexel;

class Figure : public Adopter<ColorbarPlot> {
 public:
  SymbolColorCode symbolColorCode() override { return code; }
  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

  std::size_t numberOfRecords(const CPTPlot&) override { return values.size(); }
  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    return field == CPTScatterPlotFieldX ? static_cast<double>(record) : values[record];
  }
  CPTColorList symbolColors(const CPTScatterPlot&, CPTRecordRange) override {
    return definition.colors;
  }

  SymbolColorCode code = SymbolColorCode::none;
  std::vector<double> values;
  ColorBarDefinition definition;
};

SymbolColorCode anyQuantity(FuzzInput& input) {
  return SymbolColorCode::fromRawValue(input.choice(18)).value_or(SymbolColorCode::none);
}

/// Without negative values where they would have a logarithm, and without those that put the lower
/// end of a logarithmic scale at 0: both are broken invariants.
double allowed(double value, SymbolColorCode code) {
  const bool hasBase = code.isImpactSpeed() || code.isGrainSize() || code.isImpactEnergy();
  const bool isLogarithmic =
      hasBase || code.isImpactCharge() || code.isGrainMass() || code.isImpactEnergyDensity();
  if (!isLogarithmic) return value;
  const double magnitude = std::abs(value);
  return hasBase && magnitude > 0 && magnitude < 0.1 ? 0 : magnitude;
}

std::optional<ColorBarDefinition> definitionOf(const Figure& figure, FuzzInput& input) {
  const auto table = input.flag() ? PlotCT::fromRawValue(input.choice(19)) : std::nullopt;
  if (input.choice(4) != 0) return figure.code.getColors(SymbolValues(figure.values), table);
  std::vector<std::any> objects;
  for (const double value : figure.values) {
    switch (input.choice(4)) {
      case 0:
        objects.emplace_back(static_cast<float>(allowed(input.single(), figure.code)));
        break;
      case 1:
        objects.emplace_back(input.byte());
        break;
      case 2:
        objects.emplace_back(value);
        break;
      default:
        objects.push_back(input.choice(8) == 0 ? std::any(std::string("text")) : value);
    }
  }
  return figure.code.getColors(SymbolValues(objects), table);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto view = std::make_shared<NSView>(CGRect{{}, figureSize(input)});
  Figure figure;
  figure.initPlot(view, static_cast<PlotTheme::Case>(input.choice(3)));
  figure.code = anyQuantity(input);
  for (const double value : input.numbers(40)) figure.values.push_back(allowed(value, figure.code));
  const auto definition = definitionOf(figure, input);
  if (!definition) return 0;
  require(definition->colors.empty() || definition->colors.size() == figure.values.size(),
          "there is a colour per value, or none");
  require(definition->range.size() == 2, "a range has two ends");
  figure.definition = *definition;
  if (input.choice(4) != 0) return 0;

  figure.setViews();
  figure.formatColorBarPlotViews();
  figure.set(figureSize(input));
  if (const auto graph = figure.figureGraph()) {
    const auto plot = std::make_shared<CPTScatterPlot>();
    plot->setPlotSymbol(anySymbol(input));
    plot->setDataSource(&figure);
    graph->addPlot(plot);
    if (input.flag())
      dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()).scaleToFitPlots(graph->allPlots());
  }
  figure.createColorbar(figure.definition);
  drawEverywhere(*view, input);
  return 0;
}
