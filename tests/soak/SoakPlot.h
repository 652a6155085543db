#pragma once

#include <Vexel/Vexel.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "FigureState.h"

namespace vexel::soak {

struct Records {
  std::vector<double> x;
  std::vector<double> y;
};

/// The part that all adopters share: it lends the records of their series.
class SoakPlot : public virtual Vexel {
 public:
  /// A new one that adopts what is wanted.
  static std::unique_ptr<SoakPlot> make(Adoption adoption);

  void setupPlot() override {}
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}

  std::size_t numberOfRecords(const CPTPlot& plot) override;
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange range) override;
  CPTColorList symbolColors(const CPTScatterPlot& plot, CPTRecordRange range) override;

  /// Makes the records that a series has, or takes them away.
  void load(const SeriesState& series, double origin);
  void unload(const SeriesState& series) { records_.erase(series.name); }

 private:
  std::map<std::string, Records> records_;
};

}  // namespace vexel::soak
