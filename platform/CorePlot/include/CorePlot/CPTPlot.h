#pragma once

#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <CorePlot/CPTLayer.h>
#include <CorePlot/CPTPlotDataSource.h>
#include <CorePlot/CPTTextLayer.h>
#include <CorePlot/CPTTextStyle.h>
#include <CorePlot/CPTXYPlotSpace.h>
#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>
#include <Kernels/RangeIndex.h>

namespace vexel {

class CPTGraph;

/// A series of records drawn on a plot area. It reads its data from the data source when it is
/// first drawn and after setDataNeedsReloading(), and keeps it.
class VEXEL_API CPTPlot : public CPTLayer {
 public:
  /// More labels than this in one plot cannot be read.
  static constexpr std::size_t kMostLabels = 1000;

  /// The name by which the graph and the data source know the plot; default empty.
  const std::string& identifier() const { return identifier_; }
  void setIdentifier(std::string identifier) { identifier_ = std::move(identifier); }

  /// Referred to weakly: null once it is gone, and then nothing is drawn.
  CPTPlotDataSource* dataSource() const { return dataSource_.get(); }
  void setDataSource(CPTPlotDataSource* dataSource);

  /// The coordinates the plot is drawn in; null before it is on a graph.
  const std::shared_ptr<CPTPlotSpace>& plotSpace() const { return plotSpace_; }
  void setPlotSpace(std::shared_ptr<CPTPlotSpace> space);

  /// The graph that has the plot; null when there is none.
  CPTGraph* graph() const { return graph_.get(); }

  /// Says that the data source's answers have changed: they are asked for before the next
  /// display.
  void setDataNeedsReloading();
  /// Whether they will be asked for; true until the data was first read.
  bool dataNeedsReloading() const { return dataNeedsReloading_; }
  /// Asks now if they have changed.
  void reloadDataIfNeeded();
  /// Asks the data source now. Without one the plot has no records.
  void reloadData();

  /// Records read at the last reload.
  std::size_t recordCount() const { return recordCount_; }

  /// Says that the data source has `count` records more than before, `index` records before the
  /// first of them. At the end of the series only they are read before the next display, of which
  /// a lent field is not an exception: what was lent before must be there still, maybe at another
  /// place. Anywhere else it is the same as setDataNeedsReloading().
  void insertData(std::size_t index, std::size_t count);

  /// What the records span of a coordinate of the plot space, with nothing around it: from the
  /// lowest to the highest of its finite numbers above `floor`. Absent when there is none. Reads
  /// the data when they have not been read.
  std::optional<CPTPlotRange> plotRangeForCoordinate(
      CPTCoordinate coordinate, double floor = -std::numeric_limits<double>::infinity());

  /// Style of labels made by the formatter; absent: the default style.
  const std::optional<CPTTextStyle>& labelTextStyle() const { return labelTextStyle_; }
  void setLabelTextStyle(std::optional<CPTTextStyle> style);
  /// Labels every record with its value when the data source has no labels, as far as there are no
  /// more than kMostLabels in view; then they are left out evenly. Null (the default): no such
  /// labels.
  const std::shared_ptr<NSFormatter>& labelFormatter() const { return labelFormatter_; }
  void setLabelFormatter(std::shared_ptr<NSFormatter> formatter);
  /// Distance of a label from its point, in points; default 0, of bars 10.
  CGFloat labelOffset() const { return labelOffset_; }
  void setLabelOffset(CGFloat points);
  /// In radians, counter-clockwise; default 0.
  CGFloat labelRotation() const { return labelRotation_; }
  void setLabelRotation(CGFloat radians);

  /// The extent of the area drawn on, as the graph hands it over.
  void setPlotAreaSize(CGSize size) { plotAreaSize_ = size; }

  /// Also when the data source of what was drawn is gone.
  bool needsDisplay() const override;

  /// Most records of a plot that is drawn again wherever something changes, as a line across or
  /// a box is, rather than kept in a picture.
  static constexpr std::size_t kMostRecordsOfMark = 6;
  /// Where such a plot draws on a plot area of that size, after reading its data if needed; absent
  /// when it has more records, or may draw anywhere.
  std::optional<std::vector<CGRect>> placesOfMark(CGSize plotArea);

 protected:
  /// A plot without data source that is on no graph.
  explicit CPTPlot(CGRect frame) : CPTLayer(frame) {}

  /// Reads the fields that the kind of plot needs of these records; those before them have been
  /// read and are the same. Returns the number of records that can be drawn, all in all. The source
  /// may be gone after any question; then it is not asked again, and the result does not count.
  virtual std::size_t readData(CPTPlotDataSource& source, CPTRecordRange records) = 0;
  /// The lowest and the highest of the finite numbers above `floor`.
  virtual RangeIndex::Extremes extremes(CPTCoordinate coordinate, double floor) const = 0;
  /// Draws the series into the plot area, whose bottom-left corner is (0, 0) and which it is
  /// clipped to.
  virtual void drawSeries(CGContext& context, const CPTXYPlotSpace& space) = 0;
  /// Rectangles around all that drawSeries() draws, if a clip may cut it anywhere without
  /// changing what remains; absent, the default: it is to be drawn as a whole.
  virtual std::optional<std::vector<CGRect>> seriesPlaces(const CPTXYPlotSpace&) const {
    return std::nullopt;
  }

  void draw(CGContext& context) final;

  /// In points.
  CGSize plotAreaSize() const { return plotAreaSize_; }

  /// Whether this source is still there and the plot's own.
  bool isAnsweredBy(const CPTPlotDataSource& source) const { return dataSource() == &source; }
  /// A field as the source lends it, from the first record on, or `records` asked for one by one
  /// and put into `storage` behind those before them. Nothing of a source that is gone.
  CPTNumericData readField(CPTPlotDataSource& source, unsigned field, CPTRecordRange records,
                           std::vector<double>& storage) const;
  /// Where the label of a record goes: its near edge is labelOffset from `anchor` in the direction
  /// given (a unit vector along an axis).
  struct LabelPlace {
    /// Which one, and its value for the formatter.
    std::size_t record;
    double value;
    /// On the plot area, in points.
    CGPoint anchor;
    /// From the point to its label.
    CGPoint direction;
  };
  /// The places of the labels of the records inside the plot area. They may reach beyond its edges.
  /// Called only when there are labels.
  virtual std::vector<LabelPlace> labelPlaces(const CPTXYPlotSpace& space) const = 0;

 private:
  struct PlacedLabel {
    std::shared_ptr<CPTTextLayer> text;
    CGPoint center;
    /// Width and height of the upright box around it.
    CGSize box;
  };
  /// The labels of all records, or of every second, third, ... when there are more than
  /// kMostLabels.
  std::vector<PlacedLabel> placedLabels(const CPTXYPlotSpace& space) const;
  /// The label of a record whose value is `value`; null when it has none.
  std::shared_ptr<CPTTextLayer> label(std::size_t record, double value) const;
  void drawLabel(CGContext& context, const PlacedLabel& label) const;
  friend class CPTGraph;

  void readFromSource();
  /// The number of records that can be drawn; `kept` need not be read again.
  std::size_t readFrom(CPTPlotDataSource& source, std::size_t kept);

  std::string identifier_;
  NSWeak<CPTPlotDataSource> dataSource_;
  NSWeak<CPTGraph> graph_;
  std::shared_ptr<CPTPlotSpace> plotSpace_;
  bool dataNeedsReloading_ = true;
  std::size_t recordCount_ = 0;
  /// Records that need not be read again.
  std::size_t keptRecords_ = 0;
  bool hasDrawnRecords_ = false;
  std::vector<std::shared_ptr<CPTTextLayer>> dataLabels_;
  std::optional<CPTTextStyle> labelTextStyle_ = CPTTextStyle{};
  std::shared_ptr<NSFormatter> labelFormatter_;
  CGFloat labelOffset_ = 0;
  CGFloat labelRotation_ = 0;
  CGSize plotAreaSize_;
};

}  // namespace vexel
