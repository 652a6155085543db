#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <VexelQt/PlotWidget.h>
#include <VexelWithMarkers/VexelWithMarkers.h>
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMouseEvent>
#include <cmath>

// From a move of the mouse to the frame that shows the marker there, as the window has it.

namespace vexel {
namespace {

constexpr CGSize kSize{1600, 1000};

enum class Series { line, circles };

class MarkedFigure : public Adopter<VexelWithMarkers> {
 public:
  MarkedFigure(std::size_t count, Series series) : series_(series), x_(count), y_(count) {
    for (std::size_t i = 0; i < count; ++i) {
      const double t = static_cast<double>(i) / static_cast<double>(count);
      x_[i] = t;
      y_[i] = 0.5 + 0.3 * std::sin(40 * t) + 0.15 * std::sin(1e5 * t * t);
    }
  }

  void setupPlot() override {
    auxiliaryValues() = {0, 1};
    setViews(1, 0, 0);
    graphs() = {format(hostingViews()[0], {0, 0, 0, 0}, {70, 20, 20, 55})};
    addPlot({.to = graphs()[0],
             .identifiedBy = "Series",
             .color = NSColor::blueColor(),
             .lineWidth = series_ == Series::line ? 1.0f : 0.0f,
             .circle = series_ == Series::circles,
             .circleSize = 5.0f,
             .circleFillColor = NSColor::blueColor(),
             .label = false,
             .labelOffset = 0.0f,
             .labelRotation = 0.0f});
  }
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot& plot) override {
    return plot.identifier() == kVerticalMarker ? 2 : x_.size();
  }
  std::optional<CPTNumericData> numbers(const CPTPlot& plot, unsigned field,
                                        CPTRecordRange) override {
    if (plot.identifier() == kVerticalMarker) return std::nullopt;
    return field == CPTScatterPlotFieldX ? x_ : y_;
  }
  double number(const CPTPlot&, unsigned field, std::size_t record) override {
    return field == CPTScatterPlotFieldX ? verticalMarkerX() : static_cast<double>(record);
  }

 private:
  Series series_;
  std::vector<double> x_, y_;
};

class MarkedView : public PlotView {
 public:
  using PlotView::PlotView;

  void mouseMoved(const NSEvent& event) override {
    figure->updateVerticalMarker(event, figure->graphs()[0]);
  }

  MarkedFigure* figure = nullptr;
};

class CountingWidget : public PlotWidget {
 public:
  using PlotWidget::PlotWidget;

  int frames = 0;

 protected:
  void paintEvent(QPaintEvent* event) override {
    PlotWidget::paintEvent(event);
    ++frames;
  }
};

void moveMarker(benchmark::State& state, Series series) {
  const auto view = std::make_shared<MarkedView>(CGRect{{}, kSize});
  const auto figure = makePlot<MarkedFigure>(view, PlotTheme::white,
                                             static_cast<std::size_t>(state.range(0)), series);
  view->figure = figure.get();
  figure->setVerticalMarker(0.5, figure->graphs()[0]);
  CountingWidget widget(view);
  widget.show();
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();

  int x = 100;
  const auto moveOnce = [&] {
    x = x > 1500 ? 100 : x + 7;
    const QPointF place(x, 400);
    QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &move);
    const int before = widget.frames;
    while (widget.frames == before) QCoreApplication::processEvents();
  };
  // The first ones draw what is kept afterwards.
  for (int i = 0; i < 5; ++i) moveOnce();
  for (auto _ : state) moveOnce();
}

BENCHMARK_CAPTURE(moveMarker, Line, Series::line)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(moveMarker, Circles, Series::circles)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

}  // namespace
}  // namespace vexel

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
