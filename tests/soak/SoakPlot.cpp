#include "SoakPlot.h"

#include <PlotColorTable/ColorbarPlot.h>
#include <Vexel/Adopter.h>
#include <VexelWithMarkers/VexelWithMarkers.h>

#include <cmath>
#include <limits>
#include <random>

namespace vexel::soak {

namespace {

// Markers run across every range that figures show.
constexpr double kFar = 1e7;
constexpr double kStep = 0.1;

class BandsPlot : public Adopter<Vexel>, public SoakPlot {};

class MarkersPlot : public Adopter<VexelWithMarkers>, public SoakPlot {};

class ColorPlot : public Adopter<ColorbarPlot>, public SoakPlot {
 public:
  SymbolColorCode symbolColorCode() override { return SymbolColorCode::dustCharge; }
};

class AllPlot : public Adopter<VexelWithMarkers, ColorbarPlot>, public SoakPlot {
 public:
  SymbolColorCode symbolColorCode() override { return SymbolColorCode::grainMass; }
};

std::optional<Records> markerRecords(VexelWithMarkers& plot, const std::string& name) {
  const auto across = [](double x) { return Records{{x, x}, {-kFar, kFar}}; };
  const auto along = [](double y) { return Records{{-kFar, kFar}, {y, y}}; };
  if (name == VexelWithMarkers::kVerticalMarker) return across(plot.verticalMarkerX());
  if (name == VexelWithMarkers::kPermanentVerticalMarker)
    return across(plot.permanentVerticalMarkerX());
  if (name == VexelWithMarkers::kHorizontalMarker) return along(plot.horizontalMarkerY());
  if (name == VexelWithMarkers::kPermanentHorizontalMarker)
    return along(plot.permanentHorizontalMarkerY());
  return std::nullopt;
}

}  // namespace

std::unique_ptr<SoakPlot> SoakPlot::make(Adoption adoption) {
  switch (adoption) {
    case Adoption::bands:
      return std::make_unique<BandsPlot>();
    case Adoption::markers:
      return std::make_unique<MarkersPlot>();
    case Adoption::colorbar:
      return std::make_unique<ColorPlot>();
    case Adoption::all:
      break;
  }
  return std::make_unique<AllPlot>();
}

void SoakPlot::load(const SeriesState& series, double origin) {
  // More records of the same seed begin with the same ones.
  std::minstd_rand random(series.seed + 1);
  Records records;
  for (std::size_t i = 0; i < series.records; ++i) {
    const bool isGap = random() % 50 == 0;
    const double wave = std::sin(0.05 * static_cast<double>(i) + series.seed % 7);
    const double noise = static_cast<double>(random() % 1000) / 1000;
    records.x.push_back(origin + kStep * static_cast<double>(i));
    records.y.push_back(isGap ? std::numeric_limits<double>::quiet_NaN() : 5 + 4 * wave + noise);
  }
  records_[series.name] = std::move(records);
}

std::size_t SoakPlot::numberOfRecords(const CPTPlot& plot) {
  Records& records = records_[plot.identifier()];
  if (auto* const markers = dynamic_cast<VexelWithMarkers*>(this))
    if (auto marker = markerRecords(*markers, plot.identifier())) records = std::move(*marker);
  return records.x.size();
}

std::optional<CPTNumericData> SoakPlot::numbers(const CPTPlot& plot, unsigned field,
                                                CPTRecordRange) {
  const Records& records = records_[plot.identifier()];
  return CPTNumericData(field == CPTScatterPlotFieldX ? records.x : records.y);
}

CPTColorList SoakPlot::symbolColors(const CPTScatterPlot& plot, CPTRecordRange range) {
  if (plot.identifier().find("colored") == std::string::npos) return {};
  static const CPTColor kPalette[] = {CPTColor::redColor(), CPTColor::blueColor(),
                                      CPTColor::orangeColor(),
                                      CPTColor::colorWithComponents(0, 0.5, 0.2, 0.5)};
  std::vector<std::optional<CPTColor>> colors;
  for (std::size_t i = range.location; i < range.location + range.length; ++i) {
    if (i % 11 == 10)
      colors.push_back(std::nullopt);
    else
      colors.push_back(kPalette[i % std::size(kPalette)]);
  }
  return CPTColorList(colors);
}

}  // namespace vexel::soak
