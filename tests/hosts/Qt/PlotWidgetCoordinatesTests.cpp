#include <CorePlot/CPTXYPlotSpace.h>
#include <Vexel/Adopter.h>
#include <Vexel/PlotView.h>
#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLabel>
#include <cmath>

#include "ShownWidget.h"

namespace vexel {
namespace {

constexpr int kBands = 3;
// Of the plot areas inside their bands: left, top, right, bottom.
constexpr CGFloat kLeft = 31, kTop = 7, kRight = 12, kBottom = 13;
// What the highest and the lowest band have in addition.
constexpr CGFloat kTopBand = 10, kBottomBand = 20;
// The view of the figure inside that of the widget.
constexpr CGPoint kHost{17, 9};

/// Bands over decades: x from 10^-1 to 10^3, y in band i from 10^i to 10^(i + 2), downwards in the
/// middle one.
class Decades : public Adopter<Vexel> {
 public:
  void setupPlot() override {
    setViews(kBands, kTopBand, kBottomBand);
    for (int i = 0; i < kBands; ++i) {
      const CGFloat top = i == kBands - 1 ? kTop + kTopBand : kTop;
      const CGFloat bottom = i == 0 ? kBottom + kBottomBand : kBottom;
      const auto graph = format(hostingViews()[i], {0, 0, 0, 0}, {kLeft, top, kRight, bottom});
      graphs().push_back(graph);
      const auto space = std::dynamic_pointer_cast<CPTXYPlotSpace>(graph->defaultPlotSpace());
      space->setXScaleType(CPTScaleTypeLog);
      space->setYScaleType(CPTScaleTypeLog);
      space->setXRange({0.1, 1000 - 0.1});
      const double low = std::pow(10, i), high = std::pow(10, i + 2);
      space->setYRange(i == 1 ? CPTPlotRange(high, low - high) : CPTPlotRange(low, high - low));
    }
  }
  void draw(const std::vector<double>&) override {}
  void refresh(const std::vector<double>&) override {}
  std::size_t numberOfRecords(const CPTPlot&) override { return 0; }
};

class Listener : public PlotView {
 public:
  using PlotView::PlotView;

  void mouseMoved(const NSEvent& event) override { last = event; }

  std::optional<NSEvent> last;
};

class PlotWidgetCoordinates : public testing::TestWithParam<double> {};

TEST_P(PlotWidgetCoordinates, AreThoseUnderThePointerInEveryBandOnLogarithmicAxes) {
  const auto content = std::make_shared<NSView>(CGRect::make(0, 0, 400, 330));
  const auto shifted = std::make_shared<NSView>(CGRect::make(4, 6, 390, 320));
  const auto host =
      std::make_shared<Listener>(CGRect{{kHost.x - 4 + 50, kHost.y - 6 - 25}, CGSize{360, 300}});
  // Scrolled, so that frames alone do not tell where the host is.
  shifted->setBoundsOrigin({50, -25});
  content->addSubview(shifted);
  shifted->addSubview(host);
  const auto figure = makePlot<Decades>(host, PlotTheme::white);

  QWidget window;
  auto* const row = new QHBoxLayout(&window);
  row->setContentsMargins(3, 5, 3, 3);
  row->addWidget(new QLabel("A"));
  auto* const widget = new PlotWidget(content);
  widget->setFixedSize(400, 330);
  row->addWidget(widget);
  showOn(window, GetParam());
  ASSERT_EQ(widget->devicePixelRatioF(), GetParam());
  Mouse mouse(window.windowHandle());

  const CGFloat shared = (300 - kTopBand - kBottomBand) / kBands;
  for (int band = 0; band < kBands; ++band) {
    // The plot area in the window of the views, from the bottom left.
    const CGFloat bottom = kHost.y + kBottomBand + band * shared + kBottom;
    const CGRect area =
        CGRect::make(kHost.x + kLeft, bottom, 360 - kLeft - kRight, shared - kTop - kBottom);
    for (const double x : {0, 80, 159, 285, 317})
      for (const double y : {0, 21, 53, 70}) {
        const QPointF place(area.minX() + x, 330 - (area.minY() + y));
        mouse.move(QPointF(widget->mapTo(&window, QPoint())) + place);
        ASSERT_TRUE(host->last);
        const auto point =
            figure->graphs()[band]->defaultPlotSpace()->plotPointForEvent(*host->last);
        ASSERT_TRUE(point);
        const double right = x / area.size.width, up = y / area.size.height;
        const double decade = band == 1 ? band + 2 * (1 - up) : band + 2 * up;
        EXPECT_NEAR(std::log10(point->at(0)), -1 + 4 * right, 1e-9) << band << ' ' << x;
        EXPECT_NEAR(std::log10(point->at(1)), decade, 1e-9) << band << ' ' << y;
      }
  }
}

INSTANTIATE_TEST_SUITE_P(AtEveryRatio, PlotWidgetCoordinates, testing::ValuesIn(kRatios));

}  // namespace
}  // namespace vexel
