#include <CorePlot/CPTAxis.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include <Foundation/FatalError.h>
#include <Foundation/NSNumberFormatter.h>

namespace vexel {

namespace {

std::set<double> finite(std::set<double> locations) {
  const auto isFinite = [](double location) { return std::isfinite(location); };
  if (std::ranges::all_of(locations, isFinite)) return locations;
  // NaN is not ordered: a set that contains one cannot be searched, only walked.
  std::set<double> result;
  std::ranges::copy_if(locations, std::inserter(result, result.end()), isFinite);
  return result;
}

std::shared_ptr<NSFormatter> defaultLabelFormatter() {
  auto formatter = std::make_shared<NSNumberFormatter>();
  formatter->setMinimumIntegerDigits(1);
  formatter->setMinimumFractionDigits(1);
  return formatter;
}

}  // namespace

CPTAxis::CPTAxis() : labelFormatter_(defaultLabelFormatter()) {}

void CPTAxis::setMinorTicksPerInterval(int ticks) {
  if (ticks < 0) fatalError("CPTAxis: minorTicksPerInterval is negative");
  change(minorTicksPerInterval_, ticks);
}

void CPTAxis::setMajorTickLocations(std::set<double> locations) {
  change(majorTickLocations_, finite(std::move(locations)));
}

void CPTAxis::setMinorTickLocations(std::set<double> locations) {
  change(minorTickLocations_, finite(std::move(locations)));
}

void CPTAxis::setAxisLabels(std::vector<std::shared_ptr<CPTAxisLabel>> labels) {
  std::erase(labels, nullptr);
  if (axisLabels_ == labels) return;
  for (auto label = axisLabels_.rbegin(); label != axisLabels_.rend(); ++label) {
    if ((*label)->axis_.get() != this) continue;
    (*label)->axis_ = nullptr;
    if ((*label)->contentLayer()) (*label)->contentLayer()->removeFromSuperlayer();
  }
  axisLabels_ = std::move(labels);
  for (const auto& label : axisLabels_) {
    label->axis_ = this;
    addSublayer(label->contentLayer());
  }
  setNeedsDisplay();
}

void CPTAxis::contentDidChange() {
  // The labels are drawn with the axis.
  if (needsDisplay())
    CPTLayer::contentDidChange();
  else
    setNeedsDisplay();
}

}  // namespace vexel
