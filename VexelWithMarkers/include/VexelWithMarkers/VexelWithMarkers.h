#pragma once

#include <memory>
#include <vector>

#include <AppKit/NSEvent.h>
#include <CorePlot/CPTXYGraph.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/AdopterState.h>
#include <Vexel/Vexel.h>

namespace vexel {

/// What an application object adopts to show markers on a graph: a vertical and a horizontal line
/// that follow the mouse, and one of each that stays where it was put. Each is a series of its own,
/// known by its identifier; the adopter is its data source and serves the points of the line
/// through the position kept here.
///
/// An operation that sets a marker adds its series to the graph and then stores the position: it
/// adds the series once more when it is there already, and a position that cannot be told leaves
/// the series behind. An absent graph does nothing.
///
/// A vertical position is kept between the first two of auxiliaryValues times xUnitScale, a
/// horizontal one between the first two of `yRange` times `yScale`. Fewer values than it takes to
/// compare are a fatal error, after the position as it came was stored: the adopter fills
/// auxiliaryValues, which initialisation empties, before the first vertical marker.
class VEXEL_API VexelWithMarkers : public virtual Vexel {
 public:
  /// Identifiers of the series.
  static constexpr const char* kVerticalMarker = "Vertical Marker";
  static constexpr const char* kHorizontalMarker = "Horizontal Marker";
  static constexpr const char* kPermanentVerticalMarker = "Permanent Vertical Marker";
  static constexpr const char* kPermanentHorizontalMarker = "Permanent Horizontal Marker";

  // State: positions in plot-space units, 0 after initialisation. They outlive the markers.

  /// Those of the markers that follow the mouse, and of those that stay.
  virtual double& verticalMarkerX() = 0;
  virtual float& horizontalMarkerY() = 0;
  virtual double& permanentVerticalMarkerX() = 0;
  virtual float& permanentHorizontalMarkerY() = 0;

  // Vertical markers, in white in the black theme and black in the others

  /// Adds the marker at the pointer, or at `at`.
  virtual void setVerticalMarker(const NSEvent& with, const std::shared_ptr<CPTXYGraph>& graph);
  virtual void setVerticalMarker(double at, const std::shared_ptr<CPTXYGraph>& graph);
  /// Moves the marker to the pointer and lets its series read its data again. Without the series
  /// the position is stored and an error logged.
  virtual void updateVerticalMarker(const NSEvent& with, const std::shared_ptr<CPTXYGraph>& graph);
  /// Removes the series; the position stays.
  virtual void removeVerticalMarker(const std::shared_ptr<CPTXYGraph>& graph);

  /// Adds the marker that stays, at the pointer or at `at`.
  virtual void setPermanentVerticalMarker(const NSEvent& with,
                                          const std::shared_ptr<CPTXYGraph>& graph);
  virtual void setPermanentVerticalMarker(double at, const std::shared_ptr<CPTXYGraph>& graph);
  /// Removes the series; the position stays.
  virtual void removePermanentVerticalMarker(const std::shared_ptr<CPTXYGraph>& graph);

  // Horizontal markers, in the colour of series that are given none

  /// Adds the marker at the pointer, or at `at`.
  virtual void setHorizontalMarker(const NSEvent& with, const std::shared_ptr<CPTXYGraph>& graph,
                                   const std::vector<float>& yRange, float yScale);
  virtual void setHorizontalMarker(float at, const std::shared_ptr<CPTXYGraph>& graph,
                                   const std::vector<float>& yRange, float yScale);
  /// Moves the marker to the pointer and lets its series read its data again. Without the series
  /// the position is stored and, on purpose, nothing logged.
  virtual void updateHorizontalMarker(const NSEvent& with, const std::shared_ptr<CPTXYGraph>& graph,
                                      const std::vector<float>& yRange, float yScale);
  /// Removes the series; the position stays.
  virtual void removeHorizontalMarker(const std::shared_ptr<CPTXYGraph>& graph);

  /// Adds the marker that stays.
  virtual void setPermanentHorizontalMarker(float at, const std::shared_ptr<CPTXYGraph>& graph,
                                            const std::vector<float>& yRange, float yScale);
  /// Removes the series; the position stays.
  virtual void removePermanentHorizontalMarker(const std::shared_ptr<CPTXYGraph>& graph);

 protected:
  void resetState() override;
};

/// Keeps what VexelWithMarkers asks its adopters to store.
template <>
class VEXEL_API AdopterState<VexelWithMarkers> : public virtual VexelWithMarkers,
                                                 public virtual AdopterState<Vexel> {
 public:
  double& verticalMarkerX() override { return verticalMarkerX_; }
  float& horizontalMarkerY() override { return horizontalMarkerY_; }
  double& permanentVerticalMarkerX() override { return permanentVerticalMarkerX_; }
  float& permanentHorizontalMarkerY() override { return permanentHorizontalMarkerY_; }

 private:
  double verticalMarkerX_ = 0;
  float horizontalMarkerY_ = 0;
  double permanentVerticalMarkerX_ = 0;
  float permanentHorizontalMarkerY_ = 0;
};

}  // namespace vexel
