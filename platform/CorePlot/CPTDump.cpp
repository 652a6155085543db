#include <CorePlot/CPTDump.h>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include <CorePlot/CPTBarPlot.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYAxis.h>

#include "AxisArrangement.h"

namespace vexel {

namespace {

std::string number(double value) {
  return fmt::format("{:.6g}", value == 0 ? 0.0 : value);
}

std::string box(const CPTLayer& layer, CGPoint root) {
  const CGPoint origin = layer.convertPointToRoot({}) - root;
  return fmt::format("({} {}) {} x {}", number(origin.x), number(origin.y),
                     number(layer.frame().size.width), number(layer.frame().size.height));
}

std::string color(const CGColor& c) {
  const auto byte = [](double component) {
    // In this order NaN gives 0.
    return std::lround(std::min(std::max(0.0, component), 1.0) * 255);
  };
  std::string text =
      fmt::format("#{:02x}{:02x}{:02x}", byte(c.red()), byte(c.green()), byte(c.blue()));
  if (c.alpha() < 1) text += fmt::format("{:02x}", byte(c.alpha()));
  return text;
}

std::string fill(const std::optional<CPTFill>& f) {
  if (!f) return "none";
  return f->color() ? color(f->color()->cgColor()) : "image";
}

std::string line(const std::optional<CPTLineStyle>& style) {
  if (!style) return "none";
  std::string text = color(style->strokeStyle().color) + " width " + number(style->lineWidth);
  if (!style->dashPattern.empty()) {
    text += " dash";
    for (const double length : style->dashPattern) text += " " + number(length);
  }
  return text;
}

std::string range(const CPTXYPlotSpace& space, CPTCoordinate coordinate) {
  const CPTPlotRange& r = space.range(coordinate);
  return fmt::format("{} to {}{}", number(r.locationDouble()), number(r.endDouble()),
                     space.scaleType(coordinate) == CPTScaleType::log ? " log" : "");
}

std::string numbers(const std::vector<double>& values) {
  std::string text;
  for (const double value : values) text += " " + number(value);
  return text;
}

/// The characters, superscripts and subscripts behind "^" and "_".
std::string readable(const CPTTextLayer& layer) {
  if (!layer.attributedText()) return layer.text();
  std::string text;
  for (const auto& [piece, attributes] : layer.attributedText()->runs()) {
    if (attributes.superscript != 0) text += attributes.superscript > 0 ? "^" : "_";
    text += piece;
  }
  return text;
}

std::string axisText(const CPTAxis& axis, const AxisArrangement& arrangement) {
  const bool alongX = axis.coordinate() == CPTCoordinate::X;
  std::string text = fmt::format("axis {}", alongX ? "X" : "Y");
  if (axis.title()) text += fmt::format(" \"{}\"", *axis.title());
  text += " line " + line(axis.axisLineStyle()) + "\n";
  if (!axis.plotSpace()) return text;
  const CGSize area = arrangement.surroundings.plotArea;
  const Ticks ticks = visibleTicks(axis, alongX ? area.width : area.height);
  text += "    major" + numbers(ticks.major) + "\n";
  text += "    minor" + numbers(ticks.minor) + "\n";
  for (const auto& [placed, layout] : arrangement.axes) {
    if (placed.get() != &axis) continue;
    text += "    labels";
    for (const auto& label : layout.labels) text += " \"" + readable(*label.content) + "\"";
    text += "\n";
  }
  return text;
}

std::string plotText(CPTPlot& plot) {
  plot.reloadDataIfNeeded();
  std::string text;
  if (const auto* scatter = dynamic_cast<const CPTScatterPlot*>(&plot)) {
    text = fmt::format("scatter \"{}\" line {}", plot.identifier(), line(scatter->dataLineStyle()));
    if (const auto& symbol = scatter->plotSymbol())
      text +=
          fmt::format(" symbol {} {} x {} fill {} line {}", static_cast<int>(symbol->symbolType()),
                      number(symbol->size().width), number(symbol->size().height),
                      fill(symbol->fill()), line(symbol->lineStyle()));
  } else if (const auto* bars = dynamic_cast<const CPTBarPlot*>(&plot)) {
    text = fmt::format("bars \"{}\" width {} fill {} line {}", plot.identifier(),
                       number(bars->barWidth()), fill(bars->fill()), line(bars->lineStyle()));
  } else {
    text = fmt::format("plot \"{}\"", plot.identifier());
  }
  return text + fmt::format(" records {}{}\n", plot.recordCount(),
                            plot.dataSource() ? "" : " without data source");
}

}  // namespace

std::string dump(CPTGraph& graph) {
  const CGPoint root = graph.frame().origin;
  std::string text = fmt::format("graph {} fill {}\n", box(graph, root), fill(graph.fill()));
  if (graph.title()) text += fmt::format("  title \"{}\"\n", *graph.title());
  for (const auto& space : graph.allPlotSpaces())
    if (const auto* xy = dynamic_cast<const CPTXYPlotSpace*>(space.get()))
      text += fmt::format("  space x {} y {}\n", range(*xy, CPTCoordinate::X),
                          range(*xy, CPTCoordinate::Y));
  const auto& frame = graph.plotAreaFrame();
  if (!frame) return text;
  text += fmt::format("  frame {} fill {} border {}\n", box(*frame, root), fill(frame->fill()),
                      line(frame->borderLineStyle()));
  const auto& area = frame->plotArea();
  if (!area) return text;
  text += fmt::format("  area {} fill {}\n", box(*area, root), fill(area->fill()));
  const AxisArrangement arrangement(graph);
  if (graph.axisSet())
    for (const auto& axis : graph.axisSet()->axes()) text += "  " + axisText(*axis, arrangement);
  for (const auto& plot : graph.allPlots()) text += "  " + plotText(*plot);
  for (const auto& annotation : area->annotations()) {
    const auto anchor = annotation->anchor();
    text += fmt::format("  annotation \"{}\" at {}\n",
                        annotation->contentLayer() ? annotation->contentLayer()->text() : "",
                        anchor ? number(anchor->x) + " " + number(anchor->y) : "no place");
  }
  return text;
}

}  // namespace vexel
