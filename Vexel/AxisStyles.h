#pragma once

#include <CorePlot/CPTAxis.h>
#include <Vexel/Vexel.h>

namespace vexel {

// What the horizontal and the vertical axis have in common, in the colours of the plot's theme at
// the moment of the call. A theme outside its cases is a fatal error.

CPTLineStyle axisLineStyle(Vexel& plot);
CPTLineStyle gridLineStyle(Vexel& plot);

/// Lengths and lines of the ticks.
void applyTicks(CPTAxis& axis, Vexel& plot);
/// Ticks to one side of the axis line, labels and title to the other.
void applySides(CPTAxis& axis, CPTSign ticks, CPTSign labels);

}  // namespace vexel
