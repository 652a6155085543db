#include <AppKit/NSWindow.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <Foundation/NSNumberFormatter.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "platform/CorePlot/Charts.h"
#include "platform/CorePlot/ListSource.h"

namespace vexel {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// What can move in a chart.
struct Marks {
  double x = 0.3;
  double y = 0.6;
  double box = 0.2;
  double star = 0.5;
  std::vector<double> note{0.4, 0.4};
  std::string text = "note";
  bool hasHorizontal = true;

  void change(std::mt19937& random) {
    const auto number = [&](double low, double high) {
      return std::uniform_real_distribution<double>(low, high)(random);
    };
    switch (random() % 7) {
      case 0:
        x = number(-0.1, 1.1);
        break;
      case 1:
        y = number(-0.1, 1.1);
        break;
      case 2:
        box = number(0, 0.9);
        break;
      case 3:
        star = random() % 5 ? number(-1, 1) : kNaN;
        break;
      case 4:
        note = {number(-0.2, 1.2), number(-0.2, 1.2)};
        break;
      case 5:
        text = random() % 2 ? "note" : "a longer note";
        break;
      case 6:
        hasHorizontal = !hasHorizontal;
        break;
    }
  }
};

/// A chart with marks below, between and above two long series, in a window.
class Chart {
 public:
  explicit Chart(const Marks& marks) {
    for (int i = 0; i <= 200; ++i) {
      longX.push_back(i / 200.0);
      longY.push_back(0.5 + 0.4 * std::sin(0.3 * i));
    }
    long_.fields = {longX, longY};
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    graph->setTitle("title");
    graph->setPadding(3);
    graph->plotAreaFrame()->setPaddingLeft(31.3);
    graph->plotAreaFrame()->setPaddingBottom(20.6);
    graph->plotAreaFrame()->setMasksToBorder(false);
    const auto line = [](CPTColor color, CGFloat width) {
      return CPTLineStyle{.lineWidth = width, .lineColor = std::move(color)};
    };
    add(vertical, "vertical")->setDataLineStyle(line(CPTColor::redColor(), 1));
    add(long_, "lower")->setDataLineStyle(line(CPTColor::colorWithComponents(0, 0.3, 0, 0.6), 2));
    const auto middle = add(boxes, "box");
    middle->setDataLineStyle(line(CPTColor::colorWithComponents(1, 0, 1, 0.5), 2.5));
    add(long_, "upper")->setDataLineStyle(line(CPTColor::colorWithComponents(0.9, 0.5, 0, 1), 1));
    add(oblique, "oblique")->setDataLineStyle(line(CPTColor::colorWithGenericGray(0.4), 1.5));
    const auto scattered = add(stars, "stars");
    CPTPlotSymbol star = CPTPlotSymbol::starPlotSymbol();
    star.setSize({9, 9});
    star.setFill(CPTFill(CPTColor::yellowColor()));
    scattered->setDataLineStyle(std::nullopt);
    scattered->setPlotSymbol(star);
    scattered->setLabelFormatter(std::make_shared<NSNumberFormatter>());
    scattered->setLabelOffset(4);
    scattered->setLabelRotation(0.7);
    note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
    graph->plotAreaFrame()->plotArea()->addAnnotation(note);
    const auto still =
        std::make_shared<CPTPlotSpaceAnnotation>(space.get(), std::vector<double>{0.5, 0.5});
    still->setContentLayer(std::make_shared<CPTTextLayer>("still"));
    still->setRotation(0.3);
    graph->plotAreaFrame()->plotArea()->addAnnotation(still);
    show(marks);
    view->setHostedGraph(graph);
    window->contentView()->addSubview(view);
  }

  void show(const Marks& marks) {
    set(vertical, {marks.x, marks.x, kNaN}, {-1, 2, kNaN}, "vertical");
    const double b = marks.box;
    set(boxes, {b, b + 0.2, b + 0.2, b, b, kNaN}, {b, b, b + 0.1, b + 0.1, b, kNaN}, "box");
    set(stars, {0.1, 0.5, 0.9}, {0.5, marks.star, 0.3}, "stars");
    set(horizontal, {-1, 2, kNaN}, {marks.y, marks.y, kNaN}, "horizontal");
    if (marks.hasHorizontal != bool(graph->plotWithIdentifier("horizontal"))) {
      if (marks.hasHorizontal)
        add(horizontal, "horizontal");
      else
        graph->removePlotWithIdentifier("horizontal");
    }
    note->setAnchorPlotPoint(marks.note);
    note->contentLayer()->setText(marks.text);
  }

  void repaint(CGBitmapContext& bitmap) {
    for (const CGRect& rect : window->dirtyRects()) {
      const CGSavedState state(bitmap);
      bitmap.clip(rect);
      bitmap.fillAligned({{}, window->contentSize()}, CGColor::genericGray(0.9));
      window->displayRect(rect, bitmap);
    }
  }

  unsigned drawings(const std::string& identifier) {
    return graph->plotWithIdentifier(identifier)->displayCount();
  }

  std::vector<double> longX, longY;
  ListSource long_{{{}, {}}}, vertical{{{}, {}}}, horizontal{{{}, {}}}, boxes{{{}, {}}},
      stars{{{}, {}}}, oblique{{{0, 1}, {0.9, 0.1}}};
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect::make(0, 0, 301, 203));
  std::shared_ptr<CPTXYPlotSpace> space = spaceOf(*graph);
  std::shared_ptr<CPTPlotSpaceAnnotation> note =
      std::make_shared<CPTPlotSpaceAnnotation>(space.get(), std::vector<double>{0.5, 0.5});
  std::shared_ptr<CPTGraphHostingView> view =
      std::make_shared<CPTGraphHostingView>(CGRect::make(7.4, 5, 301, 203));
  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(CGSize{320, 220});

 private:
  std::shared_ptr<CPTScatterPlot> add(ListSource& source, const char* identifier) {
    return addScatter(*graph, source, identifier);
  }

  void set(ListSource& source, std::vector<double> x, std::vector<double> y,
           const char* identifier) {
    const std::vector<std::vector<double>> fields{std::move(x), std::move(y)};
    const auto isSame = [](double a, double b) {
      return a == b || (std::isnan(a) && std::isnan(b));
    };
    if (std::equal(fields[0].begin(), fields[0].end(), source.fields[0].begin(),
                   source.fields[0].end(), isSame) &&
        std::equal(fields[1].begin(), fields[1].end(), source.fields[1].begin(),
                   source.fields[1].end(), isSame))
      return;
    source.fields = fields;
    if (const auto plot = graph->plotWithIdentifier(identifier)) plot->setDataNeedsReloading();
  }
};

std::vector<std::uint32_t> drawnFromScratch(const Marks& marks, CGFloat scale) {
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), scale);
  chart.repaint(*bitmap);
  return pixelsOf(*bitmap);
}

class MarkMoves : public testing::TestWithParam<double> {};

TEST_P(MarkMoves, GiveThePictureThatIsDrawnFromScratch) {
  const double scale = GetParam();
  std::mt19937 random(7);
  Marks marks;
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), scale);
  chart.repaint(*bitmap);
  for (int i = 0; i < 300; ++i) {
    for (unsigned changes = 1 + random() % 2; changes > 0; --changes) marks.change(random);
    chart.show(marks);
    chart.repaint(*bitmap);
    ASSERT_FALSE(chart.window->needsDisplay());
    const auto kept = pixelsOf(*bitmap), scratch = drawnFromScratch(marks, scale);
    std::size_t different = 0;
    for (std::size_t p = 0; p < kept.size(); ++p) different += kept[p] != scratch[p];
    ASSERT_EQ(different, 0u) << "after " << i << " changes";
  }
}

/// How often each part was drawn, and each source asked.
std::vector<int> work(Chart& chart) {
  std::vector<int> counts{chart.long_.askedForRecords, chart.oblique.askedForRecords};
  const auto count = [&](const CPTLayer& layer) {
    counts.push_back(static_cast<int>(layer.displayCount()));
  };
  count(*chart.graph);
  count(*chart.graph->plotAreaFrame());
  for (const auto& axis : chart.graph->axisSet()->axes()) {
    count(*axis);
    for (const auto& label : axis->axisLabels()) count(*label->contentLayer());
  }
  for (const char* plot : {"lower", "upper", "oblique", "stars"})
    count(*chart.graph->plotWithIdentifier(plot));
  return counts;
}

TEST(MarkMovesWork, AMarkerBelowSeriesThatMovesDrawsAndAsksNothingElse) {
  Marks marks;
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), 1);
  const auto moveTo = [&](double x) {
    marks.x = x;
    chart.show(marks);
    chart.repaint(*bitmap);
  };
  chart.repaint(*bitmap);
  moveTo(0.31);
  moveTo(0.32);
  const auto before = work(chart);
  const unsigned drawn = chart.drawings("vertical");
  const int asked = chart.vertical.askedForRecords;
  for (int i = 1; i <= 20; ++i) moveTo(0.32 + 0.001 * i);
  EXPECT_EQ(work(chart), before);
  EXPECT_EQ(chart.drawings("vertical"), drawn + 20);
  EXPECT_EQ(chart.vertical.askedForRecords, asked + 20);
}

TEST(MarkMovesWork, AMarkerMarksTheColumnsThatItLeavesAndEnters) {
  Marks marks;
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), 1);
  chart.repaint(*bitmap);
  const CGFloat left = 7.4 + 3 + 31.3, width = 301 - 6 - 31.3;
  marks.x = 0.8;
  chart.show(marks);
  const auto rects = chart.window->dirtyRects();
  ASSERT_EQ(rects.size(), 2u);
  EXPECT_NEAR(rects[0].midX(), left + 0.3 * width, 1e-9);
  EXPECT_NEAR(rects[1].midX(), left + 0.8 * width, 1e-9);
  for (const CGRect& rect : rects) {
    EXPECT_LE(rect.size.width, 4);
    EXPECT_NEAR(rect.size.height, 203 - 6 - 20.6, 2.1);
  }
}

TEST(MarkMovesWork, AMarkerAndItsLabelMarkARectangleEach) {
  Marks marks;
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), 1);
  chart.repaint(*bitmap);
  marks.x = 0.3001;
  marks.note = {0.4001, 0.4};
  chart.show(marks);
  EXPECT_EQ(chart.window->dirtyRects().size(), 2u);
}

TEST(MarkMovesWork, ChangesOfMoreThanMarksMarkTheWholeView) {
  Marks marks;
  Chart chart(marks);
  const auto bitmap = CGBitmapContext::create(chart.window->contentSize(), 1);
  const CGRect whole = chart.view->frame();
  const std::function<void()> changes[] = {
      [&] { chart.graph->plotWithIdentifier("lower")->setDataNeedsReloading(); },
      [&] { chart.graph->applyTheme(CPTTheme::themeNamed(kCPTPlainBlackTheme)); },
      [&] {
        chart.space->setXRange({0, 2});
      },
      [&] { chart.graph->setTitle("another"); },
      [&] { axesOf(*chart.graph)->xAxis()->setTitle("x"); },
      [&] { chart.graph->removePlotWithIdentifier("lower"); },
      [&] { chart.graph->addPlot(chart.graph->plotWithIdentifier("upper")); },
      [&] {
        chart.vertical.fields = chart.long_.fields;
        chart.graph->plotWithIdentifier("vertical")->setDataNeedsReloading();
      },
      [&] {
        chart.vertical.fields = {{0.5, 0.5}, {0, 1}};
        chart.graph->plotWithIdentifier("vertical")->setDataNeedsReloading();
      },
      [&] { chart.graph->plotAreaFrame()->plotArea()->setHidden(true); },
  };
  int number = 0;
  for (const auto& change : changes) {
    chart.repaint(*bitmap);
    change();
    EXPECT_EQ(chart.window->dirtyRects(), std::vector<CGRect>{whole}) << number++;
  }
}

INSTANTIATE_TEST_SUITE_P(AtScale, MarkMoves, testing::Values(1, 1.25, 2));

}  // namespace
}  // namespace vexel
