#include "platform/CorePlot/FailingSource.h"

#include <AppKit/NSWindow.h>
#include <CoreGraphics/CGDocumentContext.h>
#include <CoreGraphics/CGNullContext.h>
#include <CorePlot/CPTAxisDelegate.h>
#include <CorePlot/CPTGraphHostingView.h>
#include <CorePlot/CPTPlotSpaceAnnotation.h>
#include <Foundation/NSNumberFormatter.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/CorePlot/Charts.h"

namespace vexel {
namespace {

using Question = FailingSource::Question;

struct Disaster : std::runtime_error {
  Disaster() : std::runtime_error("disaster") {}
};

enum class Kind { line, steps, symbols, bars };
constexpr Kind kKinds[] = {Kind::line, Kind::steps, Kind::symbols, Kind::bars};

bool asks(Kind kind, Question question) {
  return kind != Kind::bars || (question != Question::symbols && question != Question::colors);
}

/// Counts how deep the states of a context are nested.
class DepthContext : public CGNullContext {
 public:
  void saveState() override { ++depth; }
  void restoreState() override { --depth; }
  int depth = 0;
};

std::shared_ptr<CPTPlot> makePlot(Kind kind) {
  if (kind == Kind::bars) return std::make_shared<CPTBarPlot>();
  auto plot = std::make_shared<CPTScatterPlot>();
  if (kind == Kind::symbols) {
    plot->setDataLineStyle(std::nullopt);
    plot->setPlotSymbol(CPTPlotSymbol::starPlotSymbol());
  }
  if (kind == Kind::steps) plot->setInterpolation(CPTScatterPlotInterpolation::stepped);
  return plot;
}

/// Two series in a view of a window: one that never fails below the one under test.
struct Chart {
  explicit Chart(Kind kind) : plot(makePlot(kind)) {
    graph->applyTheme(CPTTheme::themeNamed(kCPTPlainWhiteTheme));
    graph->setPadding(30);
    addScatter(*graph, steady, "steady");
    plot->setIdentifier("plot");
    plot->setDataSource(source.get());
    plot->setLabelFormatter(std::make_shared<NSNumberFormatter>());
    graph->addPlot(plot);
    view->setHostedGraph(graph);
    window->setContentView(view);
  }

  std::vector<std::uint32_t> show() {
    const auto context = CGBitmapContext::create(kSize, 1);
    window->display(*context);
    return pixelsOf(*context);
  }

  static constexpr CGSize kSize{200, 120};
  static inline const std::vector<double> kPlaces = {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8};
  ListSource steady{{kPlaces, {0.2, 0.2, 0.3, 0.3, 0.2, 0.2, 0.3, 0.3}}};
  std::unique_ptr<FailingSource> source = std::make_unique<FailingSource>(
      std::vector<std::vector<double>>{kPlaces, {0.5, 0.9, 0.4, 0.6, 0.8, 0.5, 0.7, 0.9}});
  std::shared_ptr<CPTXYGraph> graph = std::make_shared<CPTXYGraph>(CGRect{{}, kSize});
  std::shared_ptr<CPTPlot> plot;
  std::shared_ptr<CPTGraphHostingView> view = std::make_shared<CPTGraphHostingView>();
  std::shared_ptr<NSWindow> window = std::make_shared<NSWindow>(kSize);
};

/// Does something with a chart for each kind of series and each question that it is asked, the
/// first time it shows and when a picture of it is kept.
template <class Use>
void forEachQuestion(const Use& use) {
  for (const Kind kind : kKinds)
    for (const Question question : FailingSource::kQuestions)
      for (const bool wasShown : {false, true}) {
        if (!asks(kind, question)) continue;
        SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(kind) << " question "
                                        << static_cast<int>(question) << " shown " << wasShown);
        Chart chart(kind);
        chart.source->inBulk = question != Question::number;
        chart.source->question = question;
        for (int i = 0; i < 3 && wasShown; ++i) chart.show();
        chart.plot->setDataNeedsReloading();
        use(chart, kind);
      }
}

TEST(FailingSource, ThatThrowsIsHeardAndTheChartIsDrawnWholeTheNextTime) {
  forEachQuestion([](Chart& chart, Kind kind) {
    Chart twin(kind);
    const auto wanted = twin.show();
    chart.source->disaster = [] { throw Disaster(); };
    EXPECT_THROW(chart.show(), Disaster);
    EXPECT_EQ(chart.plot->recordCount(), 0u);
    EXPECT_TRUE(chart.plot->dataNeedsReloading());
    EXPECT_TRUE(chart.window->needsDisplay());
    EXPECT_THROW(chart.show(), Disaster);

    chart.source->disaster = nullptr;
    EXPECT_TRUE(chart.window->needsDisplay());
    EXPECT_TRUE(chart.show() == wanted);
    EXPECT_FALSE(chart.window->needsDisplay());
    EXPECT_TRUE(chart.show() == wanted);
    EXPECT_TRUE(chart.show() == wanted);
  });
}

TEST(FailingSource, ThatThrowsLeavesTheContextInItsFormerState) {
  forEachQuestion([](Chart& chart, Kind) {
    chart.source->disaster = [] { throw Disaster(); };
    DepthContext context;
    EXPECT_THROW(chart.window->display(context), Disaster);
    EXPECT_EQ(context.depth, 0);
    EXPECT_THROW(chart.graph->displayChart(context), Disaster);
    EXPECT_EQ(context.depth, 0);
    EXPECT_THROW(chart.graph->displayChart(context, CGRect::make(10, 10, 20, 20)), Disaster);
    EXPECT_EQ(context.depth, 0);
  });
}

TEST(FailingSource, ThatThrowsLeavesADocumentThatCanBeEnded) {
  for (const auto format : {CGDocumentContext::Format::pdf, CGDocumentContext::Format::svg})
    forEachQuestion([&](Chart& chart, Kind kind) {
      const auto document = [&](Chart& shown) {
        const auto context = CGDocumentContext::create(format, Chart::kSize);
        shown.window->display(*context);
        return context->finish();
      };
      const auto context = CGDocumentContext::create(format, Chart::kSize);
      chart.source->disaster = [] { throw Disaster(); };
      EXPECT_THROW(chart.window->display(*context), Disaster);
      EXPECT_FALSE(context->finish().empty());
      chart.source->disaster = nullptr;
      Chart twin(kind);
      EXPECT_EQ(document(chart), document(twin));
    });
}

TEST(FailingSource, ThatThrowsIsHeardByWhoReloadsAndAsksForRanges) {
  forEachQuestion([](Chart& chart, Kind) {
    chart.source->disaster = [] { throw Disaster(); };
    EXPECT_THROW(chart.plot->reloadData(), Disaster);
    EXPECT_THROW(chart.plot->plotRangeForCoordinate(CPTCoordinate::X), Disaster);
    EXPECT_EQ(chart.plot->recordCount(), 0u);
    chart.source->disaster = nullptr;
    EXPECT_TRUE(chart.plot->plotRangeForCoordinate(CPTCoordinate::X));
    EXPECT_EQ(chart.plot->recordCount(), Chart::kPlaces.size());
  });
}

TEST(FailingSource, ThatThrowsWhenRecordsAreAddedIsAskedForAllOfThemAnew) {
  forEachQuestion([](Chart& chart, Kind kind) {
    // Lists of symbols and colours that have ended are not asked for again, and record by record
    // it is asked for the new one alone.
    const auto question = chart.source->question;
    if (question == Question::symbols || question == Question::colors ||
        question == Question::number)
      return;
    chart.show();
    chart.source->fields[0].push_back(0.9);
    chart.source->fields[1].push_back(0.1);
    chart.plot->insertData(Chart::kPlaces.size(), 1);
    chart.source->disaster = [] { throw Disaster(); };
    EXPECT_THROW(chart.show(), Disaster);
    chart.source->disaster = nullptr;
    Chart twin(kind);
    twin.source->fields = chart.source->fields;
    EXPECT_TRUE(chart.show() == twin.show());
    EXPECT_EQ(chart.plot->recordCount(), Chart::kPlaces.size() + 1);
  });
}

TEST(FailingSource, ThatDiesWhileItAnswersDrawsNothingFromThenOn) {
  forEachQuestion([](Chart& chart, Kind kind) {
    Chart twin(kind);
    twin.source.reset();
    const auto wanted = twin.show();
    chart.source->disaster = [&] { chart.source.reset(); };
    EXPECT_TRUE(chart.show() == wanted);
    EXPECT_EQ(chart.plot->dataSource(), nullptr);
    EXPECT_EQ(chart.plot->recordCount(), 0u);
    EXPECT_EQ(chart.plot->plotRangeForCoordinate(CPTCoordinate::X), std::nullopt);
    EXPECT_TRUE(chart.show() == wanted);
    EXPECT_TRUE(chart.show() == wanted);
  });
}

TEST(FailingSource, ThatIsReplacedWhileItAnswersIsAskedNoMore) {
  forEachQuestion([](Chart& chart, Kind kind) {
    Chart other(kind);
    other.source->fields[1] = {0.1, 0.1, 0.2, 0.1, 0.1, 0.2, 0.1, 0.1};
    chart.source->disaster = [&] {
      chart.plot->setDataSource(other.source.get());
      chart.source.reset();
    };
    chart.show();
    const auto wanted = other.show();
    EXPECT_TRUE(chart.show() == wanted);
    EXPECT_TRUE(chart.show() == wanted);
  });
}

TEST(FailingSource, MayRemoveItsPlotItsGraphOrItsView) {
  const std::function<void(Chart&)> removals[] = {
      [](Chart& chart) { chart.graph->removePlotWithIdentifier("plot"); },
      [](Chart& chart) {
        chart.view->setHostedGraph(nullptr);
        chart.graph.reset();
      },
      [](Chart& chart) { chart.graph->setPlotAreaFrame(nullptr); },
      [](Chart& chart) { chart.graph->setAxisSet(nullptr); },
      [](Chart& chart) {
        chart.window->setContentView(nullptr);
        chart.view.reset();
        chart.graph.reset();
      },
      [](Chart& chart) { chart.window.reset(); },
  };
  for (const auto& remove : removals)
    forEachQuestion([&](Chart& chart, Kind) {
      chart.plot.reset();
      bool isRemoved = false;
      chart.source->disaster = [&] {
        if (!std::exchange(isRemoved, true)) remove(chart);
      };
      const auto context = CGBitmapContext::create(Chart::kSize, 1);
      chart.window->display(*context);
      EXPECT_TRUE(isRemoved);
      if (chart.window) chart.window->display(*context);
      if (!chart.graph || !chart.view) return;
      // What is left is drawn like a chart that never had more.
      const auto kept = chart.window ? chart.show() : drawn(*chart.graph);
      chart.graph->setNeedsDisplay();
      EXPECT_TRUE(kept == (chart.window ? chart.show() : drawn(*chart.graph)));
    });
}

TEST(FailingSource, MayAskForTheRangeOfItsPlotWhileItAnswers) {
  forEachQuestion([](Chart& chart, Kind) {
    int asked = 0;
    chart.source->disaster = [&] {
      ++asked;
      EXPECT_EQ(chart.plot->plotRangeForCoordinate(CPTCoordinate::Y), std::nullopt);
    };
    chart.show();
    EXPECT_GT(asked, 0);
    EXPECT_TRUE(chart.plot->plotRangeForCoordinate(CPTCoordinate::Y));
  });
}

TEST(FailingFormatter, LeavesAChartThatIsDrawnWholeTheNextTime) {
  struct Formatter : NSFormatter {
    std::string string(double) const override {
      if (fails) throw Disaster();
      return "label";
    }
    bool fails = false;
  };
  for (const Kind kind : kKinds)
    for (const std::size_t records : {1, 8}) {
      Chart chart(kind), twin(kind);
      const auto formatter = std::make_shared<Formatter>();
      for (Chart* shown : {&chart, &twin}) {
        shown->source->records = records;
        for (auto& field : shown->source->fields) field.resize(records);
        shown->plot->setLabelFormatter(formatter);
      }
      const auto wanted = twin.show();
      for (int displays = 0; displays < 3; ++displays) {
        formatter->fails = true;
        chart.plot->setNeedsDisplay();
        DepthContext context;
        EXPECT_THROW(chart.window->display(context), Disaster);
        EXPECT_EQ(context.depth, 0);
        EXPECT_TRUE(chart.window->needsDisplay());
        formatter->fails = false;
        EXPECT_TRUE(chart.show() == wanted);
        EXPECT_FALSE(chart.window->needsDisplay());
      }
    }
}

/// Does something each time a layer is drawn or an axis is placed.
class ActingDelegate : public CPTAxisDelegate {
 public:
  void layerWillDraw(CPTLayer&) override { act(); }
  void axisDidRelabel(CPTAxis&) override { act(); }

  std::function<void()> action;
  int calls = 0;

 private:
  void act() {
    ++calls;
    const auto now = action;
    if (now) now();
  }
};

/// A chart of which every layer has a delegate.
struct DelegatedChart : Chart {
  DelegatedChart() : Chart(Kind::line) {
    note->setContentLayer(std::make_shared<CPTTextLayer>("note"));
    graph->plotAreaFrame()->plotArea()->addAnnotation(note);
  }

  std::vector<CPTLayer*> layers() {
    std::vector<CPTLayer*> all = {graph.get(),
                                  graph->plotAreaFrame().get(),
                                  graph->plotAreaFrame()->plotArea().get(),
                                  graph->axisSet().get(),
                                  plot.get(),
                                  note->contentLayer().get()};
    for (const auto& axis : graph->axisSet()->axes()) all.push_back(axis.get());
    return all;
  }

  std::shared_ptr<CPTPlotSpaceAnnotation> note = std::make_shared<CPTPlotSpaceAnnotation>(
      spaceOf(*graph).get(), std::vector<double>{0.5, 0.5});
};

TEST(FailingDelegate, ThatThrowsIsHeardAndTheChartIsDrawnWholeTheNextTime) {
  DelegatedChart twin;
  const auto wanted = twin.show();
  const std::size_t count = twin.layers().size();
  for (std::size_t i = 0; i < count; ++i)
    for (int displays = 0; displays < 3; ++displays) {
      SCOPED_TRACE(testing::Message() << "layer " << i << " after displays " << displays);
      DelegatedChart chart;
      for (int shown = 0; shown < displays; ++shown) chart.show();
      ActingDelegate delegate;
      delegate.action = [] { throw Disaster(); };
      chart.layers()[i]->setDelegate(&delegate);
      for (CPTLayer* layer : chart.layers()) layer->setNeedsDisplay();
      DepthContext context;
      EXPECT_THROW(chart.window->display(context), Disaster);
      EXPECT_EQ(context.depth, 0);
      EXPECT_TRUE(chart.window->needsDisplay());
      delegate.action = nullptr;
      EXPECT_TRUE(chart.show() == wanted);
      EXPECT_GT(delegate.calls, 1);
      EXPECT_FALSE(chart.window->needsDisplay());
      EXPECT_TRUE(chart.show() == wanted);
    }
}

TEST(FailingDelegate, MayRemoveWhateverTheChartConsistsOf) {
  const std::function<void(DelegatedChart&)> removals[] = {
      [](DelegatedChart& chart) { chart.graph->removePlotWithIdentifier("plot"); },
      [](DelegatedChart& chart) {
        chart.graph->plotAreaFrame()->plotArea()->removeAllAnnotations();
      },
      [](DelegatedChart& chart) { chart.note->setContentLayer(nullptr); },
      [](DelegatedChart& chart) { chart.graph->plotAreaFrame()->setPlotArea(nullptr); },
      [](DelegatedChart& chart) { chart.graph->setPlotAreaFrame(nullptr); },
      [](DelegatedChart& chart) { chart.graph->axisSet()->setAxes({}); },
      [](DelegatedChart& chart) { chart.graph->setAxisSet(nullptr); },
      [](DelegatedChart& chart) {
        chart.view->setHostedGraph(nullptr);
        chart.graph.reset();
      },
      [](DelegatedChart& chart) {
        chart.window->setContentView(nullptr);
        chart.view.reset();
        chart.graph.reset();
      },
      [](DelegatedChart& chart) { chart.window.reset(); },
      [](DelegatedChart& chart) { chart.source.reset(); },
  };
  const std::size_t count = DelegatedChart().layers().size();
  for (std::size_t removal = 0; removal < std::size(removals); ++removal)
    for (std::size_t i = 0; i < count; ++i) {
      SCOPED_TRACE(testing::Message() << "removal " << removal << " layer " << i);
      DelegatedChart chart;
      bool isRemoved = false;
      ActingDelegate delegate;
      delegate.action = [&] {
        if (!std::exchange(isRemoved, true)) removals[removal](chart);
      };
      chart.layers()[i]->setDelegate(&delegate);
      chart.plot.reset();
      const auto context = CGBitmapContext::create(Chart::kSize, 1);
      chart.window->display(*context);
      EXPECT_TRUE(isRemoved);
      if (!chart.window || !chart.graph) continue;
      const auto kept = chart.show();
      chart.graph->setNeedsDisplay();
      EXPECT_TRUE(kept == chart.show());
    }
}

}  // namespace
}  // namespace vexel
