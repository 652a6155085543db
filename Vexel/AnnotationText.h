#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <AppKit/NSAttributedString.h>
#include <CorePlot/CPTTextLayer.h>
#include <CorePlot/CPTXYGraph.h>

namespace vexel {

/// A piece of text without fill and with the padding of annotations; plain text is centred.
std::shared_ptr<CPTTextLayer> annotationText(const std::string& text, CPTTextStyle style);
std::shared_ptr<CPTTextLayer> annotationText(const NSAttributedString& text);

/// The graph's default plot space; null when it is not an xy one or there is none.
std::shared_ptr<CPTXYPlotSpace> defaultXYPlotSpace(const CPTXYGraph& graph);

/// The point at fractions of the graph's ranges, in plot-space units: fractions of the decades on a
/// logarithmic scale. Absent without an xy plot space; fewer than two fractions are a fatal error.
std::optional<std::vector<double>> pointAtFractions(const std::vector<double>& fractions,
                                                    const CPTXYGraph& graph);

}  // namespace vexel
