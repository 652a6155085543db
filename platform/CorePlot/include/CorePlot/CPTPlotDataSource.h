#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include <CorePlot/CPTColorList.h>
#include <CorePlot/CPTPlotSymbol.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>
#include <Kernels/CPTNumericData.h>

namespace vexel {

class CPTPlot;
class CPTScatterPlot;
class CPTTextLayer;

/// Records `location` to `location + length - 1`.
struct VEXEL_API CPTRecordRange {
  /// The first record, and how many.
  std::size_t location = 0;
  std::size_t length = 0;

  friend bool operator==(const CPTRecordRange&, const CPTRecordRange&) = default;
};

/// Which number of a record is asked for.
enum CPTScatterPlotField : unsigned { CPTScatterPlotFieldX = 0, CPTScatterPlotFieldY = 1 };
/// The same of bars.
enum CPTBarPlotField : unsigned {
  CPTBarPlotFieldBarLocation = 0,
  CPTBarPlotFieldBarTip = 1,
  CPTBarPlotFieldBarBase = 2,
};

/// Answers what a plot shows. A plot asks once after it was added or told that its data changed
/// (CPTPlot::setDataNeedsReloading), never while nothing changed. It refers to its source weakly:
/// when the source is gone the plot draws nothing.
///
/// An answer may be given by an exception, which reaches who displays the chart or reloads the
/// plot. The plot then has no records, and asks for all of them anew before the next display. A
/// source may also be destroyed while it answers, or remove the plot: no further question follows.
class VEXEL_API CPTPlotDataSource : public virtual NSObject {
 public:
  /// Records that the plot has at present.
  virtual std::size_t numberOfRecords(const CPTPlot& plot) = 0;

  /// All numbers of a field at once, lent: they must stay where they are and as they are until
  /// the plot is told of a change or the source is gone. NaN means no number. Fewer than asked
  /// for shortens the plot. Absent (the default): `number` is asked for each record instead.
  virtual std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                                CPTRecordRange records) {
    (void)plot, (void)field, (void)records;
    return std::nullopt;
  }

  /// One number, for sources without `numbers`; NaN (the default) for none. Records beyond the
  /// first ten million are not asked for.
  virtual double number(const CPTPlot& plot, unsigned field, std::size_t record) {
    (void)plot, (void)field, (void)record;
    return std::numeric_limits<double>::quiet_NaN();
  }

  /// A symbol per record, in order; an absent element draws none. Records beyond the end of the
  /// list, all of them by default, take the plot's own symbol.
  virtual std::vector<std::optional<CPTPlotSymbol>> symbols(const CPTScatterPlot& plot,
                                                            CPTRecordRange records) {
    (void)plot, (void)records;
    return {};
  }

  /// A colour per record, in order, in which the plot's own symbol is filled, or drawn when it has
  /// only lines; an absent element draws none. Records beyond the end of the list, all of them by
  /// default, take the symbol as it is.
  virtual CPTColorList symbolColors(const CPTScatterPlot& plot, CPTRecordRange records) {
    (void)plot, (void)records;
    return {};
  }

  /// A label per record, in order; a null element, and a record beyond the end of the list, has
  /// none. An empty list (the default) leaves the labels to the plot's label formatter.
  virtual std::vector<std::shared_ptr<CPTTextLayer>> dataLabels(const CPTPlot& plot,
                                                                CPTRecordRange records) {
    (void)plot, (void)records;
    return {};
  }
};

}  // namespace vexel
