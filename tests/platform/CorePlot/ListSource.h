#pragma once

#include <CorePlot/CPTPlot.h>
#include <CorePlot/CPTPlotDataSource.h>
#include <CorePlot/CPTScatterPlot.h>

#include <map>
#include <optional>
#include <vector>

namespace vexel {

/// A data source over lists of numbers, one per field. It counts what it is asked for.
class ListSource : public CPTPlotDataSource {
 public:
  explicit ListSource(std::vector<std::vector<double>> fieldValues)
      : fields(std::move(fieldValues)) {}

  std::size_t numberOfRecords(const CPTPlot&) override {
    ++askedForRecords;
    if (records) return *records;
    return fields.empty() ? 0 : fields[0].size();
  }

  std::optional<CPTNumericData> numbers(const CPTPlot&, unsigned field, CPTRecordRange) override {
    if (!inBulk) return std::nullopt;
    ++askedForFields[field];
    return field < fields.size() ? CPTNumericData(fields[field]) : CPTNumericData();
  }

  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    ++askedForNumbers;
    return fields.at(field).at(record);
  }

  std::vector<std::optional<CPTPlotSymbol>> symbols(const CPTScatterPlot&,
                                                    CPTRecordRange) override {
    ++askedForSymbols;
    return recordSymbols;
  }

  std::vector<std::shared_ptr<CPTTextLayer>> dataLabels(const CPTPlot&, CPTRecordRange) override {
    ++askedForLabels;
    return labels;
  }

  std::vector<std::vector<double>> fields;
  /// How many records it claims to have; absent: as many as the first field has.
  std::optional<std::size_t> records;
  bool inBulk = true;
  std::vector<std::optional<CPTPlotSymbol>> recordSymbols;
  std::vector<std::shared_ptr<CPTTextLayer>> labels;

  int askedForRecords = 0;
  std::map<unsigned, int> askedForFields;
  int askedForNumbers = 0;
  int askedForSymbols = 0;
  int askedForLabels = 0;
};

}  // namespace vexel
