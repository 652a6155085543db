#pragma once

#include <Vexel/PlotView.h>

#include "Vexel/SeriesExamples.h"
#include "Vexel/TestPlot.h"

namespace vexel {

/// Two bands in a host of 300 x 200 points: a red dashed line and green circles below, bars above.
struct ExampleFigure {
  ExampleFigure() {
    plot.initPlot(view, PlotTheme::white);
    plot.setViews(2, 10, 20);
    for (const auto& band : plot.hostingViews())
      plot.graphs().push_back(plot.format(band, {0, 0, 0, 0}, {50, 10, 20, 40}));

    auto line = cptLine(plot.graphs()[0]);
    line.dashPattern = {4, 2};
    plot.addPlot(line);
    auto circles = cptLine(plot.graphs()[0]);
    circles.color = CPTColor::greenColor();
    circles.circle = true;
    plot.addPlot(circles);
    plot.addBarPlot(bars(plot.graphs()[1]));
  }

  std::shared_ptr<PlotView> view = std::make_shared<PlotView>(CGRect::make(0, 0, 300, 200));
  TestPlot plot;
};

}  // namespace vexel
