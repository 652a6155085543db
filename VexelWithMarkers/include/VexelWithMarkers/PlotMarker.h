#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSAttributedString.h>
#include <AppKit/NSColor.h>
#include <CorePlot/CPTAxisLabel.h>
#include <CorePlot/CPTTextLayer.h>
#include <Foundation/NSNumber.h>
#include <Foundation/VexelAPI.h>
#include <Vexel/Argument.h>

namespace vexel {

/// A mark over a plot: a symbol or label at a point, a line through it, or a box. A value that
/// knows no graph; the points, text layers and axis labels made from it are given to plots, axes
/// and annotations by whoever draws it. Coordinates are in data units.
class VEXEL_API PlotMarker {
 public:
  /// What is drawn.
  enum class MarkerType { symbol, label, verticalLine, horizontalLine, box };

  /// Numbers in the order of a series; an absent one ends the line.
  using Numbers = std::vector<std::optional<NSNumber>>;

  /// What a marker of any type is made of.
  struct Arguments {
    /// Which numbers count depends on the type.
    Argument<MarkerType> type;
    Argument<double> x;
    /// Single precision, and so is yRange.
    Argument<float> y;
    /// Start and end of a horizontal line or box; may be empty for others.
    Argument<std::vector<double>> xRange;
    Argument<std::vector<float>> yRange;
    /// The attributed label comes before the plain one, which has the colour.
    std::optional<std::string> label = std::nullopt;
    std::optional<NSAttributedString> attributedLabel = std::nullopt;
    /// Whether axis labels are turned by a quarter turn.
    Argument<bool> rotate;
    /// Of the plain label; absent: the chart engine's default.
    std::optional<NSColor> color = std::nullopt;
  };

  /// What a box is made of.
  struct BoxArguments {
    /// Start and end.
    Argument<std::vector<double>> xRange;
    Argument<std::vector<double>> yRange;
    /// The attributed label comes before the plain one, which has the colour.
    std::optional<std::string> label = std::nullopt;
    std::optional<NSAttributedString> attributedLabel = std::nullopt;
    /// Whether axis labels are turned by a quarter turn.
    Argument<bool> rotate;
    /// Of the plain label; absent: the chart engine's default.
    std::optional<NSColor> color = std::nullopt;
  };

  /// Every number is kept as it is given, x as a double and y as a float.
  explicit PlotMarker(const Arguments& arguments);
  /// A box, with x and y the whole number 0.
  explicit PlotMarker(const BoxArguments& arguments);
  /// The same.
  static PlotMarker makePlotBox(const BoxArguments& arguments) { return PlotMarker(arguments); }

  /// What is drawn, and where.
  MarkerType type = MarkerType::symbol;
  NSNumber x;
  NSNumber y;
  /// Start and end of a horizontal line or box; empty for others.
  std::vector<NSNumber> xRange;
  /// Start and end of a box; of no use to a line.
  std::vector<NSNumber> yRange;
  /// Plain text; absent: none.
  std::optional<std::string> label;
  /// Comes before `label` in cptLabel.
  std::optional<NSAttributedString> attributedLabel;
  /// Of the text of `label`; absent: the chart engine's default.
  std::optional<NSColor> color;
  /// Whether axis labels are turned by a quarter turn.
  bool rotate = false;

  /// A layer with the attributed label as it is or the plain one in the colour; null when there is
  /// neither.
  std::shared_ptr<CPTTextLayer> cptLabel() const;
  /// The plain label at x of a horizontal axis or at y of a vertical one; null without a plain
  /// label.
  std::shared_ptr<CPTAxisLabel> axisLabel() const { return axisLabelAt(x); }
  std::shared_ptr<CPTAxisLabel> axisYLabel() const { return axisLabelAt(y); }

  /// Three numbers: x twice for a vertical line, xRange for a horizontal one, and an absent one at
  /// the end; all absent for other types. A horizontal line whose xRange has fewer than two
  /// numbers is a fatal error.
  Numbers lineX() const;
  /// The same as lineX, on purpose, for every type.
  Numbers lineY() const { return lineX(); }
  /// Six numbers: the corners of a box in their order, the first again, and an absent one; all
  /// absent for other types. A range of fewer than two numbers is a fatal error.
  Numbers boxX() const;
  Numbers boxY() const;

  friend bool operator==(const PlotMarker&, const PlotMarker&) = default;

 private:
  std::shared_ptr<CPTAxisLabel> axisLabelAt(const NSNumber& location) const;
};

}  // namespace vexel
