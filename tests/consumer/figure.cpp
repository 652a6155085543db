// Draws a figure into files, and does what has to work on both sides of a library's boundary: types
// are derived from, cast to and caught.
#include <CorePlot/CPTScatterPlot.h>
#include <Foundation/NSNotificationCenter.h>
#include <PlotColorTable/PlotCT.h>
#include <Vexel/Adopter.h>
#include <Vexel/FigureExport.h>
#include <Vexel/PlotView.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

using namespace vexel;

namespace {

void expect(bool good, const char* what) {
  if (good) return;
  std::fprintf(stderr, "figure: not so: %s\n", what);
  std::exit(1);
}

struct Line : Adopter<vexel::Vexel> {
  std::vector<double> x = {0, 1, 2, 3}, y = {0, 2, 1, 3};
  int questions = 0;

  void setupPlot() override {
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {70, 20, 20, 55})};
    addPlot({.to = graphs()[0],
             .identifiedBy = "Line",
             .color = PlotCT(PlotCT::idlRainbow).getColor(128),
             .lineWidth = 2.0f,
             .circle = false,
             .circleSize = 0.0f,
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot&) override { return x.size(); }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange) override {
    ++questions;
    expect(dynamic_cast<const CPTScatterPlot*>(&plot), "the plot is a scatter plot");
    return field == CPTScatterPlotFieldX ? x : y;
  }
};

std::string content(const char* file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

int main() {
  const auto view = std::make_shared<PlotView>(CGRect::make(0, 0, 320, 200));
  const auto line = makePlot<Line>(view, PlotTheme::white);

  exportFigure(*view, "figure.png");
  const std::string png = content("figure.png");
  expect(line->questions > 0, "the figure asked for its data");
  expect(png.starts_with("\x89PNG\r\n\x1a\n"), "figure.png is a PNG file");
  expect(png.substr(16, 8) == std::string("\0\0\1\x40\0\0\0\xc8", 8), "it has 320x200 pixels");

  const std::string drawn = figureData(*view, "a.svg", 1);
  line->y = {3, 1, 2, 0};
  line->graphs()[0]->reloadData();
  expect(figureData(*view, "a.svg", 1) != drawn, "other data are another picture");

  NSObject* const object = line.get();
  expect(dynamic_cast<Line*>(object) == line.get(), "the object is the adopter");

  try {
    exportFigure(*view, "missing-folder/figure.png");
    expect(false, "a figure in no folder is an error");
  } catch (const FigureExportError& error) {
    expect(std::string(error.what()).find("missing-folder") != std::string::npos,
           "the error names the file");
  }

  CGPoint heard;
  auto& center = NSNotificationCenter::defaultCenter();
  center.addObserver(*line, "moved", [&](const NSNotification& notification) {
    heard = std::any_cast<CGPoint>(notification.userInfo);
  });
  center.post({.name = "moved", .object = object, .userInfo = CGPoint{1, 2}});
  expect(heard == CGPoint{1, 2}, "what was attached arrived");
}
