// Figures of any content and size as PNG, PDF and SVG.

#include <CorePlot/CPTBarPlot.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTScatterPlot.h>
#include <CorePlot/CPTXYGraph.h>
#include <Vexel/FigureExport.h>

#include <algorithm>
#include <cstdint>

#include "Drawing.h"
#include "FuzzSource.h"
#include "FuzzStyles.h"

namespace {

using namespace vexel;

/// The bitmap of a PNG takes its memory, as documented; larger ones are left to the vector formats.
constexpr double kMostPixels = 1 << 18;

bool isWhole(const std::string& file, const std::string& extension) {
  if (extension == ".png")
    return file.starts_with("\x89PNG") && file.ends_with("IEND\xAE\x42\x60\x82");
  if (extension == ".pdf") return file.starts_with("%PDF-") && file.ends_with("%%EOF\n");
  return file.starts_with("<?xml") && file.ends_with("</svg>\n");
}

bool hasFiniteNumbers(const std::string& svg) {
  return std::ranges::none_of(std::initializer_list<const char*>{"=\"nan", "=\"inf", "=\"-inf"},
                              [&](const char* word) { return svg.find(word) != svg.npos; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const auto view = std::make_shared<CPTGraphHostingView>(CGRect{{}, figureSize(input)});
  const auto graph = std::make_shared<CPTXYGraph>();
  view->setHostedGraph(graph);
  setAnyRanges(dynamic_cast<CPTXYPlotSpace&>(*graph->defaultPlotSpace()), input);
  if (input.flag()) graph->setTitle(input.text());

  FuzzSource source(input);
  if (input.flag()) {
    const auto plot = std::make_shared<CPTScatterPlot>();
    plot->setDataLineStyle(maybeLineStyle(input));
    plot->setPlotSymbol(anySymbol(input));
    plot->setDataSource(&source);
    graph->addPlot(plot);
  }
  if (input.flag()) {
    const auto plot = std::make_shared<CPTBarPlot>();
    plot->setLineStyle(maybeLineStyle(input));
    plot->setFill(CPTFill(anyColor(input)));
    plot->setBarWidth(input.number());
    plot->setBarCornerRadius(input.number());
    plot->setDataSource(&source);
    graph->addPlot(plot);
  }

  const std::string extension = input.oneOf({".png", ".pdf", ".svg"});
  const double scale = input.flag() ? 1 : input.number();
  const CGSize points = view->bounds().size;
  if (extension == ".png" && points.width * points.height * scale * scale > kMostPixels) return 0;
  try {
    const std::string file = figureData(*view, "figure" + extension, scale);
    require(isWhole(file, extension), "a file is whole");
    require(extension != ".svg" || hasFiniteNumbers(file), "an SVG has finite coordinates");
    require(file == figureData(*view, "figure" + extension, scale), "equal figures, equal bytes");
  } catch (const FigureExportError& error) {
    require(error.what()[0] != '\0', "a failure says why");
  }
  return 0;
}
