#pragma once

#include <memory>
#include <span>

#include <CorePlot/CPTDefinitions.h>
#include <CorePlot/CPTPlotRange.h>
#include <CorePlot/CPTPlotSpace.h>
#include <Foundation/VexelAPI.h>
#include <Kernels/AxisScale.h>

namespace vexel {

class CPTPlot;

/// Cartesian coordinates, each with a range over the plot area and a linear or logarithmic
/// scale. The range of a log scale must lie above 0; nothing is drawn on it otherwise.
class VEXEL_API CPTXYPlotSpace : public CPTPlotSpace {
 public:
  /// Location 0, length 1 unless set.
  const CPTPlotRange& xRange() const { return xRange_; }
  const CPTPlotRange& yRange() const { return yRange_; }
  void setXRange(const CPTPlotRange& range);
  void setYRange(const CPTPlotRange& range);

  /// Linear unless set.
  CPTScaleType xScaleType() const { return xScaleType_; }
  CPTScaleType yScaleType() const { return yScaleType_; }
  void setXScaleType(CPTScaleType type);
  void setYScaleType(CPTScaleType type);

  /// The same by coordinate.
  const CPTPlotRange& range(CPTCoordinate coordinate) const {
    return coordinate == CPTCoordinate::X ? xRange_ : yRange_;
  }
  CPTScaleType scaleType(CPTCoordinate coordinate) const {
    return coordinate == CPTCoordinate::X ? xScaleType_ : yScaleType_;
  }

  /// Sets both ranges to what the plots span together, on a logarithmic scale by their numbers
  /// above 0. A coordinate in which they have fewer than two different numbers keeps its range.
  void scaleToFitPlots(std::span<const std::shared_ptr<CPTPlot>> plots);

  /// The map from a coordinate to points over `extent` points, and back.
  AxisScale scale(CPTCoordinate coordinate, CGFloat extent) const;

  std::optional<CGPoint> plotAreaViewPoint(double x, double y, CGSize plotArea) const override;
  std::optional<std::vector<double>> plotPointForEvent(const NSEvent& event) const override;

 private:
  template <class T>
  void change(T& property, const T& value);
  CPTPlotRange fittedRange(CPTCoordinate coordinate,
                           std::span<const std::shared_ptr<CPTPlot>> plots) const;

  CPTPlotRange xRange_;
  CPTPlotRange yRange_;
  CPTScaleType xScaleType_ = CPTScaleType::linear;
  CPTScaleType yScaleType_ = CPTScaleType::linear;
};

}  // namespace vexel
