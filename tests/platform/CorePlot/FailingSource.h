#pragma once

#include <functional>
#include <string>

#include "platform/CorePlot/ListSource.h"

namespace vexel {

/// A source to which something happens when it is asked for a certain thing.
class FailingSource : public ListSource {
 public:
  enum class Question { records, firstField, secondField, number, symbols, colors, labels };
  static constexpr Question kQuestions[] = {
      Question::records, Question::firstField, Question::secondField, Question::number,
      Question::symbols, Question::colors,     Question::labels,
  };

  using ListSource::ListSource;

  std::size_t numberOfRecords(const CPTPlot& plot) override {
    const std::size_t count = ListSource::numberOfRecords(plot);
    happen(Question::records);
    return count;
  }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange range) override {
    const auto lent = ListSource::numbers(plot, field, range);
    happen(field == 0 ? Question::firstField : Question::secondField);
    return lent;
  }
  double number(const CPTPlot& plot, unsigned field, std::size_t record) override {
    const double answer = ListSource::number(plot, field, record);
    if (record == 1) happen(Question::number);
    return answer;
  }
  std::vector<std::optional<CPTPlotSymbol>> symbols(const CPTScatterPlot& plot,
                                                    CPTRecordRange range) override {
    auto answer = ListSource::symbols(plot, range);
    happen(Question::symbols);
    return answer;
  }
  CPTColorList symbolColors(const CPTScatterPlot& plot, CPTRecordRange range) override {
    auto answer = ListSource::symbolColors(plot, range);
    happen(Question::colors);
    return answer;
  }
  std::vector<std::shared_ptr<CPTTextLayer>> dataLabels(const CPTPlot& plot,
                                                        CPTRecordRange range) override {
    auto answer = ListSource::dataLabels(plot, range);
    happen(Question::labels);
    return answer;
  }

  /// Where it happens, and what; nothing by default.
  Question question = Question::records;
  std::function<void()> disaster;

 private:
  /// Touches nothing of this object after the disaster, which may destroy it.
  void happen(Question asked) {
    const auto what = asked == question ? disaster : nullptr;
    if (what) what();
  }
};

}  // namespace vexel
