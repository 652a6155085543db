// Times complete figures through the public interface. Prints a JSON object per result:
//
//   scenes W1|W2|W3|W4|W5|W6|many|append [N] [picture.png]
//
// W1  a line of N points: handed over, ranges set to the data, drawn (W1a); moved by 3 % (W1b);
//     a tenth of it shown (W1c)
// W2  N circles of 256 colours: handed over and drawn; drawn again after a tiny move
// W3  three graphs with a line, circles and bars each, built from data to a PNG, PDF, SVG, bitmap
// W4  a vertical line moved by a pixel over a line of N points
// W5  the PNG of W3 written to a file, for the time of a whole process
// W6  the most memory that W1a took
// many    N series of 1,000 points each in one graph, drawn again
// append  10,000 points added to N and drawn, beside a redraw
#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGBitmapContext.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <Vexel/FigureExport.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>

#include "Figures.h"

using namespace vexel;

namespace scenes {
namespace {

constexpr double kLongest = 6000;  // of all frames of a measurement, in milliseconds

double milliseconds() {
  using namespace std::chrono;
  return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  const std::size_t middle = values.size() / 2;
  return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// The median time of frames, which are told their number.
template <class Frame>
double timeOf(Frame&& frame, int most, int least = 3) {
  std::vector<double> times;
  const double start = milliseconds();
  for (int i = 0; i < most && (i < least || milliseconds() - start < kLongest); ++i) {
    const double begin = milliseconds();
    frame(i);
    times.push_back(milliseconds() - begin);
  }
  return median(std::move(times));
}

void report(const char* work, std::size_t count, double value, const char* unit = "ms") {
  fmt::print(R"({{"system":"vexel","work":"{}","n":{},"value":{:.6g},"unit":"{}","note":""}})"
             "\n",
             work, count, value, unit);
}

/// Pixels that stay, drawn on by a window as a host does, where the figure needs it.
class Screen {
 public:
  Screen(const Scene& scene, std::string file) : file_(std::move(file)) {
    window_->setContentView(scene.view);
  }
  void show() {
    for (const CGRect& rect : window_->dirtyRects()) window_->displayRect(rect, *pixels_);
  }
  void save(const std::string& suffix) {
    if (!file_.empty()) std::ofstream(file_ + suffix + ".png") << pixels_->pngData();
  }

 private:
  std::string file_;
  std::shared_ptr<NSWindow> window_ = std::make_shared<NSWindow>(kSize);
  std::unique_ptr<CGBitmapContext> pixels_ = CGBitmapContext::create(kSize, 1);
};

double peakMegabytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::strtod(line.c_str() + 6, nullptr) / 1024;
  return 0;
}

void timeLine(std::size_t count, const std::string& file, bool memoryOnly) {
  const Points points = randomLine(count);
  Scene scene({""}, "x", "y");
  Figure& figure = *scene.figure;
  Screen screen(scene, file);
  screen.show();
  const auto graph = figure.graphs()[0];
  const auto first = [&] {
    figure.addLine(0, "line", points);
    figure.fitRanges(0);
    screen.show();
  };
  if (memoryOnly) {
    first();
    return report("W6", count, peakMegabytes(), "MB");
  }
  std::vector<double> firsts;
  for (int i = 0; i < 5; ++i) {
    graph->removePlotWithIdentifier("line");
    screen.show();
    firsts.push_back(timeOf([&](int) { first(); }, 1, 1));
  }
  report("W1a", count, median(firsts));
  screen.save("-w1a");

  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  const CPTPlotRange full = space->xRange();
  report("W1b", count,
         timeOf(
             [&](int i) {
               const double offset = full.lengthDouble() * 0.03 * (i % 2 == 1 ? 1 : 2);
               figure.setXRange(0, full.locationDouble() + offset, full.endDouble() + offset);
               screen.show();
             },
             15));
  report("W1c", count,
         timeOf(
             [&](int i) {
               const double from =
                   full.locationDouble() + full.lengthDouble() * (0.45 + 0.01 * (i % 5));
               figure.setXRange(0, from, from + full.lengthDouble() / 10);
               screen.show();
             },
             15));
  screen.save("-w1c");
}

void timeCircles(std::size_t count, const std::string& file) {
  const ColoredPoints points = randomScatter(count);
  Scene scene({""}, "x", "y");
  Figure& figure = *scene.figure;
  Screen screen(scene, file);
  screen.show();
  const auto graph = figure.graphs()[0];
  std::vector<double> firsts;
  for (int i = 0; i < 5; ++i) {
    graph->removePlotWithIdentifier("circles");
    screen.show();
    firsts.push_back(timeOf(
        [&](int) {
          figure.addColoredCircles(0, "circles", points);
          figure.fitRanges(0);
          screen.show();
        },
        1, 1));
  }
  report("W2", count, median(firsts));
  screen.save("-w2");
  const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
  const CPTPlotRange full = space->xRange();
  report("W2redraw", count,
         timeOf(
             [&](int i) {
               const double offset = full.lengthDouble() * 0.001 * (i % 2);
               figure.setXRange(0, full.locationDouble() + offset, full.endDouble() + offset);
               screen.show();
             },
             9));
}

/// Three graphs, built from data.
Scene threeGraphs(const std::vector<Panel>& panels) {
  Scene scene({"Graph number 1", "Graph number 2", "Graph number 3"}, "time / s", "signal / V");
  for (std::size_t i = 0; i < panels.size(); ++i) {
    scene.figure->addBars(i, "bars" + std::to_string(i), panels[i].bars);
    scene.figure->addLine(i, "line" + std::to_string(i), panels[i].line);
    scene.figure->addCircles(i, "circles" + std::to_string(i), panels[i].symbols);
    scene.figure->setRanges(i, CPTPlotRange(0, 100), CPTPlotRange(-3.2, 6.4));
  }
  return scene;
}

std::string documentOf(NSView& view, CGDocumentContext::Format format) {
  const auto document = CGDocumentContext::create(format, kSize);
  view.display(*document);
  return document->finish();
}

void timeThreeGraphs(const std::string& file) {
  const auto time = [](const char* work, auto&& use) {
    std::vector<double> times;
    for (int i = 0; i < 12; ++i) {
      const double start = milliseconds();
      const std::vector<Panel> panels = {panel(0), panel(1), panel(2)};
      const Scene scene = threeGraphs(panels);
      use(*scene.view);
      if (i >= 2) times.push_back(milliseconds() - start);
    }
    report(work, 0, median(std::move(times)));
  };
  std::string png, pdf, svg;
  time("W3png", [&](NSView& view) {
    const auto bitmap = CGBitmapContext::create(kSize, 1);
    view.display(*bitmap);
    png = bitmap->pngData();
  });
  time("W3render", [](NSView& view) {
    const auto bitmap = CGBitmapContext::create(kSize, 1);
    view.display(*bitmap);
  });
  time("W3pdf", [&](NSView& view) { pdf = documentOf(view, CGDocumentContext::Format::pdf); });
  time("W3svg", [&](NSView& view) { svg = documentOf(view, CGDocumentContext::Format::svg); });
  if (file.empty()) return;
  std::ofstream(file + ".png") << png;
  std::ofstream(file + ".pdf") << pdf;
  std::ofstream(file + ".svg") << svg;
}

void writeThreeGraphs(const std::string& file) {
  const std::vector<Panel> panels = {panel(0), panel(1), panel(2)};
  const Scene scene = threeGraphs(panels);
  exportFigure(*scene.view, file);
}

void timeMarker(std::size_t count, const std::string& file) {
  const Points points = randomLine(count);
  Scene scene({""}, "x", "y");
  Figure& figure = *scene.figure;
  figure.addLine(0, "line", points);
  figure.fitRanges(0);
  Screen screen(scene, file);
  screen.show();
  const auto space =
      std::dynamic_pointer_cast<CPTXYPlotSpace>(figure.graphs()[0]->defaultPlotSpace());
  const CPTPlotRange x = space->xRange();
  const CPTPlotRange y = space->yRange();
  Points marker{{0, 0}, {y.locationDouble(), y.endDouble()}};
  figure.addLine(0, "marker", marker);
  const auto plot = figure.graphs()[0]->plotWithIdentifier("marker");
  std::dynamic_pointer_cast<CPTScatterPlot>(plot)->setDataLineStyle(
      CPTLineStyle{.lineWidth = 1, .lineColor = CPTColor::colorWithComponents(0.8, 0.1, 0.1, 1)});
  const CGSize area = figure.graphs()[0]->plotAreaFrame()->plotArea()->frame().size;
  const auto move = [&](int i) {
    const double middle = x.locationDouble() + x.lengthDouble() / 2;
    marker.x.assign(2, middle + i * x.lengthDouble() / area.width);
    plot->setDataNeedsReloading();
    screen.show();
  };
  for (int i = -5; i < 0; ++i) move(i);
  report("W4", count, timeOf(move, 201, 50));
  screen.save("-w4");
}

void timeManySeries(std::size_t count, const std::string& file) {
  std::vector<Points> series(count);
  for (std::size_t s = 0; s < count; ++s)
    for (int i = 0; i < 1000; ++i) {
      series[s].x.push_back(i);
      series[s].y.push_back(static_cast<double>(s) +
                            3 * std::sin(0.01 * i * (1 + 0.01 * static_cast<double>(s))));
    }
  Scene scene({""}, "x", "y");
  for (std::size_t s = 0; s < count; ++s) scene.figure->addLine(0, std::to_string(s), series[s]);
  scene.figure->fitRanges(0);
  Screen screen(scene, file);
  screen.show();
  report("many", count,
         timeOf(
             [&](int i) {
               scene.figure->setXRange(0, i % 2, 999 + i % 2);
               screen.show();
             },
             15));
  screen.save("-many");
}

void timeAppending(std::size_t count, const std::string& file) {
  constexpr std::size_t kAppended = 10000;
  constexpr int kTimes = 15;
  const Points all = randomLine(count + kAppended * kTimes);
  Points shown;
  shown.x.reserve(all.x.size());
  shown.y.reserve(all.y.size());
  const auto grow = [&](std::size_t to) {
    const auto from = static_cast<std::ptrdiff_t>(shown.x.size());
    const auto end = static_cast<std::ptrdiff_t>(to);
    shown.x.insert(shown.x.end(), all.x.begin() + from, all.x.begin() + end);
    shown.y.insert(shown.y.end(), all.y.begin() + from, all.y.begin() + end);
  };
  grow(count);
  Scene scene({""}, "x", "y");
  scene.figure->addLine(0, "line", shown);
  scene.figure->fitRanges(0);
  Screen screen(scene, file);
  screen.show();
  const auto plot = scene.figure->graphs()[0]->plotWithIdentifier("line");
  report("redraw", count,
         timeOf(
             [&](int) {
               plot->setNeedsDisplay();
               screen.show();
             },
             kTimes));
  report("append", count,
         timeOf(
             [&](int i) {
               grow(count + kAppended * static_cast<std::size_t>(i + 1));
               plot->insertData(shown.x.size() - kAppended, kAppended);
               screen.show();
             },
             kTimes));
}

int run(const std::string& work, std::size_t count, const std::string& file) {
  if (work == "W1" || work == "W6")
    timeLine(count, file, work == "W6");
  else if (work == "W2")
    timeCircles(count, file);
  else if (work == "W3")
    timeThreeGraphs(file);
  else if (work == "W4")
    timeMarker(count, file);
  else if (work == "W5")
    writeThreeGraphs(file.empty() ? "scenes.png" : file);
  else if (work == "many")
    timeManySeries(count, file);
  else if (work == "append")
    timeAppending(count, file);
  else
    return EXIT_FAILURE;
  return EXIT_SUCCESS;
}

}  // namespace
}  // namespace scenes

int main(int argc, char** argv) {
  const std::string work = argc > 1 ? argv[1] : "";
  const double count = argc > 2 ? std::strtod(argv[2], nullptr) : 1000;
  return scenes::run(work, static_cast<std::size_t>(count), argc > 3 ? argv[3] : "");
}
