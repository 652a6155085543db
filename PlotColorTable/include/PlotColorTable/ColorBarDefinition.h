#pragma once

#include <memory>
#include <string>
#include <vector>

#include <CorePlot/CPTColorList.h>
#include <Foundation/NSFormatter.h>
#include <Foundation/VexelAPI.h>
#include <PlotColorTable/PlotCT.h>

namespace vexel {

/// What a colour bar shows. A value; two are equal when all fields are, formatters when they are
/// the same object.
struct VEXEL_API ColorBarDefinition {
  /// The scale of the bar.
  enum class AxisType {
    /// Classes of a discrete quantity: no bar is drawn.
    discrete,
    linear,
    log,
  };

  /// A linear bar over 0 to 1 in the table "IDL: 16 Level", without colours, formatter and title.
  ColorBarDefinition() = default;
  ColorBarDefinition(CPTColorList colors, PlotCT colorTable, AxisType type,
                     std::vector<double> range, std::shared_ptr<NSFormatter> formatter,
                     std::string title);

  /// Of the plotted points, one each in their order. For the application; the bar does not use
  /// them.
  CPTColorList colors;
  /// Painted into the bar.
  PlotCT colorTable = PlotCT::idl16Level;
  /// How values run along the bar.
  AxisType type = AxisType::linear;
  /// The values at the lower and the upper end of the bar.
  std::vector<double> range = {0.0, 1.0};
  /// Of the labels on the value axis; null: numbers.
  std::shared_ptr<NSFormatter> formatter;
  /// Of the value axis.
  std::string title;

  friend bool operator==(const ColorBarDefinition&, const ColorBarDefinition&) = default;
};

}  // namespace vexel
