#pragma once

#include <string>

#include <CorePlot/CPTGraph.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

/// The chart as indented text: its layers with their boxes in the graph's coordinates, plot
/// spaces with ranges and scales, axes with ticks and labels, plots with their records and
/// looks, annotations. Stable, with numbers of at most six significant digits: for tests and
/// for people.
VEXEL_API std::string dump(CPTGraph& graph);

}  // namespace vexel
