#include <PlotTheme/NSColorNames.h>
#include <PlotTheme/PlotSymbol.h>

#include "Axes.h"
#include "Figures.h"
#include "Palette.h"
#include "SeriesSource.h"

namespace gallery {

using namespace vexel;

namespace {

/// All symbols in three sizes.
class Symbols : public Adopter<Vexel>, public SeriesSource {
 public:
  void setupPlot() override {
    const struct {
      const char* name;
      CPTPlotSymbol symbol;
      NSColor fill;
    } symbols[] = {
        {"circle", PlotSymbol(PlotSymbol::circle).cptSymbol(), kBlue},
        {"diamond", PlotSymbol(PlotSymbol::diamond).cptSymbol(), kOrange},
        {"cross", PlotSymbol(PlotSymbol::cross).cptSymbol(), kBlue},
        {"rectangle", PlotSymbol(PlotSymbol::rectangle).cptSymbol(), kGreen},
        {"triangle", PlotSymbol(PlotSymbol::triangle).cptSymbol(), kRed},
        {"star", PlotSymbol(PlotSymbol::star).cptSymbol(), kViolet},
        {"pentagon", CPTPlotSymbol::pentagonPlotSymbol(), kTeal},
        {"hexagon", CPTPlotSymbol::hexagonPlotSymbol(), kOrange},
        {"plus", CPTPlotSymbol::plusPlotSymbol(), kBlue},
        {"dash", CPTPlotSymbol::dashPlotSymbol(), kBlue},
        {"snow", CPTPlotSymbol::snowPlotSymbol(), kBlue},
    };
    setViews(1, 0, 0);
    const auto graph = format(hostingViews()[0], {0, 0, 0, 0}, {72, 16, 20, 48});
    XAxisArguments x = horizontal("", 0.2, 11.8);
    x.gridLines = false;
    x.tickLocations = std::set<double>();
    x.axisLabels.emplace();
    formatXAxis(graph, x);
    formatYAxis(graph, vertical("Size (points)", 0, 24));
    double place = 0;
    for (const auto& [name, symbol, fill] : symbols) {
      ++place;
      for (const CGFloat size : {6, 12, 18}) {
        const auto plot = addCircles(
            graph, {.name = name + std::to_string(size), .x = {place}, .y = {size}}, fill, 1);
        CPTPlotSymbol sized = symbol;
        sized.setSize({size, size});
        sized.setFill(CPTFill(vexel::getCPTColor(fill)));
        plot->setPlotSymbol(sized);
      }
      x.axisLabels->push_back(std::make_shared<CPTAxisLabel>(name, CPTTextStyle{.fontSize = 10}));
      x.axisLabels->back()->setTickLocation(place);
      x.tickLocations->insert(place);
    }
    formatXAxis(graph, x);
  }
};

}  // namespace

Sheet symbols() {
  return sheetOf<Symbols>({640, 260});
}

}  // namespace gallery
