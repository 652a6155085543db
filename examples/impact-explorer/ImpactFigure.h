#pragma once

#include <vector>

#include <Vexel/Adopter.h>

#include "Band.h"

namespace explorer {

/// Bands over a common time axis, the first one on top.
class ImpactFigure : public vexel::Adopter<vexel::Vexel> {
 public:
  explicit ImpactFigure(std::vector<Band> bands) : bands_(std::move(bands)) {}

  void setupPlot() override;
  void draw(const std::vector<double>& presented) override;
  void refresh(const std::vector<double>& presented) override;

  std::size_t numberOfRecords(const vexel::CPTPlot& plot) override;
  std::optional<vexel::CPTNumericData> numbers(const vexel::CPTPlot& plot, unsigned field,
                                               vexel::CPTRecordRange records) override;

 private:
  void addBand(std::size_t index);
  void addAxes(const std::shared_ptr<vexel::CPTXYGraph>& graph, const Band& band, bool isLowest);
  void addSeries(const std::shared_ptr<vexel::CPTXYGraph>& graph, std::size_t index);
  const Band& bandOf(const vexel::CPTPlot& plot) const;

  std::vector<Band> bands_;
};

}  // namespace explorer
