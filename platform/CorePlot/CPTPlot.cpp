#include <CorePlot/CPTPlot.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

#include <CorePlot/CPTGraph.h>

#include "TextReach.h"
#include "TurnedSize.h"

namespace vexel {

namespace {

// Asking for more numbers one by one takes longer than anybody waits.
constexpr std::size_t kMostSingleRecords = 10'000'000;
// Clips take in every pixel that they touch, in points.
constexpr CGFloat kClipBlur = 1;

}  // namespace

void CPTPlot::setDataSource(CPTPlotDataSource* dataSource) {
  dataSource_ = dataSource;
  setDataNeedsReloading();
}

void CPTPlot::setPlotSpace(std::shared_ptr<CPTPlotSpace> space) {
  if (plotSpace_ == space) return;
  plotSpace_ = std::move(space);
  setNeedsDisplay();
}

void CPTPlot::setDataNeedsReloading() {
  dataNeedsReloading_ = true;
  keptRecords_ = 0;
  setNeedsDisplay();
}

void CPTPlot::insertData(std::size_t index, std::size_t count) {
  if (count == 0) return;
  if (index < recordCount_) return setDataNeedsReloading();
  if (!dataNeedsReloading_) keptRecords_ = recordCount_;
  dataNeedsReloading_ = true;
  setNeedsDisplay();
}

void CPTPlot::reloadDataIfNeeded() {
  if (dataNeedsReloading_) readFromSource();
}

void CPTPlot::reloadData() {
  keptRecords_ = 0;
  readFromSource();
  setNeedsDisplay();
}

void CPTPlot::readFromSource() {
  dataNeedsReloading_ = false;
  const std::size_t kept = std::exchange(keptRecords_, 0);
  dataLabels_.resize(std::min(dataLabels_.size(), kept));
  recordCount_ = 0;
  auto* const source = dataSource();
  if (!source) return;
  try {
    recordCount_ = readFrom(*source, kept);
  } catch (...) {
    dataLabels_.clear();
    setDataNeedsReloading();
    throw;
  }
}

std::size_t CPTPlot::readFrom(CPTPlotDataSource& source, std::size_t kept) {
  const std::size_t count = source.numberOfRecords(*this);
  std::size_t first = kept <= count ? kept : 0;
  if (!isAnsweredBy(source)) return 0;
  std::size_t read = readData(source, {first, count - first});
  if (!isAnsweredBy(source)) return 0;
  if (read < first) {
    // Of a field it has fewer than it says, and than there were.
    first = 0;
    read = readData(source, {0, count});
    if (!isAnsweredBy(source)) return 0;
  }
  if (dataLabels_.size() != first) dataLabels_.clear();
  std::ranges::move(source.dataLabels(*this, {first, read - first}),
                    std::back_inserter(dataLabels_));
  return isAnsweredBy(source) ? read : 0;
}

std::optional<CPTPlotRange> CPTPlot::plotRangeForCoordinate(CPTCoordinate coordinate,
                                                            double floor) {
  reloadDataIfNeeded();
  if (!dataSource() || recordCount_ == 0) return std::nullopt;
  const RangeIndex::Extremes found = extremes(coordinate, floor);
  if (found.isEmpty()) return std::nullopt;
  constexpr double kLongest = std::numeric_limits<double>::max();
  return CPTPlotRange(found.lowest, std::min(found.highest - found.lowest, kLongest));
}

void CPTPlot::setLabelTextStyle(std::optional<CPTTextStyle> style) {
  if (labelTextStyle_ == style) return;
  labelTextStyle_ = std::move(style);
  setNeedsDisplay();
}

void CPTPlot::setLabelFormatter(std::shared_ptr<NSFormatter> formatter) {
  if (labelFormatter_ == formatter) return;
  labelFormatter_ = std::move(formatter);
  setNeedsDisplay();
}

void CPTPlot::setLabelOffset(CGFloat points) {
  if (labelOffset_ == points) return;
  labelOffset_ = points;
  setNeedsDisplay();
}

void CPTPlot::setLabelRotation(CGFloat radians) {
  if (labelRotation_ == radians) return;
  labelRotation_ = radians;
  setNeedsDisplay();
}

bool CPTPlot::needsDisplay() const {
  return CPTLayer::needsDisplay() || (hasDrawnRecords_ && !dataSource());
}

void CPTPlot::draw(CGContext& context) {
  reloadDataIfNeeded();
  // Borrowed numbers die with their source.
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(plotSpace_);
  hasDrawnRecords_ = dataSource() && space && recordCount_ > 0;
  if (!hasDrawnRecords_) return;
  {
    const CGSavedState state(context);
    context.clip(CGRect{{}, plotAreaSize_});
    drawSeries(context, *space);
  }
  for (const PlacedLabel& label : placedLabels(*space)) drawLabel(context, label);
}

std::optional<std::vector<CGRect>> CPTPlot::placesOfMark(CGSize plotArea) {
  if (isHidden()) return std::vector<CGRect>{};
  reloadDataIfNeeded();
  if (recordCount_ > kMostRecordsOfMark) return std::nullopt;
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(plotSpace_);
  if (!dataSource() || !space || recordCount_ == 0) return std::vector<CGRect>{};
  setPlotAreaSize(plotArea);
  auto places = seriesPlaces(*space);
  if (!places) return std::nullopt;
  for (CGRect& place : *places)
    place = place.intersection(CGRect{{}, plotArea}.insetBy(-kClipBlur, -kClipBlur));
  for (const PlacedLabel& label : placedLabels(*space))
    places->push_back(
        textReach({{label.center.x - label.box.width / 2, label.center.y - label.box.height / 2},
                   label.box}));
  return places;
}

CPTNumericData CPTPlot::readField(CPTPlotDataSource& source, unsigned field, CPTRecordRange records,
                                  std::vector<double>& storage) const {
  const std::size_t end = records.location + records.length;
  if (!isAnsweredBy(source)) return {};
  if (const auto lent = source.numbers(*this, field, {0, end})) {
    storage.clear();
    return lent->part(0, end);
  }
  storage.resize(std::min(records.location, storage.size()));
  storage.reserve(std::min(end, kMostSingleRecords));
  while (isAnsweredBy(source) && storage.size() < std::min(end, kMostSingleRecords))
    storage.push_back(source.number(*this, field, storage.size()));
  return storage;
}

std::shared_ptr<CPTTextLayer> CPTPlot::label(std::size_t record, double value) const {
  if (!dataLabels_.empty()) return record < dataLabels_.size() ? dataLabels_[record] : nullptr;
  if (!labelFormatter_) return nullptr;
  return std::make_shared<CPTTextLayer>(labelFormatter_->string(value),
                                        labelTextStyle_.value_or(CPTTextStyle{}));
}

std::vector<CPTPlot::PlacedLabel> CPTPlot::placedLabels(const CPTXYPlotSpace& space) const {
  if (dataLabels_.empty() && !labelFormatter_) return {};
  std::vector<PlacedLabel> labels;
  const std::vector<LabelPlace> places = labelPlaces(space);
  const std::size_t step = (places.size() + kMostLabels - 1) / kMostLabels;
  for (std::size_t i = 0; i < places.size(); i += step) {
    const auto& [record, value, anchor, direction] = places[i];
    const auto text = label(record, value);
    if (!text) continue;
    const CGSize box = turned(text->frame().size, labelRotation_);
    const CGPoint center{anchor.x + direction.x * (labelOffset_ + box.width / 2),
                         anchor.y + direction.y * (labelOffset_ + box.height / 2)};
    if (std::isfinite(center.x) && std::isfinite(center.y)) labels.push_back({text, center, box});
  }
  return labels;
}

void CPTPlot::drawLabel(CGContext& context, const PlacedLabel& label) const {
  const CGSize size = label.text->frame().size;
  const CGSavedState state(context);
  context.translate(label.center.x, label.center.y);
  if (labelRotation_ != 0) context.rotate(labelRotation_);
  context.translate(-size.width / 2, -size.height / 2);
  label.text->display(context);
}

}  // namespace vexel
