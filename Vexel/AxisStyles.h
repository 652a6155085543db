#pragma once

#include <CorePlot/CPTAxis.h>
#include <PlotTheme/PlotTheme.h>

namespace vexel {

// What the horizontal and the vertical axis have in common, in the colours of the theme. A theme
// outside its cases is a fatal error.

CPTLineStyle axisLineStyle(PlotTheme theme);
CPTLineStyle gridLineStyle(PlotTheme theme);

/// Lengths and lines of the ticks, and the sides of ticks, labels and title.
void applyTicks(CPTAxis& axis, PlotTheme theme, CPTSign tickSide, CPTSign labelSide);

}  // namespace vexel
