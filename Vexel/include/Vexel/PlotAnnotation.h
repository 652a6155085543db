#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSAttributedString.h>
#include <AppKit/NSColor.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <CorePlot/CPTXYGraph.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/Argument.h>

namespace vexel {

/// A text that can be put on a graph, re-labelled and moved. It remembers its anchor, text and
/// style and the last place where it was put. A changed property is seen at the next annotate();
/// a changed location also by updateLocation().
class VEXEL_API PlotAnnotation : public virtual NSObject {
 public:
  /// The side on which the text stands, as its displacement from the anchor. Of a text w points
  /// wide and h high the centre is moved by
  /// - top: w / 2 to the right and h / 2 down,
  /// - bottom and, on purpose the same, left: w / 2 to the right and h / 2 up,
  /// - right: w / 2 to the left and h / 2 up.
  enum class Alignment { top, bottom, left, right };

  /// What a location means.
  enum class Coordinates {
    /// Plot-space units.
    data,
    /// Fractions of the graph's ranges at the time of placing: 0 is the start, 1 the end; fractions
    /// of the decades on a logarithmic scale.
    normal,
  };

  /// What an annotation is made of.
  struct Arguments {
    /// x, y as `coordinates` says.
    Argument<std::vector<double>> location;
    /// What the location means.
    Argument<Coordinates> coordinates;
    /// Colour and size in points of a plain label.
    Argument<NSColor> color;
    Argument<float> fontSize;
    /// Plain text; absent: the attributed one.
    std::optional<std::string> label = std::nullopt;
    /// Used when there is no plain label.
    std::optional<NSAttributedString> attributedLabel = std::nullopt;
    /// On which side of the location the text stands.
    Argument<Alignment> alignment;
  };

  /// An annotation that is on no graph.
  explicit PlotAnnotation(const Arguments& arguments);
  PlotAnnotation(const PlotAnnotation&) = delete;
  PlotAnnotation& operator=(const PlotAnnotation&) = delete;

  /// x, y as coordinates() says.
  const std::vector<double>& location() const { return location_; }
  void setLocation(std::vector<double> location) { location_ = std::move(location); }
  /// Of a plain label, and its size in points.
  const NSColor& color() const { return color_; }
  void setColor(const NSColor& color) { color_ = color; }
  float fontSize() const { return fontSize_; }
  void setFontSize(float points) { fontSize_ = points; }
  /// The plain label; absent: the attributed one is used.
  const std::optional<std::string>& label() const { return label_; }
  void setLabel(std::optional<std::string> label) { label_ = std::move(label); }
  /// Used when there is no plain label.
  const std::optional<NSAttributedString>& attributedLabel() const { return attributedLabel_; }
  void setAttributedLabel(std::optional<NSAttributedString> label) {
    attributedLabel_ = std::move(label);
  }
  /// On which side of the anchor the text stands.
  Alignment alignment() const { return alignment_; }
  void setAlignment(Alignment alignment) { alignment_ = alignment; }
  /// What the location means.
  Coordinates coordinates() const { return coordinates_; }
  void setCoordinates(Coordinates coordinates) { coordinates_ = coordinates; }

  /// Puts the label on the graph's plot area and remembers it, and the graph weakly. What was
  /// remembered before stays on its graph. Does nothing without a graph, a label or an xy plot
  /// space as the graph's default. A location of fewer than two numbers is a fatal error.
  void annotate(const std::shared_ptr<CPTXYGraph>& on);

  /// Ends the hold on the label: it stays where it is, on the plot area of `from`, and is no longer
  /// updated. Use CPTPlotArea::removeAnnotation to make a label disappear.
  void remove(const std::shared_ptr<CPTXYGraph>& from);

  /// Replaces the text of the remembered label, not the properties. Its displacement stays.
  void update(const std::string& label);
  void update(const NSAttributedString& label);

  /// Moves the remembered label to the location; does nothing once its graph is gone.
  void updateLocation();

 private:
  std::optional<std::vector<double>> anchor(const CPTXYGraph& graph) const;
  std::shared_ptr<CPTTextLayer> textLayer() const;
  CGPoint displacement(CGSize text) const;

  std::vector<double> location_;
  NSColor color_;
  float fontSize_;
  std::optional<std::string> label_;
  std::optional<NSAttributedString> attributedLabel_;
  Alignment alignment_;
  Coordinates coordinates_;
  std::shared_ptr<CPTPlotSpaceAnnotation> annotation_;
  NSWeak<CPTXYGraph> graph_;
};

}  // namespace vexel
